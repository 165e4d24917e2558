// ceph item: one measurement by its text.

#include <CLI/CLI.hpp>
#include <memory>

#include "apps/ceph/analysis_report.h"
#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"
#include "apps/common/names.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

struct Options : TracingOptions {
  std::string item;
};

[[noreturn]] void not_found(const std::string &item, std::span<const LoadedAnalysis> analyses) {
  std::vector<std::string> texts;
  for (const LoadedAnalysis &one : analyses)
    for (const analysis::Item &other : one.analysis.items())
      if (!other.formula.empty()) texts.push_back(framework::utf8_for_display(other.text));
  const std::vector<std::string_view> candidates(texts.begin(), texts.end());
  const auto near = nearest_name(item, candidates);
  throw CommandError(ExitCode::usage, "no analysis holds the item " + in_quotes(item) + "; ITEM; " +
                                          (near ? "did you mean " + in_quotes(*near) + "?"
                                                : std::string("an item text as ceph table shows it")));
}

const LoadedAnalysis &find_holder(std::span<const LoadedAnalysis> analyses, const std::string &item) {
  const std::string text = framework::cp932_from_utf8(item).value_or("");
  for (const LoadedAnalysis &one : analyses)
    if (!text.empty() && one.analysis.find_item(text)) return one;
  not_found(item, analyses);
}

int run(const Options &options) {
  const TracingFile file = options.read();
  use_data_folder(options.data.folder);
  const auto analyses = load_analyses(file.mode(), options.analysis.empty() ? "all" : options.analysis);
  const LoadedAnalysis &holder = find_holder(analyses, options.item);
  const PatientContext context(file, options.patient);
  const analysis::DefinitionFile &definition = holder.analysis.file();
  const auto row =
      analysis::result_row(holder.analysis, *framework::cp932_from_utf8(options.item), file.tracing(),
                           context.for_norms(definition), options.precision.code());
  if (!row) not_found(options.item, analyses);
  Report report;
  Table table = analysis_table({&*row, 1}, !row->second_value.empty());
  table.key = "items";
  table.comment = holder.title + " \u2014 Norms: " + context.norms(definition);
  report.tables.push_back(std::move(table));
  report.notes = context.notes();
  deliver(report, options.output);
  return static_cast<int>(row->reason ? ExitCode::negative : ExitCode::done);
}

}  // namespace

void add_item_command(CLI::App &program, int &exit_code) {
  CLI::App *command = program.add_subcommand("item", "One measurement by its text");
  const auto options = std::make_shared<Options>();
  command->add_option("TRACING", options->path, "JSON or CSV tracing; - reads standard input")->required();
  command->add_option("ITEM", options->item, "Item text as the table shows it")->required();
  command
      ->add_option("--analysis", options->analysis,
                   "Index or title of an analysis (default: the first that has it)")
      ->type_name("N");
  options->add_rest_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
