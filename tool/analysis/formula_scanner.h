#pragma once
// Walks over formula text. A double-byte character is one step, so that its second byte is never taken for a
// bracket or a letter.

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "tool/framework/text/cp932.h"

namespace analysis {

/// The measurement and reference terms, in the order in which they are substituted.
enum class Term : std::uint8_t {
  model,
  len_r,
  len_d,
  len,
  angle1,
  angle3,
  angle2,
  angle4,
  item_value,
  item_sd_units,
  item_mean,
  item_sd,
};

/// Indexed by Term.
inline constexpr std::string_view term_keywords[] = {"Model",  "lenR",   "lenD", "len", "angle1", "angle3",
                                                     "angle2", "angle4", "case", "sdu", "mean",   "sdv"};

constexpr std::string_view keyword(Term term) {
  return term_keywords[static_cast<std::size_t>(term)];
}

/// The forms of point expressions, in the order in which they are tried at a position.
enum class PointForm : std::uint8_t { midpoint, foot, crossing, bisector, extension, effective_a, name };

/// A place of the text where a term or a point expression begins.
struct Token {
  enum class Kind : std::uint8_t {
    term,
    point,
    consumed,  ///< its text has been evaluated with another term
    variable,  ///< a term that has been evaluated: entry `entry` of the table, its text ends at `close`
  };
  Kind kind;
  Term term;
  PointForm form;
  std::uint8_t entry;
  std::uint32_t begin;
  std::uint32_t behind;  ///< position behind the keyword with its '(', or behind the '[' of a name
  std::uint32_t close;   ///< position of the ']' of a name
};

/// Finds every token, from left to right. What is written in double quotes and square brackets is a name:
/// terms are not looked for in there. A '[' or a double quote that is never closed is none.
void find_tokens(std::string_view text, std::vector<Token> &tokens);

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

/// Position of `word` at or after `from`, outside double quotes and square brackets; npos when there is none.
std::size_t find_word(std::string_view text, std::string_view word, std::size_t from = 0);

}  // namespace analysis
