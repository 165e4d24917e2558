// ceph eval: a formula or a point on a tracing.

#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <memory>

#include "apps/ceph/analysis_report.h"
#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"
#include "apps/common/names.h"
#include "tool/analysis/evaluation.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

struct Options {
  std::string formula, tracing, analysis;
  InputOptions input;
  DataOptions data;
  PatientOptions patient;
  PrecisionOption precision;
  OutputOptions output;
};

std::string full_number(double value) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.10g", value);
  return text.data();
}

/// The name when the whole text is one point in square brackets.
std::optional<std::string_view> point_name(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  if (text.size() < 2 || text.front() != '[' || text.find(']') != text.size() - 1) return std::nullopt;
  return text.substr(1, text.size() - 2);
}

/// What formulas are evaluated with.
struct Context {
  analysis::Tracing tracing;
  analysis::Patient patient;
  const analysis::Analysis *references;
  std::optional<int> precision;

  std::string number(double value) const {
    return precision ? analysis::format_value(value, *precision) : full_number(value);
  }
};

Row point_row(const std::string &formula, std::string_view name, const Context &context) {
  const analysis::ResolvedPoint point = analysis::resolve_point(name, context.tracing);
  const std::string x = context.number(point.x), y = context.number(point.y);
  Row row{false, {{formula, {}}, {'(' + x + ", " + y + ')', {}}, {x, point.x}, {y, point.y}}, {}};
  if (point.reason) row.reason = reason_text(*point.reason);
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
  const auto name = point_name(*cp932);
  return name ? point_row(formula, *name, context) : formula_row(formula, *cp932, context);
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
  const TracingFile file = options.input.read(options.tracing);
  std::vector<LoadedAnalysis> analyses;
  if (!options.analysis.empty()) {
    use_data_folder(options.data.folder);
    analyses = load_analyses(file.mode(), options.analysis);
  }
  const PatientContext patient(file, options.patient);
  const analysis::Analysis *references = analyses.empty() ? nullptr : &analyses.front().analysis;
  const analysis::DefinitionFile no_file{std::string()};
  const Context context{file.tracing(), patient.for_norms(references ? references->file() : no_file),
                        references, options.precision.chosen};
  Report report;
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
  command->add_option("--on", options->tracing, "JSON or CSV tracing; - reads standard input")
      ->type_name("TRACING")
      ->required();
  command->add_option("--analysis", options->analysis, "Analysis that case, sdu, mean and sdv look into")
      ->type_name("N");
  options->input.add_to(*command);
  options->data.add_to(*command);
  options->patient.add_to(*command);
  options->precision.add_to(*command);
  options->output.add_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
