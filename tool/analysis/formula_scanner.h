#pragma once
// Walks over formula text. A double-byte character is one step, so that its second byte is never taken for a
// bracket or a letter.

#include <cstddef>
#include <optional>
#include <string_view>

#include "tool/framework/text/cp932.h"

namespace analysis {

/// Keywords of point expressions, in the order in which they are tried at a position.
enum class PointKeyword { midpoint, foot, crossing, bisector, extension, effective_a, name };

struct PointStart {
  PointKeyword keyword;
  std::size_t begin;      ///< position of the keyword or '['
  std::size_t arguments;  ///< position right behind its '(' or '['
  std::size_t close;      ///< position of the ']' of a name
};

/// The next point expression at or after `from`; a '[' that is never closed is none.
std::optional<PointStart> find_point(std::string_view text, std::size_t from);

/// Position of the first `wanted` at or after `from` that is a character of its own; npos when there is none.
constexpr std::size_t find_character(std::string_view text, char wanted, std::size_t from) {
  for (std::size_t at = from; at < text.size(); ++at) {
    if (text[at] == wanted) return at;
    if (framework::is_lead_byte(text[at])) ++at;
  }
  return std::string_view::npos;
}

/// Whether `word` stands at `at`. Words are short and mostly differ in their first letters.
constexpr bool stands_at(std::string_view text, std::size_t at, std::string_view word) {
  if (text.size() - at < word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (text[at + i] != word[i]) return false;
  }
  return true;
}

/// What is written in double quotes and square brackets is a name, not part of the formula.
constexpr bool is_opening(char c) {
  return c == '"' || c == '[';
}
/// Position behind the quoted or bracketed text that opens at `open`; behind the opening itself when nothing
/// closes it.
constexpr std::size_t behind_enclosed(std::string_view text, std::size_t open) {
  const std::size_t close = find_character(text, text[open] == '"' ? '"' : ']', open + 1);
  return close == std::string_view::npos ? open + 1 : close + 1;
}

/// Position of `word` at or after `from`, outside double quotes and square brackets; npos when there is none.
std::size_t find_word(std::string_view text, std::string_view word, std::size_t from = 0);

}  // namespace analysis
