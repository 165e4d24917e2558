// ceph table: every measurement of an analysis with its norm and deviation, the growth stage and the
// diagnosis.

#include <CLI/CLI.hpp>
#include <memory>

#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"
#include "apps/ceph/table_report.h"

namespace app {
namespace {

int run(const TracingOptions &options) {
  deliver(table_report(options, options.read()), options.output);
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
