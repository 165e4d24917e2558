#pragma once
// Walks over formula text. A double-byte character is one step, so that its second byte is never taken for a
// bracket or a letter.

#include <cstddef>
#include <optional>
#include <string_view>

namespace analysis {

/// Keywords of point expressions, in the order in which they are tried at a position.
enum class PointKeyword { midpoint, foot, crossing, bisector, extension, effective_a, name };

struct PointStart {
  PointKeyword keyword;
  std::size_t begin;      ///< position of the keyword or '['
  std::size_t arguments;  ///< position right behind its '(' or '['
};

/// The next point expression at or after `from`; a '[' that is never closed is none.
std::optional<PointStart> find_point(std::string_view text, std::size_t from);

/// Position of the first `wanted` at or after `from` that is a character of its own; npos when there is none.
std::size_t find_character(std::string_view text, char wanted, std::size_t from);

/// True for blanks, tabs and line ends.
constexpr bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

/// Position of `word` at or after `from`, outside double quotes and square brackets; npos when there is none.
std::size_t find_word(std::string_view text, std::string_view word, std::size_t from = 0);

}  // namespace analysis
