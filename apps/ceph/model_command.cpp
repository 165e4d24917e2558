// ceph model: the measurements of a dental cast.

#include <CLI/CLI.hpp>
#include <array>
#include <memory>

#include "apps/ceph/analysis_report.h"
#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"
#include "tool/model/measurements.h"

namespace app {
namespace {

constexpr std::array<std::string_view, 28> item_names{"Upper central incisor",
                                                      "Upper lateral incisor",
                                                      "Upper canine",
                                                      "Upper first premolar",
                                                      "Upper second premolar",
                                                      "Upper first molar",
                                                      "Upper arch width",
                                                      "Upper arch length",
                                                      "Lower central incisor",
                                                      "Lower lateral incisor",
                                                      "Lower canine",
                                                      "Lower first premolar",
                                                      "Lower second premolar",
                                                      "Lower first molar",
                                                      "Lower arch width",
                                                      "Lower arch length",
                                                      "Upper anterior sum, 6 teeth",
                                                      "Upper sum, 12 teeth",
                                                      "Lower anterior sum, 6 teeth",
                                                      "Lower sum, 12 teeth",
                                                      "Anterior ratio, lower to upper, %",
                                                      "Overall ratio, lower to upper, %",
                                                      "Upper canine and premolars, predicted",
                                                      "Lower canine and premolars, predicted",
                                                      "Upper basal arch width",
                                                      "Upper basal arch length",
                                                      "Lower basal arch width",
                                                      "Lower basal arch length"};

bool is_tooth(std::size_t item) {
  return item % 8 < 6 && item < 14;
}

/// Predictions are formed in a mixed dentition only, from four incisors.
std::string reason_for(std::size_t item, const tagPOINTMO &record) {
  const bool prediction = item == 22 || item == 23;
  if (prediction && record.mixed != 1) return "predicted in a mixed dentition only";
  if (prediction) return "an incisor is absent";
  return "cannot be formed";
}

Row item_row(std::size_t item, const tagPOINTMO &record, int sex, int precision) {
  const model::ItemValues values = model::item(sex, record, record.ex, static_cast<int>(item));
  const auto cell = [&](double value) -> Cell {
    if (value == 0.0) return {is_tooth(item) ? "absent" : "not stated", {}, Tone::quiet};
    return {analysis::format_value(value, precision), value};
  };
  Row row{
      false, {{std::to_string(item), static_cast<double>(item)}, {std::string(item_names[item]), {}}}, {}};
  if (is_tooth(item)) {
    row.cells.push_back(cell(values.b));  // the first side is the right one
    row.cells.push_back(cell(values.a));
    row.cells.push_back({"", {}});
    return row;
  }
  row.cells.push_back({"", {}});
  row.cells.push_back({"", {}});
  row.cells.push_back(cell(values.a));
  if (values.a == -1.0) row.reason = reason_for(item, record);
  return row;
}

Table items_table(const tagPOINTMO &record, int sex, int precision) {
  Table table;
  table.key = "items";
  table.title = "Measurements";
  table.comment = "Millimetres; ratios in percent.";
  table.columns = {{"number", "No.", Align::right},
                   {"measurement", "Measurement"},
                   {"right", "Right", Align::right},
                   {"left", "Left", Align::right},
                   {"value", "Value", Align::right}};
  table.value_column = 2;
  for (std::size_t item = 0; item < item_names.size(); ++item)
    table.rows.push_back(item_row(item, record, sex, precision));
  return table;
}

int run(const TracingOptions &options) {
  const TracingFile file = options.read();
  const tagPOINTMO *record = file.model();
  if (!record) throw CommandError(ExitCode::bad_input, options.path + ": is not a cast; at /kind; \"cast\"");
  use_data_folder(options.data.folder);
  const auto analyses = load_analyses(analysis::Mode::model, options.analysis);
  const PatientContext context(file, options.patient);
  Report report;
  report.title = "Dental cast";
  report.facts = context.facts();
  report.tables.push_back(items_table(*record, context.sex(), options.precision.code()));
  for (const LoadedAnalysis &one : analyses)
    report.tables.push_back(analysis_table(one, file, context, options.precision.code()));
  report.notes = context.notes();
  deliver(report, options.output);
  return static_cast<int>(ExitCode::done);
}

}  // namespace

void add_model_command(CLI::App &program, int &exit_code) {
  CLI::App *command = program.add_subcommand("model", "The 28 measurements of a cast, and its analysis");
  const auto options = std::make_shared<TracingOptions>();
  command->add_option("CAST", options->path, "JSON tracing of a cast; - reads standard input")->required();
  command
      ->add_option("--analysis", options->analysis,
                   "Index or title of an analysis, or all (default: the first)")
      ->type_name("N");
  options->add_rest_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
