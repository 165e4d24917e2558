// ceph surgery: a film before treatment against the planned one.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "apps/ceph/analysis_report.h"
#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

struct Options {
  std::string before, after;
  InputOptions input;
  DataOptions data;
  PatientOptions patient;
  PrecisionOption precision;
  OutputOptions output;
};

Tone tone_of_mark(std::string_view mark) {
  constexpr Tone tones[] = {Tone::plain, Tone::beyond_one, Tone::beyond_two, Tone::beyond_three};
  return tones[std::min<std::size_t>(mark.size(), 3)];
}

/// Value, mark and reason of one side.
void add_side(Row &row, const analysis::SurgeryRow::Side &side) {
  if (side.reason) {
    const std::string reason = reason_text(*side.reason);
    row.cells.push_back({"", {}});
    row.cells.push_back({"", {}});
    row.cells.push_back({reason, {}, Tone::reason});
    return;
  }
  const Tone tone = tone_of_mark(side.mark);
  row.cells.push_back({framework::utf8_for_display(side.value), side.number, tone});
  row.cells.push_back({side.mark, {}, tone});
  row.cells.push_back({"", {}});
}

Table surgery_report_table(std::span<const analysis::SurgeryRow> rows) {
  Table table;
  table.key = "surgery";
  table.columns = {{"item", "Measurement"}, {"before", "Before", Align::right}, {"before_mark", ""},
                   {"before_reason", ""},   {"after", "Planned", Align::right}, {"after_mark", ""},
                   {"after_reason", ""}};
  table.value_column = table.columns.size();
  for (const analysis::SurgeryRow &row : rows) {
    Row one{row.heading, {{framework::utf8_for_display(row.item), {}}}, {}};
    if (!row.heading) {
      add_side(one, row.before);
      add_side(one, row.after);
    }
    table.rows.push_back(std::move(one));
  }
  return table;
}

TracingFile read_lateral(const Options &options, const std::string &path) {
  TracingFile file = options.input.read(path);
  if (!file.lateral())
    throw CommandError(ExitCode::bad_input, path + ": is not a lateral film; at /kind; \"lateral\"");
  return file;
}

int run(const Options &options) {
  constexpr auto mode = analysis::Mode::surgery;
  const TracingFile before = read_lateral(options, options.before);
  const TracingFile after = read_lateral(options, options.after);
  use_data_folder(options.data.folder);
  const auto analyses = load_analyses(mode, "");
  const LoadedAnalysis &surgery = analyses.front();
  const PatientContext context(before, options.patient);
  const analysis::DefinitionFile &definition = surgery.analysis.file();
  Report report;
  report.title = surgery.title;
  report.facts = context.facts();
  report.tables.push_back(surgery_report_table(
      analysis::surgery_table(surgery.analysis, before.tracing(mode), after.tracing(mode),
                              context.for_norms(definition), options.precision.code())));
  report.tables.front().comment =
      "Norms: " + context.norms(definition) + "\n+ and - mark a deviation of more than 1, 2 or 3 SD.";
  report.notes = context.notes();
  deliver(report, options.output);
  return static_cast<int>(ExitCode::done);
}

}  // namespace

void add_surgery_command(CLI::App &program, int &exit_code) {
  CLI::App *command = program.add_subcommand("surgery", "A lateral film against the planned one");
  const auto options = std::make_shared<Options>();
  command->add_option("BEFORE", options->before, "Tracing before treatment")->required();
  command->add_option("AFTER", options->after, "Planned tracing")->required();
  options->input.add_to(*command);
  options->data.add_to(*command);
  options->patient.add_to(*command);
  options->precision.add_to(*command);
  options->output.add_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
