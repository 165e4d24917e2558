#include "apps/ceph/check_formula_scanner.h"

#include "apps/ceph/check_source.h"
#include "apps/common/names.h"
#include "tool/framework/text/cp932.h"

namespace app::check {

std::string count_of(std::size_t count, const char *noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

// Characters
// -----------------------------------------------------------------------------------------------------

bool FormulaScanner::at_end() {
  while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
  return at_ >= text_.size();
}

char FormulaScanner::peek() {
  return at_end() ? '\0' : text_[at_];
}

bool FormulaScanner::take(char c) {
  if (failed_ || at_end() || text_[at_] != c) return false;
  ++at_;
  return true;
}

std::string_view FormulaScanner::peek_word() const {
  std::size_t end = at_;
  while (end < text_.size() && is_word_character(text_[end])) ++end;
  return text_.substr(at_, end - at_);
}

std::string_view FormulaScanner::take_word() {
  const std::string_view word = peek_word();
  at_ += word.size();
  return word;
}

std::size_t FormulaScanner::open_parenthesis(std::string_view word) {
  const std::size_t open = at_;
  if (!take('(')) fail("'(' must follow " + in_quotes(word));
  return open;
}

void FormulaScanner::close_parenthesis(std::size_t open) {
  if (failed_ || take(')')) return;
  if (at_end()) return fail_at(open, "this '(' is never closed");
  fail("')' or ',' is expected here, not " + character_here());
}

void FormulaScanner::skip_arguments() {
  if (peek() != '(') return;
  const std::size_t open = at_;
  int level = 0;
  bool quoted = false;
  for (; at_ < text_.size(); ++at_) {
    if (text_[at_] == '"') quoted = !quoted;
    if (quoted) continue;
    if (text_[at_] == '(') ++level;
    if (text_[at_] == ')' && --level == 0) break;
  }
  close_parenthesis(open);
}

void FormulaScanner::expect_end() {
  if (failed_ || at_end()) return;
  if (text_[at_] == ')') return fail("this ')' closes nothing");
  if (text_[at_] == ',') return fail("a comma can only stand between arguments");
  fail("the formula ends before " + show(rest()) + "; an operator is missing or the text is too much");
}

// Findings
// -----------------------------------------------------------------------------------------------------

void FormulaScanner::problem(std::size_t position, Severity severity, std::string message) {
  report_.problems.push_back({base_ + position, severity, std::move(message)});
}

void FormulaScanner::fail_at(std::size_t position, std::string message) {
  if (!failed_) problem(position, Severity::error, std::move(message));
  failed_ = true;
}

std::string FormulaScanner::character_here() const {
  return show(text_.substr(at_, framework::next_character(text_, at_) - at_));
}

void FormulaScanner::found_point(std::size_t position, std::string_view name) {
  report_.points.push_back({base_ + position, name});
}

void FormulaScanner::found_item(std::size_t position, std::string_view item, bool wants_mean, bool wants_sd) {
  report_.items.push_back({base_ + position, item, wants_mean, wants_sd});
}

}  // namespace app::check
