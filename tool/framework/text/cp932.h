#pragma once
// Code page 932: stepping over its one- and two-byte characters, and conversion from and to UTF-8 where text
// enters or leaves the library.

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tool/framework/text/cp932_table.h"

namespace framework {

// Stepping
// --------------------------------------------------------------------------------------------------------
/// First byte of a two-byte character: 0x81 to 0x9F and 0xE0 to 0xFC. 0xA1 to 0xDF are half-width katakana.
constexpr bool is_lead_byte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

/// The character after the one at `text`; the end of the text stays where it is. A lead byte right before the
/// end counts as one character.
constexpr const char *next_character(const char *text) {
  if (*text == '\0') return text;
  return text + (is_lead_byte(text[0]) && text[1] != '\0' ? 2 : 1);
}

/// The same by position: the offset of the character after the one at `position`, at most the length.
constexpr std::size_t next_character(std::string_view text, std::size_t position) {
  if (position >= text.size()) return text.size();
  const bool two_bytes = is_lead_byte(text[position]) && position + 1 < text.size();
  return position + (two_bytes ? 2 : 1);
}

/// Equal but for the case of ASCII letters. Second bytes in the range of the letters belong to their
/// characters.
bool equal_ignoring_case(std::string_view a, std::string_view b);

// Conversion
// ------------------------------------------------------------------------------------------------------
/// Every byte is ASCII: the text is the same in both encodings.
bool is_ascii(std::string_view text);

/// UTF-8 of a code page 932 text; empty when a byte sequence belongs to no character, whose offset then goes
/// to `bad_offset`.
std::optional<std::string> utf8_from_cp932(std::string_view text, std::size_t *bad_offset = nullptr);

/// Code page 932 of a UTF-8 text; empty when the text is not UTF-8 or has a character the code page lacks.
std::optional<std::string> cp932_from_utf8(std::string_view text, std::size_t *bad_offset = nullptr);

/// For showing text to people: what cannot be converted becomes a replacement character (U+FFFD, or "?").
std::string utf8_for_display(std::string_view cp932_text);
std::string cp932_for_display(std::string_view utf8_text);

// Literals
// --------------------------------------------------------------------------------------------------------
/// A Japanese literal in code page 932, converted while compiling: `constexpr auto year = cp932("年");`. The
/// characters must be in the table of cp932_table.h (made by cmake/make_cp932_table.py); others do not
/// compile.
template <std::size_t Capacity>
struct Cp932Literal {
  std::array<char, Capacity> bytes{};
  std::size_t length = 0;

  constexpr const char *c_str() const { return bytes.data(); }
  constexpr std::string_view view() const { return {bytes.data(), length}; }
  constexpr operator const char *() const { return bytes.data(); }
};

namespace detail {

constexpr char32_t take_utf8(const char *&text) {
  const auto byte = [&] { return static_cast<unsigned char>(*text++); };
  const char32_t first = byte();
  if (first < 0x80) return first;
  const int following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  char32_t code = first & (0x3FU >> following);
  for (int i = 0; i < following; ++i) code = (code << 6) | (byte() & 0x3FU);
  return code;
}

constexpr unsigned cp932_code(char32_t code) {
  for (const Cp932Entry &entry : cp932_table)
    if (entry.unicode == code) return entry.cp932;
  throw "this character is missing in cp932_table.h: run cmake/make_cp932_table.py";
}

}  // namespace detail

template <std::size_t N>
consteval Cp932Literal<N> cp932(const char (&utf8)[N]) {
  Cp932Literal<N> result;  // code page 932 never takes more bytes than UTF-8
  for (const char *text = utf8; text != utf8 + N - 1;) {
    const char32_t code = detail::take_utf8(text);
    const unsigned value = code < 0x80 ? static_cast<unsigned>(code) : detail::cp932_code(code);
    if (value > 0xFF) result.bytes[result.length++] = static_cast<char>(value >> 8);
    result.bytes[result.length++] = static_cast<char>(value & 0xFFU);
  }
  return result;
}

}  // namespace framework
