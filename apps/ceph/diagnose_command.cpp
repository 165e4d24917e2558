// ceph diagnose: the diagnosis sentences of a lateral film.

#include <CLI/CLI.hpp>
#include <memory>

#include "apps/ceph/analysis_report.h"
#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"

namespace app {
namespace {

int run(const TracingOptions &options) {
  const TracingFile file = options.read();
  if (!file.lateral())
    throw CommandError(ExitCode::bad_input, options.path + ": is not a lateral film; at /kind; \"lateral\"");
  use_data_folder(options.data.folder);
  const auto files =
      load_analyses(analysis::Mode::lateral_diagnosis, options.analysis.empty() ? "all" : options.analysis);
  const PatientContext context(file, options.patient);
  const Diagnosis diagnosis = diagnose(files, file, context);
  Report report;
  report.title = files.size() == 1 ? files.front().title : "Diagnosis";
  report.facts = context.facts();
  for (Fact &fact : growth_facts(files, file, context)) report.facts.push_back(std::move(fact));
  report.paragraphs.push_back({"diagnosis", "Diagnosis", diagnosis.sentences});
  report.notes = context.notes();
  if (!diagnosis.left_out.empty())
    report.notes.push_back("the diagnosis is incomplete: " + joined(diagnosis.left_out));
  deliver(report, options.output);
  return static_cast<int>(diagnosis.left_out.empty() ? ExitCode::done : ExitCode::negative);
}

}  // namespace

void add_diagnose_command(CLI::App &program, int &exit_code) {
  CLI::App *command = program.add_subcommand("diagnose", "Diagnosis sentences of a lateral film");
  const auto options = std::make_shared<TracingOptions>();
  command->add_option("TRACING", options->path, "JSON or CSV tracing; - reads standard input")->required();
  options->add_analysis_to(*command, "Index or title of a diagnosis file (default: all)");
  options->add_rest_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
