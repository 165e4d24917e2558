// ceph analyses: what the analysis-item folder offers.

#include <CLI/CLI.hpp>
#include <cctype>
#include <memory>

#include "apps/ceph/commands.h"
#include "apps/ceph/data_folder.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"

namespace app {
namespace {

struct Options {
  DataOptions data;
  OutputOptions output;
};

Table modes_table(analysis::Mode mode) {
  Table table;
  table.key = "modes";
  table.title = mode_name(mode);
  table.title.front() = static_cast<char>(std::toupper(table.title.front()));
  table.columns = {
      {"index", "Index", Align::right}, {"title", "Title"}, {"file", "File"}, {"comment", "Comment"}};
  table.columns.back().audience = Audience::data;
  table.value_column = 1;
  for (const ListedAnalysis &one : list_analyses(mode)) {
    Row row{false,
            {{std::to_string(one.index), static_cast<double>(one.index)},
             {one.title, {}},
             {one.file, {}},
             {one.comment, {}}},
            {}};
    if (!one.readable) row.reason = one.file + " is listed but cannot be read";
    table.rows.push_back(std::move(row));
  }
  return table;
}

int run(const Options &options) {
  use_data_folder(options.data.folder);
  Report report;
  report.title = "Analyses";
  for (const auto mode : {analysis::Mode::lateral, analysis::Mode::frontal, analysis::Mode::model,
                          analysis::Mode::lateral_diagnosis, analysis::Mode::surgery})
    report.tables.push_back(modes_table(mode));
  deliver(report, options.output);
  return static_cast<int>(ExitCode::done);
}

}  // namespace

void add_analyses_command(CLI::App &program, int &exit_code) {
  CLI::App *command = program.add_subcommand("analyses", "List the analyses of the analysis-item folder");
  const auto options = std::make_shared<Options>();
  options->data.add_to(*command);
  options->output.add_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
