// ceph eval: a formula or a point on a tracing.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

#include "apps/ceph/analysis_report.h"
#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"
#include "apps/common/names.h"
#include "tool/analysis/evaluation.h"
#include "tool/api/CCephCalc.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

struct Options : TracingOptions {
  std::string formula;
};

/// Nine digits: what lies behind them is noise of the ten-digit pi.
std::string full_number(double value) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.9g", value);
  return text.data();
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

/// The whole text is one point in square brackets or one construction of points.
bool is_point(std::string_view text) {
  constexpr std::array<std::string_view, 6> constructions{"mid(",           "vertical(",  "cross(",
                                                          "AngleBisector(", "extension(", "EffectiveA("};
  if (text.starts_with('[')) return text.find(']') == text.size() - 1;
  const auto begins = [&](std::string_view keyword) { return text.starts_with(keyword); };
  if (std::none_of(constructions.begin(), constructions.end(), begins)) return false;
  int depth = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '(') ++depth;
    if (text[i] == ')' && --depth == 0) return i + 1 == text.size();
  }
  return false;
}

/// What formulas are evaluated with.
struct Context {
  TracingFile &file;
  analysis::Tracing tracing;
  analysis::Patient patient;
  const analysis::Analysis *references;
  std::optional<int> precision;

  std::string number(double value) const {
    return precision ? analysis::format_value(value, *precision) : full_number(value);
  }
};

CPointD point_position(std::string text, TracingFile &file) {
  unsigned short virtuals = file.virtual_count();
  unsigned short users = file.user_count();
  return CCephCalc::Calc_Point(static_cast<int>(file.mode()), text.data(), file.record_address(), &virtuals,
                               file.virtual_points.data(), &users, file.user_points.data());
}

/// The reason is that of a length between the point and itself.
Row point_row(const std::string &formula, const std::string &cp932, const Context &context) {
  const CPointD point = point_position(cp932, context.file);
  const std::string length = "len(" + cp932 + ',' + cp932 + ')';
  const auto reason = analysis::evaluate_formula(length, context.tracing, context.patient).reason;
  const std::string x = context.number(point.x), y = context.number(point.y);
  Row row{false, {{formula, {}}, {'(' + x + ", " + y + ')', {}}, {x, point.x}, {y, point.y}}, {}};
  if (reason) row.reason = reason_text(*reason);
  return row;
}

Row formula_row(const std::string &formula, std::string_view cp932, const Context &context) {
  const std::string_view bare = analysis::split_kind_suffix(cp932).formula;
  const analysis::Measured result =
      analysis::evaluate_formula(bare, context.tracing, context.patient, context.references);
  Row row{false, {{formula, {}}, {context.number(result.value), result.value}, {}, {}}, {}};
  if (result.reason)
    row.reason = reason_text(*result.reason);
  else if (result.value == analysis::missing_value)
    row.reason = "the measurement cannot be formed";
  return row;
}

Row row_of(const std::string &formula, const Context &context) {
  const auto cp932 = framework::cp932_from_utf8(formula);
  if (!cp932)
    throw CommandError(ExitCode::usage,
                       "the formula " + in_quotes(formula) + " has letters that code page 932 lacks");
  const std::string text(trimmed(*cp932));
  return is_point(text) ? point_row(formula, text, context) : formula_row(formula, text, context);
}

Table value_table(const std::string &formula, const Context &context) {
  Table table;
  table.key = "values";
  table.columns = {{"formula", "Formula"}, {"value", "Value"}, {"x", "x"}, {"y", "y"}};
  table.value_column = 1;
  table.rows.push_back(row_of(formula, context));
  return table;
}

int run(const Options &options) {
  TracingFile file = options.read();
  std::vector<LoadedAnalysis> analyses;
  if (!options.analysis.empty()) {
    use_data_folder(options.data.folder);
    analyses = load_analyses(file.mode(), options.analysis);
  }
  const PatientContext patient(file, options.patient);
  const analysis::Analysis *references = analyses.empty() ? nullptr : &analyses.front().analysis;
  const analysis::DefinitionFile no_file{std::string()};
  const Context context{file, file.tracing(), patient.for_norms(references ? references->file() : no_file),
                        references, options.precision.chosen};
  Report report;
  report.title = options.formula;
  report.tables.push_back(value_table(options.formula, context));
  const Row &row = report.tables.front().rows.front();
  const bool formed = row.reason.empty();
  if (options.output.format == Format::text)  // the bare answer, for scripts
    deliver_text((formed ? row.cells[1].text : printable(row.reason)) + '\n', options.output);
  else
    deliver(report, options.output);
  return static_cast<int>(formed ? ExitCode::done : ExitCode::negative);
}

}  // namespace

void add_eval_command(CLI::App &program, int &exit_code) {
  CLI::App *command = program.add_subcommand("eval", "Evaluate a formula on a tracing");
  const auto options = std::make_shared<Options>();
  command->add_option("FORMULA", options->formula, "Formula of the definition language, or a point like [Xi]")
      ->required();
  command->add_option("--on", options->path, "JSON or CSV tracing; - reads standard input")
      ->type_name("TRACING")
      ->required();
  options->add_analysis_to(*command, "Analysis that case, sdu, mean and sdv look into");
  options->add_rest_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
