#include "apps/ceph/check_formula_expression.h"

#include "apps/ceph/check_source.h"
#include "apps/common/names.h"

namespace app::check {
namespace {

constexpr std::size_t max_entries = 99;  // of the engine's value table
constexpr int max_depth = 100;

bool is_variable(std::string_view word) {
  return word.size() == 3 && word[0] == 'd' && is_digit(word[1]) && is_digit(word[2]);
}

}  // namespace

bool ExpressionReader::take_word(std::string_view word) {
  if (scanner_.at_end() || scanner_.peek_word() != word) return false;
  scanner_.take_word();
  return true;
}

void ExpressionReader::read_alone() {
  expression();
  scanner_.expect_end();
  check_table();
  if (!scanner_.failed() && !seen_term_ && entries_ == 0)
    scanner_.problem(0, Severity::error, "a number without any term or operator counts as 0");
}

std::size_t ExpressionReader::read_choice() {
  const std::size_t open = scanner_.open_parenthesis("switch");
  std::size_t conditions = 0;
  while (!scanner_.failed()) {
    expression();
    ++conditions;
    if (!scanner_.take(',')) break;
  }
  scanner_.close_parenthesis(open);
  if (!scanner_.failed() && !scanner_.at_end())
    scanner_.fail("a switch must be the whole formula; arithmetic around it is not possible");
  ++entries_;
  check_table();
  return conditions;
}

void ExpressionReader::read_tooth_row() {
  model_term(0, "ModelRL", tooth_tokens);
  scanner_.expect_end();
}

void ExpressionReader::check_table() {
  if (scanner_.failed()) return;
  if (entries_ > max_entries)
    scanner_.problem(0, Severity::error,
                     count_of(entries_, "term") + " and operations; only " + std::to_string(max_entries) +
                         " are evaluated: move a part into an item of its own and use case(\"...\")");
  if (highest_variable_ > entries_)
    scanner_.problem(variable_position_, Severity::warning,
                     "variable d" + std::to_string(highest_variable_) +
                         " is never set; the formula makes only " + count_of(entries_, "entry value"));
}

// Operators
// -----------------------------------------------------------------------------------------------------

void ExpressionReader::expression() {
  if (++depth_ > max_depth) return scanner_.fail("nested too deeply");
  sum();
  while (scanner_.take('<') || scanner_.take('>') || scanner_.take('=')) {
    if (scanner_.rest().starts_with('=')) scanner_.skip(1);
    ++entries_;
    sum();
  }
  --depth_;
}

void ExpressionReader::sum() {
  if (scanner_.take('-') || scanner_.take('+')) ++entries_;  // a leading sign takes 0 as its left operand
  product();
  while (scanner_.take('+') || scanner_.take('-')) {
    ++entries_;
    product();
  }
}

void ExpressionReader::product() {
  operand();
  while (scanner_.take('*') || scanner_.take('/')) {
    ++entries_;
    operand();
  }
}

void ExpressionReader::operand() {
  if (scanner_.failed()) return;
  const char c = scanner_.peek();
  if (c == '(') return group();
  if (is_digit(c) || c == '.') return number();
  if (is_letter(c)) return term();
  if (c == '\0' || c == ')' || c == ',') return scanner_.fail("an operand is missing here");
  if (c == '-' || c == '+') return scanner_.fail("a sign cannot follow an operator: operands are unsigned");
  if (c == '[') return scanner_.fail("a point stands where a measurement is expected, such as len([S],[N])");
  if (c == '"') return scanner_.fail("a text stands where a measurement is expected, such as case(\"SNA\")");
  scanner_.fail("unexpected character " + scanner_.character_here());
}

void ExpressionReader::group() {
  const std::size_t open = scanner_.position();
  scanner_.skip(1);
  if (group_depth_ > 0)
    scanner_.problem(
        open, Severity::warning,
        "a group inside a group: a group ends at its first ')'; put the inner one into an item of "
        "its own");
  ++group_depth_;
  expression();
  --group_depth_;
  scanner_.close_parenthesis(open);
}

void ExpressionReader::number() {
  const std::size_t start = scanner_.position();
  const std::string_view text = scanner_.rest();
  const std::string_view written = text.substr(0, text.find_first_not_of("0123456789."));
  scanner_.skip(written.size());
  if (!is_plain_number(written)) scanner_.fail_at(start, in_quotes(written) + " is not a number");
}

// Terms
// -----------------------------------------------------------------------------------------------------

void ExpressionReader::term() {
  const std::size_t start = scanner_.position();
  const std::string_view name = scanner_.take_word();
  seen_term_ = true;
  if (is_variable(name)) return variable(start, name);
  ++entries_;
  if (const auto *rule = find_rule(measurement_rules, name)) return measurement(*rule, start);
  if (const auto *rule = find_rule(reference_rules, name)) return reference(*rule);
  if (name == "Model") return model_term(start, name, model_tokens);
  if (name == "switch") return scanner_.fail_at(start, "a switch must be the whole formula");
  report_unknown_word(scanner_, start, name, term_words, "a measurement or reference");
}

void ExpressionReader::variable(std::size_t start, std::string_view name) {
  const auto index = static_cast<std::size_t>((name[1] - '0') * 10 + (name[2] - '0'));
  if (index < 1) return scanner_.problem(start, Severity::error, "variables are numbered from d01");
  if (index <= highest_variable_) return;
  highest_variable_ = index;
  variable_position_ = start;
}

void ExpressionReader::measurement(const MeasurementRule &rule, std::size_t start) {
  const std::size_t open = scanner_.open_parenthesis(rule.word);
  if (rule.has_precision && !scanner_.failed()) precision(rule.word);
  const std::size_t found = points_.points();
  scanner_.close_parenthesis(open);
  if (!scanner_.failed() && found != rule.points)
    report_point_count(scanner_, start, rule.word, rule.points, found);
}

void ExpressionReader::precision(std::string_view word) {
  const std::string_view text = scanner_.rest();
  if (text.size() < 2 || !is_digit(text[0]) || text[1] != ',')
    return scanner_.fail(in_quotes(word) + " starts with one digit (0, 1, 2 or 9) and a comma");
  if (std::string_view("0129").find(text[0]) == std::string_view::npos)
    scanner_.problem(scanner_.position(), Severity::warning,
                     "precision " + std::string(1, text[0]) + " means two decimals: write 2");
  scanner_.skip(2);
}

void ExpressionReader::reference(const ReferenceRule &rule) {
  const std::size_t open = scanner_.open_parenthesis(rule.word);
  if (scanner_.failed()) return;
  if (!scanner_.take('"'))
    return scanner_.fail(in_quotes(rule.word) + " takes an item text in double quotes");
  const std::size_t start = scanner_.position();
  const std::size_t end = scanner_.rest().find('"');
  if (end == std::string_view::npos) return scanner_.fail_at(start - 1, "this quote is never closed");
  const std::string_view item = scanner_.rest().substr(0, end);
  if (item.empty()) scanner_.problem(start, Severity::error, "the item text is empty");
  scanner_.found_item(start, item, rule.wants_mean, rule.wants_sd);
  scanner_.skip(end + 1);
  scanner_.close_parenthesis(open);
}

/// The engine knows the token only as "([...])" without any blank.
void ExpressionReader::model_term(std::size_t start, std::string_view word,
                                  std::span<const std::string_view> tokens) {
  if (kind_ != analysis::RecordKind::model)
    scanner_.problem(start, Severity::error,
                     in_quotes(word) + " measures dental casts; here it always gives 0");
  if (!scanner_.rest().starts_with('(')) return scanner_.fail("'(' must follow " + in_quotes(word));
  const std::string_view text = scanner_.rest().substr(1);
  const std::string_view token = text.substr(0, text.find(')'));
  scanner_.skip(1);
  if (!holds(tokens, token))
    return scanner_.fail(show(token) + " is no cast measurement: " + suggest(token, tokens));
  scanner_.skip(token.size());
  scanner_.close_parenthesis(scanner_.position() - token.size() - 1);
}

}  // namespace app::check
