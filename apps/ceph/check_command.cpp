// ceph check: reads an analysis-item folder and reports what is wrong in it.

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "apps/ceph/check_folder.h"
#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/common/names.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

using check::Finding;
using check::FolderReport;
using check::Severity;

struct CheckArguments {
  std::string folder;
  std::string format = "text";
  std::vector<std::string> user_points;
};

const char *name_of(Severity severity) {
  return severity == Severity::error ? "error" : "warning";
}

/// As compilers write it, so that editors jump to the place.
void write_text(std::ostream &out, const FolderReport &report) {
  for (const Finding &finding : report.findings) {
    out << printable(finding.file);
    if (finding.line > 0) out << ':' << finding.line << ':' << finding.column;
    out << ": " << name_of(finding.severity) << ": " << finding.message << '\n';
  }
}

void write_json(std::ostream &out, const FolderReport &report) {
  nlohmann::ordered_json findings = nlohmann::ordered_json::array();
  for (const Finding &finding : report.findings) {
    nlohmann::ordered_json entry{{"file", finding.file}};
    if (finding.line > 0) entry.update({{"line", finding.line}, {"column", finding.column}});
    entry.update({{"severity", name_of(finding.severity)}, {"message", finding.message}});
    findings.push_back(std::move(entry));
  }
  const nlohmann::ordered_json all{{"files", report.files},
                                   {"errors", report.count(Severity::error)},
                                   {"warnings", report.count(Severity::warning)},
                                   {"findings", std::move(findings)}};
  out << all.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

void summarize(std::ostream &out, const FolderReport &report) {
  const auto counted = [](std::size_t count, const char *noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
  };
  out << counted(report.files, "file") << ": " << counted(report.count(Severity::error), "error") << ", "
      << counted(report.count(Severity::warning), "warning") << '\n';
}

check::CheckOptions options_of(const CheckArguments &arguments) {
  check::CheckOptions options;
  for (const std::string &name : arguments.user_points) {
    const auto bytes = framework::cp932_from_utf8(name);
    if (!bytes || bytes->empty() || bytes->size() > 5)
      throw CommandError(ExitCode::usage,
                         in_quotes(name) + " is no name of a user point; 1 to 5 bytes of code page 932");
    options.user_points.insert(*bytes);
  }
  return options;
}

void run_check(const CheckArguments &arguments, int &exit_code) {
  const FolderReport report = check::check_folder(arguments.folder, options_of(arguments));
  if (report.files == 0 && report.findings.empty())
    throw CommandError(ExitCode::bad_data,
                       in_quotes(arguments.folder) +
                           " is no analysis-item folder; it holds folders such as CalcForm or "
                           "CalcMode, each with a list.txt");
  if (arguments.format == "json") {
    write_json(std::cout, report);
  } else {
    write_text(std::cout, report);
    summarize(std::cerr, report);
  }
  if (!std::cout.flush()) throw CommandError(ExitCode::bad_output, "the findings cannot be written");
  exit_code = static_cast<int>(report.count(Severity::error) > 0 ? ExitCode::negative : ExitCode::done);
}

}  // namespace

void add_check_command(CLI::App &program, int &exit_code) {
  auto arguments = std::make_shared<CheckArguments>();
  CLI::App *command =
      program.add_subcommand("check", "Find faults in an analysis-item folder: file, line, column");
  command->add_option("folder", arguments->folder, "the analysis-item folder, or one folder in it")
      ->required();
  command->add_option("--format", arguments->format, "text or json")->check(CLI::IsMember({"text", "json"}));
  command->add_option("--user-point", arguments->user_points, "a point that users define; may be repeated");
  command->callback([arguments, &exit_code] { run_check(*arguments, exit_code); });
}

}  // namespace app
