#include "apps/ceph/program.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/common/tracing_file.h"
#include "apps/drawing/document.h"

namespace app {
namespace {

constexpr AddCommand commands[] = {
    add_analyses_command, add_table_command,    add_item_command,  add_eval_command,  add_catalogue_command,
    add_surgery_command,  add_diagnose_command, add_model_command, add_check_command, add_batch_command,
    add_draw_command,     add_report_command,   add_date_command,  add_exif_command,
};

int complain(ExitCode code, std::string_view message) {
  std::cerr << "ceph: " << message << '\n';
  return static_cast<int>(code);
}

int parse_and_run(CLI::App &program, int argc, const char *const *argv, const int &exit_code) {
  try {
    program.parse(argc, argv);
    return exit_code;
  } catch (const CLI::Success &help) {
    program.exit(help);
    return std::cout.flush() ? 0 : complain(ExitCode::bad_output, "standard output cannot be written");
  } catch (const CLI::ParseError &error) {
    return complain(ExitCode::usage, std::string(error.what()) + "; see ceph --help");
  } catch (const CommandError &error) {
    return complain(error.code(), error.what());
  } catch (const OutputError &error) {
    return complain(ExitCode::bad_output, error.what());
  } catch (const InputError &error) {
    return complain(ExitCode::bad_input, error.what());
  }
}

}  // namespace

int run_program(int argc, const char *const *argv) {
  try {
    CLI::App program("Cephalometric analysis of placed landmarks: measurements, norms, stages, diagnosis.",
                     "ceph");
    program.require_subcommand(1);
    program.set_version_flag("--version", "ceph " CEPH_VERSION);
    program.footer(
        "Exit codes: 0 done, 1 the answer is no (a value cannot be formed, faults were found, lines were\n"
        "skipped), 2 wrong command line, 3 bad tracing file, 4 bad analysis folder, 5 output not written.");
    int exit_code = 0;
    for (const AddCommand add : commands) add(program, exit_code);
    return parse_and_run(program, argc, argv, exit_code);
  } catch (const std::exception &error) {
    return complain(ExitCode::bad_input, error.what());
  }
}

}  // namespace app
