#include "apps/ceph/analysis_report.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "tool/analysis/definition_folder.h"
#include "tool/analysis/evaluation.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

using analysis::LineClass;

std::string utf8(std::string_view cp932) {
  return framework::utf8_for_display(cp932);
}

std::string signed_decimal(double value) {
  std::array<char, 400> text{};
  const bool zero = std::abs(value) < 0.05;
  std::snprintf(text.data(), text.size(), zero ? "%.1f" : "%+.1f", zero ? 0.0 : value);
  return text.data();
}

/// In SD units; empty where the row has no norm, or a number that is none.
std::optional<double> deviation(const analysis::TableRow &row) {
  if (row.reason || !row.number || !row.mean_number || !row.sd_number || *row.sd_number == 0.0)
    return std::nullopt;
  const double units = (*row.number - *row.mean_number) / *row.sd_number;
  return std::isfinite(units) ? std::optional(units) : std::nullopt;
}

Cell plain(const std::string &cp932, std::optional<double> number = {}) {
  return {utf8(cp932), number};
}

Row table_row(const analysis::TableRow &row, bool with_second_value) {
  if (row.heading) return {true, {plain(row.item)}, {}};
  const std::optional<double> units = deviation(row);
  const Tone tone = units ? tone_of_deviation(*units) : Tone::plain;
  // The chart of a row grows to the right when bit 0 of its display flag is set.
  const bool mirrored = row.display_flag && (*row.display_flag & 1) == 0;
  Row result;
  result.cells = {plain(row.item), plain(row.mean, row.mean_number), plain(row.sd, row.sd_number),
                  plain(row.value, row.number)};
  result.cells.back().tone = tone;
  result.cells.back().spans = !row.number && !row.value.empty() && row.second_value.empty();
  if (with_second_value) result.cells.push_back(plain(row.second_value));
  result.cells.push_back({units ? signed_decimal(*units) : "", units, tone});
  result.cells.push_back({units ? signed_decimal(*units) : "", units, tone, true, mirrored});
  if (row.reason) result.reason = reason_text(*row.reason);
  return result;
}

/// The formula of a diagnosis line; empty for plain text.
std::string_view diagnosis_formula(const analysis::Line &line) {
  if (line.block != LineClass::diag || line.own != LineClass::content) return {};
  const std::size_t end = line.text.find('=');
  return end == std::string_view::npos ? std::string_view() : line.text.substr(0, end);
}

struct Filtered {
  std::string text;                  // of the file without the lines that the tracing cannot bear
  std::vector<std::string> reasons;  // why, each once
};

Filtered without_unbearable_lines(const analysis::Analysis &analysis, const analysis::Tracing &tracing,
                                  const analysis::Patient &patient) {
  Filtered result;
  for (const analysis::Line &line : analysis.file().lines()) {
    const std::string_view formula = diagnosis_formula(line);
    if (!formula.empty()) {
      const analysis::Measured value = analysis::evaluate_formula(formula, tracing, patient, &analysis);
      if (value.reason) {
        const std::string reason = reason_text(*value.reason);
        if (std::find(result.reasons.begin(), result.reasons.end(), reason) == result.reasons.end())
          result.reasons.push_back(reason);
        continue;
      }
    }
    result.text.append(line.text).append("\r\n");
  }
  return result;
}

}  // namespace

std::string reason_text(const analysis::Reason &reason) {
  return utf8(analysis::describe(reason));
}

Table analysis_table(std::span<const analysis::TableRow> rows, bool with_second_value) {
  Table table;
  table.key = "analyses";
  table.columns = {{"item", "Measurement"},
                   {"mean", "Norm", Align::right},
                   {"sd", "SD", Align::right},
                   {"value", with_second_value ? "Value, left" : "Value", Align::right}};
  if (with_second_value) table.columns.push_back({"second_value", "Right", Align::right});
  table.columns.push_back({"deviation", "Dev.", Align::right});
  table.columns.push_back({"bar", "-3 to +3 SD", Align::left, Audience::shown});
  table.value_column = 3;
  for (const analysis::TableRow &row : rows) table.rows.push_back(table_row(row, with_second_value));
  return table;
}

Table analysis_table(const LoadedAnalysis &one, const TracingFile &file, const PatientContext &context,
                     int precision) {
  const analysis::DefinitionFile &definition = one.analysis.file();
  const auto rows = analysis::result_table(one.analysis, file.tracing(one.analysis.mode()),
                                           context.for_norms(definition), precision);
  const bool tooth_rows =
      std::any_of(rows.begin(), rows.end(), [](const auto &row) { return !row.second_value.empty(); });
  Table table = analysis_table(rows, tooth_rows);
  table.title = one.title;
  table.comment = utf8(definition.comment());
  if (!table.comment.empty()) table.comment += '\n';
  table.comment += "Norms: " + context.norms(definition);
  return table;
}

std::vector<Fact> growth_facts(std::span<const LoadedAnalysis> analyses, const TracingFile &file,
                               const PatientContext &context) {
  for (const LoadedAnalysis &one : analyses) {
    auto facts = context.stage_facts(one.analysis.file());
    if (!facts.empty()) return facts;
  }
  if (file.kind() != analysis::RecordKind::lateral) return {};
  const auto norm_file = analysis::Analysis::load(analysis::Mode::lateral, analysis::lateral_norm_file);
  return norm_file ? context.stage_facts(norm_file->file()) : std::vector<Fact>();
}

std::string joined(const std::vector<std::string> &reasons) {
  std::string text;
  for (const std::string &reason : reasons) text += (text.empty() ? "" : "; ") + reason;
  return text;
}

Diagnosis diagnose(std::span<const LoadedAnalysis> files, const TracingFile &file,
                   const PatientContext &context) {
  Diagnosis result;
  for (const LoadedAnalysis &one : files) {
    const auto mode = one.analysis.mode();
    const analysis::Tracing tracing = file.tracing(mode);
    const analysis::Patient patient = context.for_norms(one.analysis.file());
    Filtered filtered = without_unbearable_lines(one.analysis, tracing, patient);
    const analysis::Analysis bearable(analysis::DefinitionFile(std::move(filtered.text)), mode);
    for (const std::string &sentence : analysis::diagnosis(bearable, tracing, patient))
      if (!sentence.empty()) result.sentences.push_back(utf8(sentence));
    for (std::string &reason : filtered.reasons) result.left_out.push_back(std::move(reason));
  }
  return result;
}

}  // namespace app
