// Diagnosis sentences: a value is put into one of seven categories by six thresholds, and the category picks
// a label and one of three texts.

#include <array>
#include <cmath>

#include "tool/analysis/evaluator.h"
#include "tool/analysis/formula_compiler.h"
#include "tool/analysis/result_table.h"
#include "tool/env/text.h"
#include "tool/framework/text/decimal.h"

namespace analysis {
namespace {

constexpr std::string_view join_marker = "[NEXT]";
constexpr std::string_view row_marker = "[ENTER]";
constexpr std::string_view label_last_marker = "[BOTTOM]";
constexpr std::size_t threshold_count = 6;
constexpr std::size_t label_count = threshold_count + 1;
constexpr std::size_t max_plain_bytes = 50;

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  std::size_t begin = 0;
  while (true) {
    const std::size_t end = text.find(separator, begin);
    parts.push_back(text.substr(begin, end - begin));
    if (end == std::string_view::npos) return parts;
    begin = end + 1;
  }
}

/// The thresholds and labels of a "Param:" line.
struct Categories {
  std::vector<double> thresholds;
  std::vector<std::string_view> labels;

  bool usable() const { return thresholds.size() >= threshold_count; }
  /// 0 to 6; a value equal to the last threshold belongs to the highest category but has no label.
  std::size_t category(double value) const {
    for (std::size_t i = 0; i < threshold_count; ++i) {
      if (value < thresholds[i]) return i;
    }
    return threshold_count;
  }
  std::string_view label(double value) const {
    const std::size_t index = category(value);
    if (index == threshold_count && !(value > thresholds.back())) return {};
    return index < labels.size() ? labels[index] : std::string_view();
  }
};

Categories read_categories(std::string_view line) {
  Categories categories;
  const std::size_t colon = line.find(':');
  for (const std::string_view part : split(line.substr(0, colon), ';')) {
    if (categories.thresholds.size() < threshold_count && !part.empty()) {
      categories.thresholds.push_back(framework::decimal_value(part));
    }
  }
  if (colon != std::string_view::npos) categories.labels = split(line.substr(colon + 1), ';');
  if (categories.labels.size() > label_count) categories.labels.resize(label_count);
  return categories;
}

/// The fields behind the '=' of a formula line; missing ones are empty.
struct Wording {
  enum Field { name, low, middle, high, tail };
  std::array<std::string, 5> fields;
};

Wording read_wording(std::string_view text) {
  Wording wording;
  const std::string resolved = env::printed_without_arguments(text);
  const std::vector<std::string_view> parts = split(resolved, ';');
  for (std::size_t i = 0; i < wording.fields.size() && i < parts.size(); ++i) wording.fields[i] = parts[i];
  return wording;
}

std::string sentence(const Wording &wording, const Categories &categories, double value) {
  const std::size_t category = categories.category(value);
  const std::string &text = wording.fields[category < 3    ? Wording::low
                                           : category == 3 ? Wording::middle
                                                           : Wording::high];
  if (text.empty()) return {};
  const std::string_view label = categories.label(value);
  const bool label_last = label.substr(0, label_last_marker.size()) == label_last_marker;
  std::string piece;
  if (label_last) {
    piece.append(text).append(label.substr(label_last_marker.size()));
  } else {
    piece.append(label).append(text);
  }
  return piece += wording.fields[Wording::tail];
}

/// Collects pieces until a line does not ask to be joined with the next one.
class Sentences {
 public:
  void add(std::string_view piece) { pending_ += piece; }

  void end_line() {
    const bool joins = pending_.size() >= join_marker.size() &&
                       std::string_view(pending_).substr(pending_.size() - join_marker.size()) == join_marker;
    if (joins) {
      pending_.resize(pending_.size() - join_marker.size());
    } else {
      flush();
    }
  }

  /// Also the end of the file ends a sentence: nothing that was formed is lost.
  std::vector<std::string> take() {
    flush();
    return std::move(rows_);
  }

 private:
  void flush() {
    if (pending_.empty()) return;
    std::string_view rest = pending_;
    for (std::size_t marker = rest.find(row_marker); marker != std::string_view::npos;
         marker = rest.find(row_marker)) {
      rows_.emplace_back(rest.substr(0, marker));
      rest.remove_prefix(marker + row_marker.size());
    }
    rows_.emplace_back(rest);
    pending_.clear();
  }

  std::string pending_;
  std::vector<std::string> rows_;
};

std::string formula_line(std::string_view line, const Categories &categories, const Tracing &tracing,
                         const Patient &patient, const Analysis &analysis) {
  const std::size_t separator = line.find('=');
  const std::string_view formula = line.substr(0, separator);
  if (formula.empty() || !categories.usable()) return {};
  Program program;
  FormulaCompiler compiler(program, tracing.mode(), &analysis.compiled().by_text, false);
  const double value = Evaluator(tracing, patient, &analysis, Evaluator::Reasons::ignore)
                           .run(program, compiler.compile(formula));
  if (value == missing_value || std::isnan(value)) return {};
  return sentence(read_wording(line.substr(separator + 1)), categories, value);
}

}  // namespace

std::vector<std::string> diagnosis(const Analysis &analysis, const Tracing &tracing, const Patient &patient) {
  Sentences sentences;
  Categories categories;
  const std::span<const Line> lines = analysis.file().lines();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const Line &line = lines[i];
    if (line.own == LineClass::param && i + 1 < lines.size()) categories = read_categories(lines[i + 1].text);
    if (line.own != LineClass::content || line.block != LineClass::diag) continue;
    if (line.text.find('=') == std::string_view::npos) {
      sentences.add(line.text.substr(0, max_plain_bytes));
    } else {
      sentences.add(formula_line(line.text, categories, tracing, patient, analysis));
    }
    sentences.end_line();
  }
  return sentences.take();
}

}  // namespace analysis
