#include "apps/drawing/wrapped_text.h"

namespace app {
namespace {

std::size_t character_bytes(unsigned char first) {
  return first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

/// The next piece that is not broken: a word with the blanks behind it, or one character beyond ASCII.
std::string_view next_piece(std::string_view text) {
  if (static_cast<unsigned char>(text.front()) >= 0x80)
    return text.substr(0, character_bytes(static_cast<unsigned char>(text.front())));
  std::size_t end = 0;
  while (end < text.size() && text[end] != ' ' && text[end] != '\n' &&
         static_cast<unsigned char>(text[end]) < 0x80)
    ++end;
  while (end < text.size() && text[end] == ' ') ++end;
  return text.substr(0, end);
}

std::string without_trailing_blanks(std::string text) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

}  // namespace

std::vector<std::string> wrapped(const Sheet &sheet, std::string_view utf8, const TextLook &look,
                                 double width) {
  std::vector<std::string> lines;
  std::string line;
  const auto fits = [&](const std::string &text) {
    return sheet.text_width(without_trailing_blanks(text), look) <= width;
  };
  const auto end_line = [&] {
    lines.push_back(without_trailing_blanks(std::move(line)));
    line.clear();
  };
  while (!utf8.empty()) {
    if (utf8.front() == '\n') {
      end_line();
      utf8.remove_prefix(1);
      continue;
    }
    std::string_view piece = next_piece(utf8);
    if (!fits(line + std::string(piece))) {
      if (!line.empty()) {
        end_line();
        continue;
      }
      while (piece.size() > 1 && static_cast<unsigned char>(piece.front()) < 0x80 &&
             !fits(std::string(piece)))
        piece.remove_suffix(1);
    }
    line += piece;
    utf8.remove_prefix(piece.size());
  }
  end_line();
  return lines;
}

}  // namespace app
