// ceph batch: tracings from standard input, results to standard output.

#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <map>
#include <memory>
#include <thread>

#include "apps/ceph/batch_progress.h"
#include "apps/ceph/batch_run.h"
#include "apps/ceph/commands.h"
#include "apps/ceph/data_folder.h"
#include "apps/ceph/exit_code.h"

namespace app {
namespace {

using batch::BatchOptions;
using batch::InputFormat;
using batch::OutputFormat;

struct Options {
  BatchOptions batch;
  DataOptions data;
  PrecisionOption precision;
};

/// Waits for input; false when the reader of the output has gone meanwhile.
bool wait_for_input() {
  pollfd ends[2] = {{STDIN_FILENO, POLLIN, 0}, {STDOUT_FILENO, 0, 0}};
  while (::poll(ends, 2, -1) < 0 && errno == EINTR) {
  }
  return (ends[1].revents & POLLERR) == 0;
}

std::size_t read_input(char *data, std::size_t size) {
  if (!wait_for_input()) return 0;
  ssize_t count = 0;
  do {
    count = ::read(STDIN_FILENO, data, size);
  } while (count < 0 && errno == EINTR);
  if (count < 0)
    throw CommandError(ExitCode::bad_input,
                       std::string("standard input: cannot be read: ") + std::strerror(errno));
  return static_cast<std::size_t>(count);
}

bool write_output(std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(STDOUT_FILENO, text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && errno == EPIPE) return false;
    if (count < 0)
      throw CommandError(ExitCode::bad_output,
                         std::string("standard output: cannot be written: ") + std::strerror(errno));
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

/// Messages are worth an attempt, no more.
void write_message(std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(STDERR_FILENO, text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

/// What is left of standard input when it is a file.
std::optional<std::size_t> input_bytes() {
  struct stat status {};
  if (::fstat(STDIN_FILENO, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  const off_t position = ::lseek(STDIN_FILENO, 0, SEEK_CUR);
  return static_cast<std::size_t>(std::max<off_t>(0, status.st_size - std::max<off_t>(0, position)));
}

std::size_t terminal_width() {
  winsize size{};
  const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1;
  return known ? size.ws_col - 1U : 79U;
}

int run(const Options &options) {
  std::signal(SIGPIPE, SIG_IGN);  // a reader that goes away shows as a failing write
  use_data_folder(options.data.folder);
  batch::ProgressBar bar(write_message, input_bytes(), terminal_width());
  const bool show_bar = ::isatty(STDERR_FILENO) == 1 && ::isatty(STDOUT_FILENO) == 0;
  batch::BatchStreams streams;
  streams.read = read_input;
  streams.events.write = write_output;
  streams.events.bad_line = [&](std::size_t number, std::string_view fault) {
    bar.clear();
    write_message("ceph: line " + std::to_string(number) + ": " + std::string(fault) + '\n');
  };
  if (show_bar) streams.events.progress = [&](const batch::Progress &progress) { bar.show(progress); };
  BatchOptions batch_options = options.batch;
  batch_options.precision = options.precision.code();
  const batch::PipelineOutcome outcome = batch::run_batch(batch_options, streams);
  bar.clear();
  if (outcome.total.bad > 0 && !outcome.output_closed)
    write_message("ceph: skipped " + std::to_string(outcome.total.bad) + " of " +
                  std::to_string(outcome.total.lines) + (outcome.total.lines == 1 ? " line\n" : " lines\n"));
  return static_cast<int>(outcome.total.bad > 0 ? ExitCode::negative : ExitCode::done);
}

}  // namespace

void add_batch_command(CLI::App &program, int &exit_code) {
  static const std::map<std::string, OutputFormat> outputs{{"ndjson", OutputFormat::ndjson},
                                                           {"csv", OutputFormat::csv}};
  static const std::map<std::string, InputFormat> inputs{{"json", InputFormat::json},
                                                         {"csv", InputFormat::csv}};
  CLI::App *command =
      program.add_subcommand("batch", "Result tables of many tracings: one a line on standard input");
  const auto options = std::make_shared<Options>();
  BatchOptions &batch_options = options->batch;
  batch_options.pipeline.jobs = std::max(1U, std::thread::hardware_concurrency());
  command
      ->add_option("--analysis", batch_options.analysis,
                   "Index or title of an analysis, or all (default: the first)")
      ->type_name("N");
  command->add_option("--format", batch_options.output, "ndjson (default) or csv")
      ->type_name("FORMAT")
      ->transform(CLI::CheckedTransformer(outputs).description(""));
  command->add_option("--in", batch_options.input, "json or csv (default: as the first line looks)")
      ->type_name("FORMAT")
      ->transform(CLI::CheckedTransformer(inputs).description(""));
  command->add_option("--jobs", batch_options.pipeline.jobs, "Threads at work (default: one a core)")
      ->type_name("N")
      ->check(CLI::Range(1, 256));
  command->add_option("--scale", batch_options.scale, "Millimetres per pixel, for tracings that state none")
      ->type_name("MM")
      ->check(CLI::PositiveNumber);
  batch_options.patient.add_to(*command);
  options->precision.add_to(*command);
  options->data.add_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
