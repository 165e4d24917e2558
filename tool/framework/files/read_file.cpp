#include "tool/framework/files/read_file.h"

#include <cerrno>

#include "tool/framework/files/file_system.h"
#include "tool/framework/files/native_path.h"

namespace framework {
namespace {

std::optional<std::string> content(const OpenFile &file) {
  const auto status = file_system().status(file.handle());
  if (!status || !status->is_regular || status->size > largest_whole_file) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(status->size), '\0');
  const std::ptrdiff_t count = read_fully(file.handle(), bytes.data(), bytes.size());
  if (count < 0) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(count));
  return bytes;
}

bool is_missing(int reason) {
  return reason == ENOENT || reason == ENOTDIR;
}

}  // namespace

std::optional<std::string> read_whole_native_file(const char *native_path) {
  const OpenFile file(native_path, {.read = true});
  if (!file) return std::nullopt;
  return content(file);
}

std::optional<std::string> read_whole_file(const char *cp932_path) {
  if (!cp932_path || *cp932_path == '\0') return std::nullopt;
  ShortNativePath exact;
  if (const char *path = exact.convert(cp932_path)) {
    const OpenFile file(path, {.read = true});
    if (file) return content(file);
    if (!is_missing(errno)) return std::nullopt;
  }
  return read_whole_native_file(native_path(cp932_path).c_str());
}

}  // namespace framework
