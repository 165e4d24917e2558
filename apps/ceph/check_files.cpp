#include "apps/ceph/check_files.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

#include "apps/common/names.h"
#include "tool/framework/files/file_system.h"

namespace app::check {
namespace {

constexpr std::uint64_t max_file_bytes = std::uint64_t{16} << 20;

}  // namespace

std::optional<std::string> find_name(const std::vector<std::string> &names, std::string_view wanted) {
  const auto exact = std::find(names.begin(), names.end(), wanted);
  if (exact != names.end()) return *exact;
  const auto near =
      std::find_if(names.begin(), names.end(),
                   [&, small = lower_case(wanted)](const std::string &n) { return lower_case(n) == small; });
  return near == names.end() ? std::nullopt : std::optional(*near);
}

FileText read_file(const std::string &path) {
  framework::FileSystem &disk = framework::file_system();
  const framework::OpenFile file(path.c_str(), {.read = true});
  if (!file) return {{}, std::string("the file cannot be opened: ") + std::strerror(errno)};
  const auto status = disk.status(file.handle());
  if (!status) return {{}, std::string("the file cannot be read: ") + std::strerror(errno)};
  if (!status->is_regular) return {{}, "this is not a file"};
  if (status->size > max_file_bytes) return {{}, "the file is larger than 16 MiB and was not examined"};
  std::string text(static_cast<std::size_t>(status->size), '\0');
  const auto got = framework::read_fully(file.handle(), text.data(), text.size());
  if (got < 0) return {{}, std::string("the file cannot be read: ") + std::strerror(errno)};
  text.resize(static_cast<std::size_t>(got));
  return {std::move(text), {}};
}

}  // namespace app::check
