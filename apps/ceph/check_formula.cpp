#include "apps/ceph/check_formula.h"

#include <algorithm>

#include "apps/ceph/check_formula_expression.h"
#include "apps/ceph/check_formula_scanner.h"
#include "apps/ceph/check_source.h"

namespace app::check {
namespace {

void add(FormulaReport &report, std::size_t position, Severity severity, std::string message) {
  report.problems.push_back({position, severity, std::move(message)});
}

/// Checks the kind suffix and returns the formula before it.
std::string_view check_kind_suffix(std::string_view formula, FormulaReport &report) {
  const std::size_t colon = formula.find(':');
  if (colon == std::string_view::npos) return formula;
  const std::string_view rest = formula.substr(colon + 1);
  const std::string_view digits = trim(rest);
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
        "the kind suffix " + show(digits) + " is not a whole number, such as 1 for an angle");
  return formula.substr(0, colon);
}

/// Checks separator and number of decimals of a norm formula and returns the formula before them.
std::string_view check_norm_ending(std::string_view formula, FormulaReport &report) {
  if (formula.size() < 3) {
    add(report, 0, Severity::error, show(formula) + " is neither a number nor a formula");
    return {};
  }
  const std::size_t separator = formula.size() - 2;
  const char c = formula[separator];
  const bool part_of_formula =
      is_word_character(c) || std::string_view("+-*/()[]\".").find(c) != std::string_view::npos;
  if (!is_digit(formula.back()) || part_of_formula) {
    add(report, separator, Severity::error,
        "a norm formula ends with a separator and its number of decimals, such as |1");
    return {};
  }
  return formula.substr(0, separator);
}

void check_text_alternative(std::string_view text, std::size_t position, FormulaReport &report) {
  const std::string_view inner = trim(text);
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
    else if (trim(text).empty())
      add(report, start, Severity::warning, "an empty alternative counts as 0");
    else
      ExpressionReader(text, start, kind, report).read_alone();
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
  ExpressionReader reader(head, 0, kind, report);
  if (place == FormulaPlace::item && reader.take_word("switch")) {
    report.is_choice = true;
    const std::size_t conditions = reader.read_choice();
    if (has_rest) check_alternatives(formula, end, conditions, kind, report);
    return;
  }
  if (place == FormulaPlace::item && reader.take_word("ModelRL")) {
    reader.read_tooth_row();
  } else {
    reader.read_alone();
  }
  if (has_rest)
    add(report, end, Severity::warning, "the text after ';' is ignored: only a switch has alternatives");
}

}  // namespace

bool is_plain_number(std::string_view text) {
  text = trim(text);
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  const auto points = std::count(text.begin(), text.end(), '.');
  const auto digits = std::count_if(text.begin(), text.end(), is_digit);
  return digits > 0 && points <= 1 && static_cast<std::size_t>(digits + points) == text.size();
}

FormulaReport check_formula(std::string_view formula, analysis::RecordKind kind, FormulaPlace place) {
  FormulaReport report;
  if (place == FormulaPlace::item) formula = check_kind_suffix(formula, report);
  if (place == FormulaPlace::norm) formula = check_norm_ending(formula, report);
  if (trim(formula).empty()) return report;
  check_head(formula, place, kind, report);
  std::stable_sort(report.problems.begin(), report.problems.end(),
                   [](const auto &a, const auto &b) { return a.position < b.position; });
  return report;
}

}  // namespace app::check
