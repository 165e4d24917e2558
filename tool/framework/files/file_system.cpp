#include "tool/framework/files/file_system.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>

namespace framework {
namespace {

std::atomic<FileSystem *> installed_file_system{nullptr};

/// Copies what is left to read in one file to another.
bool copy_content(int from, int to) {
  std::array<char, 65536> buffer;
  for (;;) {
    const std::ptrdiff_t count = read_fully(from, buffer.data(), buffer.size());
    if (count <= 0) return count == 0;
    if (!write_fully(to, buffer.data(), static_cast<std::size_t>(count))) return false;
  }
}

/// Fills a new file beside `path` and renames it into place, so that an interrupted or failed write loses
/// nothing. The new file gets the rights of `like` where that exists.
template <class Fill>
bool replace_by(const std::string &path, const std::string &like, Fill fill) {
  FileSystem &files = file_system();
  const std::string scratch = path + ".new" + std::to_string(getpid());
  OpenFile out(scratch.c_str(), {.write = true, .create = true, .truncate = true});
  if (!out) return false;
  files.copy_rights(like.c_str(), scratch.c_str());
  if (fill(out.handle()) && out.close() && files.rename(scratch.c_str(), path.c_str())) return true;
  const int reason = errno;
  files.remove_file(scratch.c_str());
  errno = reason;
  return false;
}

bool fail(int reason) {
  errno = reason;
  return false;
}

/// Whether a path may receive a new content: a missing one or a writable plain file.
bool is_replaceable(const std::optional<FileStatus> &status) {
  if (!status) return errno == ENOENT;
  if (status->is_folder) return fail(EISDIR);
  if (!status->is_regular || status->read_only) return fail(EACCES);
  return true;
}

}  // namespace

FileSystem &file_system() {
  if (FileSystem *installed = installed_file_system.load(std::memory_order_acquire)) return *installed;
  static PosixFileSystem disk;
  return disk;
}

FileSystem *install_file_system(FileSystem *replacement) {
  return installed_file_system.exchange(replacement);
}

OpenFile::~OpenFile() {
  const int reason = errno;
  close();
  errno = reason;
}

bool OpenFile::close() {
  const int handle = handle_;
  handle_ = -1;
  return handle < 0 || file_system().close(handle);
}

std::ptrdiff_t read_fully(int handle, void *data, std::size_t size) {
  std::size_t done = 0;
  while (done < size) {
    const std::ptrdiff_t count = file_system().read(handle, static_cast<char *>(data) + done, size - done);
    if (count < 0) return -1;
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  return static_cast<std::ptrdiff_t>(done);
}

bool write_fully(int handle, const void *data, std::size_t size) {
  for (std::size_t done = 0; done < size;) {
    const std::ptrdiff_t count =
        file_system().write(handle, static_cast<const char *>(data) + done, size - done);
    if (count < 0) return false;
    if (count == 0) return fail(ENOSPC);
    done += static_cast<std::size_t>(count);
  }
  return true;
}

bool replace_file(const std::string &path, std::string_view content) {
  if (!is_replaceable(file_system().status(path.c_str()))) return false;
  return replace_by(path, path, [&](int out) { return write_fully(out, content.data(), content.size()); });
}

bool copy_file(const std::string &source, const std::string &target, bool fail_if_exists) {
  FileSystem &files = file_system();
  const OpenFile in(source.c_str(), {.read = true});
  if (!in) return false;
  const auto source_status = files.status(in.handle());
  if (!source_status) return false;
  if (!source_status->is_regular) return fail(EACCES);
  const auto target_status = files.status(target.c_str());
  if (target_status && fail_if_exists) return fail(EEXIST);
  if (!is_replaceable(target_status)) return false;
  if (source == target) return fail(EBUSY);
  return replace_by(target, source, [&](int out) { return copy_content(in.handle(), out); });
}

bool make_folders(const std::string &path) {
  FileSystem &files = file_system();
  if (path.empty()) return fail(ENOENT);
  for (std::size_t end = path.find_first_not_of('/'); end < path.size(); ++end) {
    end = std::min(path.find('/', end), path.size());
    const std::string part = path.substr(0, end);
    if (!files.make_folder(part.c_str()) && !files.status(part.c_str())) return false;
  }
  const auto status = files.status(path.c_str());
  return status && (status->is_folder || fail(ENOTDIR));
}

}  // namespace framework
