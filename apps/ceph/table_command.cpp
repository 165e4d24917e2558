// ceph table: every measurement of an analysis with its norm and deviation, the growth stage and the
// diagnosis.

#include <CLI/CLI.hpp>
#include <memory>

#include "apps/ceph/analysis_report.h"
#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"
#include "tool/analysis/definition_folder.h"

namespace app {
namespace {

void add_diagnosis(Report &report, const TracingFile &file, const PatientContext &context) {
  if (file.kind() != analysis::RecordKind::lateral) return;
  if (analysis::definition_paths(analysis::Mode::lateral_diagnosis).empty()) return;
  const Diagnosis diagnosis =
      diagnose(load_analyses(analysis::Mode::lateral_diagnosis, "all"), file, context);
  if (!diagnosis.sentences.empty())
    report.paragraphs.push_back({"diagnosis", "Diagnosis", diagnosis.sentences});
  if (!diagnosis.left_out.empty())
    report.notes.push_back("the diagnosis is incomplete: " + joined(diagnosis.left_out));
}

int run(const TracingOptions &options) {
  const TracingFile file = options.read();
  use_data_folder(options.data.folder);
  const auto analyses = load_analyses(file.mode(), options.analysis);
  const PatientContext context(file, options.patient);
  Report report;
  report.title = analyses.size() == 1 ? analyses.front().title : "Cephalometric analyses";
  report.facts = context.facts();
  for (Fact &fact : growth_facts(analyses, file, context)) report.facts.push_back(std::move(fact));
  for (const LoadedAnalysis &one : analyses)
    report.tables.push_back(analysis_table(one, file, context, options.precision.code()));
  if (analyses.size() == 1) report.tables.front().title.clear();
  report.notes = context.notes();
  add_diagnosis(report, file, context);
  deliver(report, options.output);
  return static_cast<int>(ExitCode::done);
}

}  // namespace

void add_table_command(CLI::App &program, int &exit_code) {
  CLI::App *command =
      program.add_subcommand("table", "Result table of a tracing, with growth stage and diagnosis");
  const auto options = std::make_shared<TracingOptions>();
  command->add_option("TRACING", options->path, "JSON or CSV tracing; - reads standard input")->required();
  command
      ->add_option("--analysis", options->analysis,
                   "Index or title of an analysis, or all (default: the first)")
      ->type_name("N");
  options->add_rest_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
