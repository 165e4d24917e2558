#pragma once
// The program: its subcommands and how it ends.

namespace CLI {
class App;
}

namespace app {

/// Adds one subcommand. When it is chosen its callback does the work and sets the exit code; it may throw
/// CommandError or InputError, which the program turns into one line on standard error.
using AddCommand = void (*)(CLI::App &program, int &exit_code);

/// Runs the program; returns its exit code. Never throws.
int run_program(int argc, const char *const *argv);

}  // namespace app
