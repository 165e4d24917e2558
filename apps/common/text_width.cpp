#include "apps/common/text_width.h"

#include <array>

namespace app {
namespace {

struct Range {
  char32_t first, last;
};

constexpr std::array<Range, 14> wide{{{0x1100, 0x115F},
                                      {0x2E80, 0x303E},
                                      {0x3041, 0x33FF},
                                      {0x3400, 0x4DBF},
                                      {0x4E00, 0x9FFF},
                                      {0xA000, 0xA4CF},
                                      {0xA960, 0xA97F},
                                      {0xAC00, 0xD7A3},
                                      {0xF900, 0xFAFF},
                                      {0xFE30, 0xFE6F},
                                      {0xFF00, 0xFF60},
                                      {0xFFE0, 0xFFE6},
                                      {0x1F300, 0x1FAFF},
                                      {0x20000, 0x3FFFD}}};
constexpr std::array<Range, 5> combining{
    {{0x0300, 0x036F}, {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0x3099, 0x309A}, {0xFE00, 0xFE0F}}};

template <std::size_t N>
bool holds(const std::array<Range, N> &ranges, char32_t code) {
  for (const Range &range : ranges)
    if (code >= range.first && code <= range.last) return true;
  return false;
}

/// Takes one character off the front; a broken byte stands for itself.
char32_t take(std::string_view &text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  std::size_t following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
  if (following >= text.size()) following = 0;
  for (std::size_t i = 1; i <= following; ++i)
    if ((byte(i) & 0xC0) != 0x80) following = 0;
  char32_t code = following == 0 ? first : first & (0x3FU >> following);
  for (std::size_t i = 1; i <= following; ++i) code = (code << 6) | (byte(i) & 0x3FU);
  text.remove_prefix(following + 1);
  return code;
}

std::string blanks(std::string_view utf8, std::size_t width) {
  const std::size_t taken = display_width(utf8);
  return std::string(taken < width ? width - taken : 0, ' ');
}

}  // namespace

std::size_t display_width(std::string_view utf8) {
  std::size_t width = 0;
  while (!utf8.empty()) {
    const char32_t code = take(utf8);
    width += holds(combining, code) ? 0 : holds(wide, code) ? 2 : 1;
  }
  return width;
}

std::string pad_right(std::string_view utf8, std::size_t width) {
  return std::string(utf8) + blanks(utf8, width);
}
std::string pad_left(std::string_view utf8, std::size_t width) {
  return blanks(utf8, width) + std::string(utf8);
}

}  // namespace app
