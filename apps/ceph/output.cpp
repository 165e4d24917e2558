#include "apps/ceph/output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "apps/ceph/exit_code.h"
#include "apps/common/report_writers.h"

namespace app {
namespace {

[[noreturn]] void fail(const std::string &path, int error) {
  throw CommandError(ExitCode::bad_output, path + ": cannot be written: " + std::strerror(error));
}

bool write_all(int file, const std::string &content) {
  std::size_t written = 0;
  while (written < content.size()) {
    const ssize_t count = ::write(file, content.data() + written, content.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    written += static_cast<std::size_t>(count);
  }
  return true;
}

/// Devices and pipes cannot be replaced; they are written to.
bool is_special(const std::string &path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

void write_special(const std::string &path, const std::string &content) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (file < 0) fail(path, errno);
  const bool good = write_all(file, content);
  const int error = errno;
  ::close(file);
  if (!good) fail(path, error);
}

/// The rights of a new file: what the process's mask leaves of 0666.
mode_t new_file_mode() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return static_cast<mode_t>(0666 & ~mask);
}

bool wants_color(ColorChoice choice, bool to_file) {
  if (choice != ColorChoice::automatic) return choice == ColorChoice::always;
  const char *no_color = std::getenv("NO_COLOR");
  if (to_file || (no_color && *no_color)) return false;
  const char *terminal = std::getenv("TERM");
  return ::isatty(STDOUT_FILENO) == 1 && terminal && std::strcmp(terminal, "dumb") != 0;
}

std::string rendered(const Report &report, const OutputOptions &options) {
  switch (options.format) {
    case Format::csv:
      return write_csv(report);
    case Format::json:
      return write_json(report);
    case Format::html:
      return write_html(report);
    case Format::text:
      break;
  }
  return write_text(report, wants_color(options.color, !options.path.empty()) ? Color::on : Color::off);
}

}  // namespace

void write_file_atomically(const std::string &path, const std::string &content) {
  if (is_special(path)) return write_special(path, content);
  std::string temporary = path + ".XXXXXX";
  const int file = ::mkstemp(temporary.data());
  if (file < 0) fail(path, errno);
  const bool good = write_all(file, content) && ::fchmod(file, new_file_mode()) == 0 && ::fsync(file) == 0;
  int error = errno;
  const bool closed = ::close(file) == 0;
  if (good && !closed) error = errno;
  if (good && closed && ::rename(temporary.c_str(), path.c_str()) == 0) return;
  if (good && closed) error = errno;
  ::unlink(temporary.c_str());
  fail(path, error);
}

void deliver_text(const std::string &text, const OutputOptions &options) {
  if (!options.path.empty() && options.path != "-") return write_file_atomically(options.path, text);
  std::cout << text << std::flush;
  if (!std::cout) throw CommandError(ExitCode::bad_output, "standard output: cannot be written");
}

void deliver(const Report &report, const OutputOptions &options) {
  deliver_text(rendered(report, options), options);
}

}  // namespace app
