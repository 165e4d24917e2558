#include "apps/ceph/check_formula.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "apps/common/names.h"
#include "tool/framework/text/cp932.h"

namespace app::check {
namespace {

constexpr std::size_t max_entries = 99;  // of the engine's value table
constexpr std::size_t max_name_bytes = 99;
constexpr std::size_t max_number_bytes = 19;
constexpr int max_depth = 100;

struct MeasurementRule {
  std::string_view word;
  std::size_t points;
  bool has_precision;
};
constexpr std::array<MeasurementRule, 7> measurements{{
    {"len", 2, false},
    {"lenR", 2, false},
    {"lenD", 2, false},
    {"angle1", 3, false},
    {"angle2", 4, false},
    {"angle3", 3, true},
    {"angle4", 4, true},
}};

struct ReferenceRule {
  std::string_view word;
  bool wants_mean;
  bool wants_sd;
};
constexpr std::array<ReferenceRule, 4> references{{
    {"case", false, false},
    {"sdu", true, true},
    {"mean", true, false},
    {"sdv", false, true},
}};

enum class Number { none, optional_whole, required };
struct ConstructionRule {
  std::string_view word;
  std::size_t points;
  Number number;
};
constexpr std::array<ConstructionRule, 5> constructions{{
    {"mid", 2, Number::none},
    {"vertical", 3, Number::none},
    {"cross", 4, Number::none},
    {"AngleBisector", 3, Number::optional_whole},
    {"extension", 2, Number::required},
}};

constexpr std::array<std::string_view, 13> term_words{"len",    "lenR",   "lenD",  "angle1", "angle2",
                                                      "angle3", "angle4", "Model", "case",   "sdu",
                                                      "mean",   "sdv",    "switch"};
constexpr std::array<std::string_view, 6> construction_words{"mid",           "vertical",  "cross",
                                                             "AngleBisector", "extension", "EffectiveA"};
constexpr std::array<std::string_view, 16> model_tokens{
    "([UCAW])", "([UCAL])", "([LCAW])", "([LCAL])", "([UBAW])", "([UBAL])", "([LBAW])", "([LBAL])",
    "([UATW])", "([UTTW])", "([LATW])", "([LTTW])", "([ATR])",  "([TTR])",  "([PLTU])", "([PLTL])"};
constexpr std::array<std::string_view, 12> tooth_tokens{"([U1])", "([U2])", "([U3])", "([U4])",
                                                        "([U5])", "([U6])", "([L1])", "([L2])",
                                                        "([L3])", "([L4])", "([L5])", "([L6])"};

constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool is_word_character(char c) {
  return is_letter(c) || is_digit(c) || c == '_';
}

template <typename Rules>
auto find_rule(const Rules &rules, std::string_view word) {
  const auto found = std::find_if(rules.begin(), rules.end(), [&](const auto &r) { return r.word == word; });
  return found == rules.end() ? nullptr : &*found;
}

bool holds(std::span<const std::string_view> words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

std::string shown(std::string_view cp932) {
  return in_quotes(framework::utf8_for_display(cp932));
}

std::string count_of(std::size_t count, const char *noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// Recursive descent over one expression. The first fault of the grammar ends the reading; faults of meaning
/// (an unknown word, a wrong number of points) do not.
class Reader {
 public:
  Reader(std::string_view text, std::size_t base, analysis::RecordKind kind, FormulaReport &report)
      : text_(text), base_(base), kind_(kind), report_(report) {}

  /// The whole text as one expression.
  void read_expression_alone() {
    expression();
    expect_end();
    check_table();
    if (!failed_ && !seen_term_ && entries_ == 0)
      problem(0, Severity::warning, "a number without any term or operator counts as 0");
  }

  /// "switch(...)" as the whole text; the number of its conditions.
  std::size_t read_choice() {
    const std::size_t open = open_parenthesis("switch");
    std::size_t conditions = 0;
    while (!failed_) {
      expression();
      ++conditions;
      if (!take(',')) break;
    }
    close_parenthesis(open);
    if (!failed_ && !at_end())
      fail("a switch must be the whole formula; arithmetic around it is not possible");
    ++entries_;
    check_table();
    return conditions;
  }

  /// Skips the word when the text starts with it.
  bool starts_with_word(std::string_view word) {
    skip_blanks();
    if (peek_word() != word) return false;
    at_ += word.size();
    return true;
  }

 private:
  // Characters
  // ---------------------------------------------------------------------------------------------------
  void skip_blanks() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
  }
  bool at_end() {
    skip_blanks();
    return at_ >= text_.size();
  }
  char peek() { return at_end() ? '\0' : text_[at_]; }
  bool take(char c) {
    if (failed_ || at_end() || text_[at_] != c) return false;
    ++at_;
    return true;
  }
  std::string_view peek_word() const {
    std::size_t end = at_;
    while (end < text_.size() && is_word_character(text_[end])) ++end;
    return text_.substr(at_, end - at_);
  }

  // Problems
  // ---------------------------------------------------------------------------------------------------
  void problem(std::size_t position, Severity severity, std::string message) {
    report_.problems.push_back({base_ + position, severity, std::move(message)});
  }
  void fail_at(std::size_t position, std::string message) {
    if (!failed_) problem(position, Severity::error, std::move(message));
    failed_ = true;
  }
  void fail(std::string message) { fail_at(at_, std::move(message)); }

  std::string character_here() const {
    const std::size_t end = framework::next_character(text_, at_);
    return shown(text_.substr(at_, end - at_));
  }

  void expect_end() {
    if (failed_ || at_end()) return;
    if (text_[at_] == ')') return fail("this ')' closes nothing");
    if (text_[at_] == ',') return fail("a comma can only stand between arguments");
    fail("the formula ends before " + shown(text_.substr(at_)) +
         "; an operator is missing or the text is too much");
  }

  void check_table() {
    if (failed_) return;
    if (entries_ > max_entries)
      problem(0, Severity::error,
              count_of(entries_, "term") + " and operations; only " + std::to_string(max_entries) +
                  " are evaluated: move a part into an item of its own and use case(\"...\")");
    if (highest_variable_ > entries_)
      problem(variable_position_, Severity::warning,
              "variable d" + std::to_string(highest_variable_) + " is never set; the formula makes only " +
                  count_of(entries_, "entry value"));
  }

  std::size_t open_parenthesis(std::string_view word) {
    const std::size_t open = at_;
    if (!take('(')) fail("'(' must follow " + in_quotes(word));
    return open;
  }
  void close_parenthesis(std::size_t open) {
    if (failed_ || take(')')) return;
    if (at_end()) return fail_at(open, "this '(' is never closed");
    fail("')' or ',' is expected here, not " + character_here());
  }

  // Expressions
  // ---------------------------------------------------------------------------------------------------
  void expression() {
    if (++depth_ > max_depth) return fail("nested too deeply");
    sum();
    while (!failed_ && (peek() == '<' || peek() == '>' || peek() == '=')) {
      ++at_;
      if (at_ < text_.size() && text_[at_] == '=') ++at_;
      ++entries_;
      sum();
    }
    --depth_;
  }

  void sum() {
    if (take('-') || take('+')) ++entries_;  // a leading sign takes 0 as its left operand
    product();
    while (!failed_ && (peek() == '+' || peek() == '-')) {
      ++at_;
      ++entries_;
      product();
    }
  }

  void product() {
    operand();
    while (!failed_ && (peek() == '*' || peek() == '/')) {
      ++at_;
      ++entries_;
      operand();
    }
  }

  void operand() {
    if (failed_) return;
    const char c = peek();
    if (c == '(') return group();
    if (is_digit(c) || c == '.') return number();
    if (is_letter(c)) return word();
    if (c == '\0' || c == ')' || c == ',') return fail("an operand is missing here");
    if (c == '-' || c == '+') return fail("a sign cannot follow an operator: operands are unsigned");
    if (c == '[') return fail("a point stands where a measurement is expected, such as len([S],[N])");
    if (c == '"') return fail("a text stands where a measurement is expected, such as case(\"SNA\")");
    fail("unexpected character " + character_here());
  }

  void group() {
    const std::size_t open = at_++;
    if (group_depth_ > 0)
      problem(
          open, Severity::warning,
          "a group inside a group: a group ends at its first ')'; put the inner one into an item of its own");
    ++group_depth_;
    expression();
    --group_depth_;
    close_parenthesis(open);
  }

  void number() {
    const std::size_t start = at_;
    while (at_ < text_.size() && (is_digit(text_[at_]) || text_[at_] == '.')) ++at_;
    const std::string_view written = text_.substr(start, at_ - start);
    if (!is_plain_number(written)) fail_at(start, in_quotes(written) + " is not a number");
  }

  void word() {
    const std::size_t start = at_;
    const std::string_view name = peek_word();
    at_ += name.size();
    if (name.size() == 3 && name[0] == 'd' && is_digit(name[1]) && is_digit(name[2]))
      return variable(start, name);
    seen_term_ = true;
    ++entries_;
    if (const auto *rule = find_rule(measurements, name)) return measurement(*rule, start);
    if (const auto *rule = find_rule(references, name)) return reference(*rule);
    if (name == "Model") return model_term(start);
    if (name == "switch") return fail_at(start, "a switch must be the whole formula");
    unknown_word(start, name, term_words, "a measurement or reference");
  }

  void variable(std::size_t start, std::string_view name) {
    const auto index = static_cast<std::size_t>((name[1] - '0') * 10 + (name[2] - '0'));
    seen_term_ = true;
    if (index < 1) return problem(start, Severity::error, "variables are numbered from d01");
    if (index <= highest_variable_) return;
    highest_variable_ = index;
    variable_position_ = start;
  }

  /// Reports a word that is none of `known` and skips its arguments.
  void unknown_word(std::size_t start, std::string_view name, std::span<const std::string_view> known,
                    const char *wanted) {
    const bool other_kind = holds(term_words, name) || holds(construction_words, name);
    problem(start, Severity::error,
            in_quotes(name) + (other_kind ? " is not " + std::string(wanted) + ": " : " is unknown: ") +
                suggest(name, known));
    if (peek() != '(') return;
    const std::size_t open = at_;
    int level = 0;
    bool in_quotes = false;
    for (; at_ < text_.size(); ++at_) {
      if (text_[at_] == '"') in_quotes = !in_quotes;
      if (in_quotes) continue;
      if (text_[at_] == '(') ++level;
      if (text_[at_] == ')' && --level == 0) break;
    }
    close_parenthesis(open);
  }

  // Terms
  // ---------------------------------------------------------------------------------------------------
  void measurement(const MeasurementRule &rule, std::size_t start) {
    const std::size_t open = open_parenthesis(rule.word);
    if (rule.has_precision && !failed_) precision(rule.word);
    std::size_t points = 0;
    while (!failed_) {
      point();
      ++points;
      if (!take(',')) break;
    }
    close_parenthesis(open);
    if (!failed_ && points != rule.points)
      problem(start, Severity::error,
              in_quotes(rule.word) + " takes " + count_of(rule.points, "point") + ", not " +
                  std::to_string(points));
  }

  void precision(std::string_view word) {
    const bool fits = at_ + 1 < text_.size() && is_digit(text_[at_]) && text_[at_ + 1] == ',';
    if (!fits) return fail(in_quotes(word) + " starts with one digit (0, 1, 2 or 9) and a comma");
    if (std::string_view("0129").find(text_[at_]) == std::string_view::npos)
      problem(at_, Severity::warning,
              "precision " + std::string(1, text_[at_]) + " means two decimals: write 2");
    at_ += 2;
  }

  void reference(const ReferenceRule &rule) {
    const std::size_t open = open_parenthesis(rule.word);
    if (failed_) return;
    if (!take('"')) return fail(in_quotes(rule.word) + " takes an item text in double quotes");
    const std::size_t start = at_;
    const std::size_t end = text_.find('"', start);
    if (end == std::string_view::npos) return fail_at(start - 1, "this quote is never closed");
    const std::string_view item = text_.substr(start, end - start);
    if (item.empty()) problem(start, Severity::error, "the item text is empty");
    report_.items.push_back({base_ + start, item, rule.wants_mean, rule.wants_sd});
    at_ = end + 1;
    close_parenthesis(open);
  }

  void model_term(std::size_t start) {
    if (kind_ != analysis::RecordKind::model)
      problem(start, Severity::error, "\"Model\" measures dental casts; here it always gives 0");
    token(model_tokens);
  }

  void token(std::span<const std::string_view> known) {
    const std::size_t end = text_.find(')', at_);
    const std::string_view written = text_.substr(at_, end == std::string_view::npos ? end : end + 1 - at_);
    if (!holds(known, written))
      return fail(shown(written) + " is no cast measurement: " + suggest(written, known));
    at_ += written.size();
  }

 public:
  /// The rest of a tooth row after "ModelRL".
  void read_tooth_row() {
    if (kind_ != analysis::RecordKind::model)
      problem(0, Severity::error, "\"ModelRL\" measures dental casts; here it always gives 0");
    token(tooth_tokens);
    expect_end();
  }

 private:
  // Points
  // ---------------------------------------------------------------------------------------------------
  void point() {
    if (failed_) return;
    if (++depth_ > max_depth) return fail("nested too deeply");
    const char c = peek();
    if (c == '[')
      named_point();
    else if (is_letter(c))
      construction();
    else
      fail("a point is expected here: [name], or a construction such as mid([A],[B])");
    --depth_;
  }

  void named_point() {
    const std::size_t start = ++at_;
    const std::size_t end = text_.find(']', start);
    if (end == std::string_view::npos) return fail_at(start - 1, "this '[' is never closed");
    const std::string_view name = text_.substr(start, end - start);
    if (name.empty()) problem(start, Severity::error, "the point has no name");
    if (name.find_first_of("[,") != std::string_view::npos)
      problem(start, Severity::error, shown(name) + " is no point name; a ']' seems to be missing");
    if (name.size() > max_name_bytes) problem(start, Severity::error, "a point name holds at most 99 bytes");
    const bool sound =
        !name.empty() && name.size() <= max_name_bytes && name.find_first_of("[,") == std::string_view::npos;
    if (sound) report_.points.push_back({base_ + start, name});
    at_ = end + 1;
  }

  void construction() {
    const std::size_t start = at_;
    const std::string_view name = peek_word();
    at_ += name.size();
    if (name == "EffectiveA") return effective_a(start);
    const auto *rule = find_rule(constructions, name);
    if (!rule) return unknown_word(start, name, construction_words, "a point");
    const std::size_t open = open_parenthesis(name);
    std::size_t points = 0;
    std::size_t numbers = 0;
    while (!failed_) {
      if (starts_number()) {
        construction_number(*rule);
        ++numbers;
        break;  // a number is the last argument
      }
      point();
      ++points;
      if (!take(',')) break;
    }
    close_parenthesis(open);
    if (!failed_) check_arguments(*rule, start, points, numbers);
  }

  bool starts_number() {
    const char c = peek();
    return is_digit(c) || c == '.' || c == '-' || c == '+';
  }

  void construction_number(const ConstructionRule &rule) {
    const std::size_t start = at_;
    const std::size_t end = std::min(text_.find_first_of(",)", start), text_.size());
    const std::string_view written = trimmed(text_.substr(start, end - start));
    at_ = end;
    if (!is_plain_number(written)) return fail_at(start, shown(written) + " is not a number");
    if (written.size() > max_number_bytes)
      problem(start, Severity::error, "only the first 19 characters of this number are read");
    if (rule.number == Number::optional_whole && written.find('.') != std::string_view::npos)
      problem(start, Severity::warning, "a length in whole pixels; the fractional part is dropped");
  }

  void check_arguments(const ConstructionRule &rule, std::size_t start, std::size_t points,
                       std::size_t numbers) {
    if (points != rule.points)
      problem(start, Severity::error,
              in_quotes(rule.word) + " takes " + count_of(rule.points, "point") + ", not " +
                  std::to_string(points));
    else if (rule.number == Number::required && numbers == 0)
      problem(start, Severity::error, in_quotes(rule.word) + " ends with a distance in millimetres");
    else if (rule.number == Number::none && numbers > 0)
      problem(start, Severity::error, in_quotes(rule.word) + " takes no number");
  }

  void effective_a(std::size_t start) {
    const std::size_t open = open_parenthesis("EffectiveA");
    if (failed_) return;
    at_ = std::min(text_.find(')', at_), text_.size());
    close_parenthesis(open);
    if (!failed_ && kind_ != analysis::RecordKind::lateral)
      problem(start, Severity::error, "\"EffectiveA\" exists on lateral films only");
  }

  std::string_view text_;
  std::size_t base_;  // of text_ in the caller's formula
  analysis::RecordKind kind_;
  FormulaReport &report_;
  std::size_t at_ = 0;
  bool failed_ = false;
  bool seen_term_ = false;
  std::size_t entries_ = 0;  // of the value table: terms and operations
  std::size_t highest_variable_ = 0;
  std::size_t variable_position_ = 0;
  int depth_ = 0;
  int group_depth_ = 0;
};

void add(FormulaReport &report, std::size_t position, Severity severity, std::string message) {
  report.problems.push_back({position, severity, std::move(message)});
}

/// Checks the kind suffix and returns the formula before it.
std::string_view check_kind_suffix(std::string_view formula, FormulaReport &report) {
  const std::size_t colon = formula.find(':');
  if (colon == std::string_view::npos) return formula;
  const std::string_view rest = formula.substr(colon + 1);
  const std::string_view digits = trimmed(rest);
  const auto quotes = std::count(formula.begin(), formula.begin() + static_cast<std::ptrdiff_t>(colon), '"');
  if (quotes % 2 != 0) {
    add(report, colon, Severity::error,
        "a ':' inside quotes begins the kind suffix; choose a text without it");
    return {};
  }
  if (rest.find(':') != std::string_view::npos)
    add(report, colon + 1 + rest.find(':'), Severity::error,
        "a second ':'; one kind suffix ends the formula");
  else if (digits.empty())
    add(report, colon, Severity::warning, "the kind suffix is empty and reads as 0, a length");
  else if (!std::all_of(digits.begin(), digits.end(), is_digit))
    add(report, colon + 1, Severity::error,
        "the kind suffix " + shown(digits) + " is not a whole number, such as 1 for an angle");
  return formula.substr(0, colon);
}

/// Checks separator and number of decimals of a norm formula and returns the formula before them.
std::string_view check_norm_ending(std::string_view formula, FormulaReport &report) {
  if (formula.size() < 3) {
    add(report, 0, Severity::error, shown(formula) + " is neither a number nor a formula");
    return {};
  }
  const std::size_t separator = formula.size() - 2;
  const char c = formula[separator];
  const bool part_of_formula =
      is_word_character(c) || std::string_view("+-*/()[]\".").find(c) != std::string_view::npos;
  if (!is_digit(formula.back()) || part_of_formula) {
    add(report, formula.size() - 1, Severity::error,
        "a norm formula ends with a separator and its number of decimals, such as |1");
    return {};
  }
  return formula.substr(0, separator);
}

void check_text_alternative(std::string_view text, std::size_t position, FormulaReport &report) {
  const std::string_view inner = trimmed(text);
  const auto quotes = std::count(inner.begin(), inner.end(), '"');
  if (quotes % 2 != 0)
    add(report, position + text.find('"'), Severity::error, "this quote is never closed");
  else if (quotes != 2 || inner.front() != '"' || inner.back() != '"')
    add(report, position, Severity::error,
        "an alternative with a quote is shown as text, not evaluated: use an item of its own for the "
        "reference");
}

void check_alternatives(std::string_view formula, std::size_t first_separator, std::size_t conditions,
                        analysis::RecordKind kind, FormulaReport &report) {
  std::size_t start = first_separator + 1;
  for (bool more = true; more; ++report.alternative_count) {
    const std::size_t end = std::min(formula.find(';', start), formula.size());
    const std::string_view text = formula.substr(start, end - start);
    if (text.find('"') != std::string_view::npos)
      check_text_alternative(text, start, report);
    else if (trimmed(text).empty())
      add(report, start, Severity::warning, "an empty alternative counts as 0");
    else
      Reader(text, start, kind, report).read_expression_alone();
    if (report.alternative_count == conditions + 1)
      add(report, start, Severity::warning,
          "never chosen: " + count_of(conditions, "condition") + " need " + std::to_string(conditions + 1) +
              " alternatives");
    more = end < formula.size();
    start = end + 1;
  }
  if (report.alternative_count <= conditions)
    add(report, first_separator, Severity::warning,
        count_of(conditions, "condition") + " need " + std::to_string(conditions + 1) +
            " alternatives (the last for \"none holds\"), not " + std::to_string(report.alternative_count));
}

void check_head(std::string_view formula, FormulaPlace place, analysis::RecordKind kind,
                FormulaReport &report) {
  const std::size_t end = std::min(formula.find(';'), formula.size());
  const std::string_view head = formula.substr(0, end);
  const bool has_rest = end < formula.size();
  if (std::count(head.begin(), head.end(), '"') % 2 != 0 && has_rest) {
    add(report, end, Severity::error, "a ';' inside quotes ends the formula; choose a text without it");
    return;
  }
  Reader reader(head, 0, kind, report);
  if (place == FormulaPlace::item && reader.starts_with_word("switch")) {
    report.is_choice = true;
    const std::size_t conditions = reader.read_choice();
    if (has_rest) check_alternatives(formula, end, conditions, kind, report);
    return;
  }
  if (place == FormulaPlace::item && reader.starts_with_word("ModelRL")) {
    reader.read_tooth_row();
  } else {
    reader.read_expression_alone();
  }
  if (has_rest)
    add(report, end, Severity::warning, "the text after ';' is ignored: only a switch has alternatives");
}

}  // namespace

bool is_plain_number(std::string_view text) {
  text = trimmed(text);
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  const auto points = std::count(text.begin(), text.end(), '.');
  const auto digits = std::count_if(text.begin(), text.end(), is_digit);
  return digits > 0 && points <= 1 && static_cast<std::size_t>(digits + points) == text.size();
}

FormulaReport check_formula(std::string_view formula, analysis::RecordKind kind, FormulaPlace place) {
  FormulaReport report;
  if (place == FormulaPlace::item) formula = check_kind_suffix(formula, report);
  if (place == FormulaPlace::norm) formula = check_norm_ending(formula, report);
  if (trimmed(formula).empty()) return report;
  check_head(formula, place, kind, report);
  std::stable_sort(report.problems.begin(), report.problems.end(),
                   [](const auto &a, const auto &b) { return a.position < b.position; });
  return report;
}

}  // namespace app::check
