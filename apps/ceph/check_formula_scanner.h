#pragma once
// The characters of one formula, read from left to right, and the place where its problems are written down.

#include <cstddef>
#include <string>
#include <string_view>

#include "apps/ceph/check_formula.h"

namespace app::check {

constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool is_word_character(char c) {
  return is_letter(c) || is_digit(c) || c == '_';
}

/// "1 point", "2 points".
std::string count_of(std::size_t count, const char *noun);

/// The first fault of the grammar (fail) ends the reading; faults of meaning (problem) do not.
class FormulaScanner {
 public:
  /// `base` is the position of `text` in the caller's formula.
  FormulaScanner(std::string_view text, std::size_t base, FormulaReport &report)
      : text_(text), base_(base), report_(report) {}

  bool failed() const { return failed_; }
  std::size_t position() const { return at_; }
  void skip(std::size_t bytes) { at_ += bytes; }
  /// What is not read yet, blanks included.
  std::string_view rest() const { return text_.substr(at_); }

  bool at_end();
  /// The next character behind blanks; NUL at the end.
  char peek();
  /// Reads the character if it comes next.
  bool take(char c);
  /// The word that begins here; empty: none does.
  std::string_view peek_word() const;
  std::string_view take_word();

  /// Reads '(' and returns its position.
  std::size_t open_parenthesis(std::string_view word);
  void close_parenthesis(std::size_t open);
  /// Skips "(...)" with whatever stands in it.
  void skip_arguments();
  void expect_end();

  void problem(std::size_t position, Severity severity, std::string message);
  void fail_at(std::size_t position, std::string message);
  void fail(std::string message) { fail_at(at_, std::move(message)); }
  std::string character_here() const;

  void found_point(std::size_t position, std::string_view name);
  void found_item(std::size_t position, std::string_view item, bool wants_mean, bool wants_sd);

 private:
  std::string_view text_;
  std::size_t base_;
  FormulaReport &report_;
  std::size_t at_ = 0;
  bool failed_ = false;
};

}  // namespace app::check
