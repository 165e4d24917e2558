#include "apps/ceph/check_diagnosis.h"

#include <algorithm>
#include <array>
#include <string>

#include "tool/analysis/formula_scanner.h"
#include "tool/framework/text/decimal.h"

namespace app::check {
namespace {

using analysis::LineClass;

constexpr std::size_t threshold_count = 6;
constexpr std::size_t label_count = threshold_count + 1;
constexpr std::size_t field_count = 5;
constexpr std::size_t max_plain_bytes = 50;
constexpr std::array<std::string_view, 3> markers_known{"[ENTER]", "[NEXT]", "[BOTTOM]"};

bool ends_with(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

/// Position of a '%' that the engine's text formatting takes for a conversion.
std::size_t find_conversion(std::string_view text) {
  for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%', at)) {
    if (at + 1 >= text.size() || text[at + 1] != '%') return at;
    at += 2;
  }
  return std::string_view::npos;
}

}  // namespace

void DiagnosisCheck::parameters(std::size_t line) {
  if (source_.lines()[line - 1].own != LineClass::param)
    return source_.report(line, 0, Severity::warning,
                          "ignored: only the line right after \"Param:\" is read");
  seen_parameters_ = true;
  const std::string_view text = source_.lines()[line].text;
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos)
    return source_.report(line, 0, Severity::error,
                          "a parameter line is written: six thresholds, ':', seven labels, separated by ';'");
  thresholds(line, text.substr(0, colon));
  const auto labels = split(text.substr(colon + 1), ';');
  if (labels.size() != label_count)
    source_.report(line, colon + 1, Severity::error,
                   std::to_string(labels.size()) + " labels instead of " + std::to_string(label_count));
}

void DiagnosisCheck::thresholds(std::size_t line, std::string_view text) {
  const auto values = split(text, ';');
  if (values.size() != threshold_count)
    source_.report(
        line, 0, Severity::error,
        std::to_string(values.size()) + " thresholds instead of " + std::to_string(threshold_count));
  std::optional<double> last;
  for (const std::string_view value : values) {
    if (!is_plain_number(value)) {
      source_.report_at(line, value, Severity::error, show(value) + " is not a number");
      continue;
    }
    const double number = framework::decimal_value(trim(value));
    if (last && number <= *last)
      source_.report_at(line, value, Severity::warning,
                        "the thresholds do not rise; this category is never reached");
    last = number;
  }
}

void DiagnosisCheck::sentence(std::size_t line) {
  const std::string_view text = source_.lines()[line].text;
  const std::size_t separator = text.find('=');
  last_sentence_ = line;
  pending_ = ends_with(text, markers_known[1]);
  if (separator != std::string_view::npos) return rule(line, text, separator);
  if (text.size() > max_plain_bytes)
    source_.report(line, max_plain_bytes, Severity::error,
                   "only the first 50 bytes of a plain line are shown");
  markers(line, text, true);
}

void DiagnosisCheck::rule(std::size_t line, std::string_view text, std::size_t separator) {
  const std::string_view formula = text.substr(0, separator);
  const std::string_view rest = text.substr(separator + 1);
  const auto fields = split(rest, ';');
  if (!trim(formula).empty()) {
    formulas_.push_back({line, formula, check_formula(formula, kind_, FormulaPlace::diagnosis)});
    source_.report_formula(line, formula, formulas_.back().report);
    if (!seen_parameters_ && !reported_missing_parameters_)
      source_.report(line, 0, Severity::error, "no \"Param:\" line before this: no sentence is ever chosen");
    reported_missing_parameters_ = !seen_parameters_;
  }
  if (fields.size() != field_count)
    source_.report(line, separator + 1, Severity::error,
                   std::to_string(fields.size()) + " fields; a diagnosis line has " +
                       std::to_string(field_count) + ": name;low;middle;high;tail");
  if (const std::size_t at = find_conversion(rest); at != std::string_view::npos)
    source_.report(line, separator + 1 + at, Severity::error, "a percent sign is written twice: %%");
  for (std::size_t i = 1; i < std::min(fields.size(), field_count); ++i)
    markers(line, fields[i], i + 1 == field_count || fields.back().empty());
}

void DiagnosisCheck::markers(std::size_t line, std::string_view text, bool last) {
  for (std::size_t at = analysis::find_character(text, '[', 0); at != std::string_view::npos;
       at = analysis::find_character(text, '[', at + 1)) {
    const std::size_t end = analysis::find_character(text, ']', at);
    if (end == std::string_view::npos) return;
    const std::string_view marker = text.substr(at, end + 1 - at);
    const bool known = std::find(markers_known.begin(), markers_known.end(), marker) != markers_known.end();
    if (!known)
      source_.report_at(
          line, marker, Severity::warning,
          show(marker) + " is shown as it stands" + source_.did_you_mean(marker, markers_known));
    if (marker == "[NEXT]" && !(last && end + 1 == text.size()))
      source_.report_at(line, marker, Severity::warning, "[NEXT] counts only at the very end of the text");
    if (marker == "[BOTTOM]")
      source_.report_at(line, marker, Severity::warning,
                        "[BOTTOM] counts only at the start of a \"Param:\" label");
  }
}

void DiagnosisCheck::finish() {
  const auto lines = source_.lines();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].own != LineClass::param) continue;
    if (i + 1 >= lines.size() || lines[i + 1].own != LineClass::content || trim(lines[i + 1].text).empty())
      source_.report(i, 0, Severity::error, "the parameters must stand on the line right after \"Param:\"");
  }
  if (pending_) source_.report(last_sentence_, 0, Severity::warning, "ends in [NEXT] but no line follows");
}

}  // namespace app::check
