#include "tool/framework/text/cp932.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <type_traits>

#include "tool/framework/text/ascii.h"

namespace framework {
namespace {

struct CloseConverter {
  void operator()(iconv_t converter) const { iconv_close(converter); }
};
using Converter = std::unique_ptr<std::remove_pointer_t<iconv_t>, CloseConverter>;

Converter open_converter(const char *to, const char *from) {
  const iconv_t converter = iconv_open(to, from);
  return Converter(converter == reinterpret_cast<iconv_t>(-1) ? nullptr : converter);
}

/// Converts as much of `text` as it can and removes that part; true when everything was converted.
bool convert_prefix(iconv_t converter, std::string_view &text, std::string &out) {
  std::array<char, 1024> buffer;
  // iconv takes its input as char ** and leaves the bytes alone.
  auto *in = const_cast<char *>(text.data());  // NOLINT(cppcoreguidelines-pro-type-const-cast)
  std::size_t in_left = text.size();
  bool more = true;
  bool complete = true;
  while (more) {
    char *to = buffer.data();
    std::size_t room = buffer.size();
    const std::size_t result = iconv(converter, &in, &in_left, &to, &room);
    out.append(buffer.data(), buffer.size() - room);
    more = result == static_cast<std::size_t>(-1) && errno == E2BIG;
    complete = result != static_cast<std::size_t>(-1);
  }
  text.remove_prefix(text.size() - in_left);
  return complete;
}

std::optional<std::string> convert(const char *to, const char *from, std::string_view text,
                                   std::size_t *bad_offset) {
  if (is_ascii(text)) return std::string(text);
  const Converter converter = open_converter(to, from);
  std::string out;
  std::string_view rest = text;
  if (converter && convert_prefix(converter.get(), rest, out)) return out;
  if (bad_offset) *bad_offset = text.size() - rest.size();
  return std::nullopt;
}

std::string convert_with_replacement(const char *to, const char *from, std::string_view text,
                                     std::string_view replacement, std::size_t (*skip)(std::string_view)) {
  if (is_ascii(text)) return std::string(text);
  const Converter converter = open_converter(to, from);
  std::string out;
  if (!converter) return out;
  while (!convert_prefix(converter.get(), text, out)) {
    iconv(converter.get(), nullptr, nullptr, nullptr, nullptr);
    out += replacement;
    text.remove_prefix(std::min(text.size(), skip(text)));
  }
  return out;
}

/// Bytes of the UTF-8 sequence at the front: its first byte and the continuation bytes after it.
std::size_t utf8_sequence_length(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) ++length;
  return length;
}

}  // namespace

bool equal_ignoring_case(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size();) {
    const std::size_t next = next_character(a, i);
    if (lower(a[i]) != lower(b[i])) return false;
    if (next - i == 2 && a[i + 1] != b[i + 1]) return false;
    i = next;
  }
  return true;
}

bool is_ascii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

std::optional<std::string> utf8_from_cp932(std::string_view text, std::size_t *bad_offset) {
  return convert("UTF-8", "CP932", text, bad_offset);
}

std::optional<std::string> cp932_from_utf8(std::string_view text, std::size_t *bad_offset) {
  return convert("CP932", "UTF-8", text, bad_offset);
}

std::string utf8_for_display(std::string_view cp932_text) {
  return convert_with_replacement("UTF-8", "CP932", cp932_text, "\xEF\xBF\xBD",
                                  [](std::string_view) { return std::size_t{1}; });
}

std::string cp932_for_display(std::string_view utf8_text) {
  return convert_with_replacement("CP932", "UTF-8", utf8_text, "?", utf8_sequence_length);
}

}  // namespace framework
