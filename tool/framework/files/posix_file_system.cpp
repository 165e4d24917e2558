#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>

#include "tool/framework/files/file_system.h"

namespace framework {
namespace {

constexpr mode_t all_write_bits = S_IWUSR | S_IWGRP | S_IWOTH;

FileStatus translated(const struct stat &data) {
  FileStatus status;
  status.size = data.st_size > 0 ? static_cast<std::uint64_t>(data.st_size) : 0;
  status.is_folder = S_ISDIR(data.st_mode);
  status.is_regular = S_ISREG(data.st_mode);
  status.read_only = (data.st_mode & all_write_bits) == 0;
  status.changed = data.st_ctime;
  status.modified = data.st_mtime;
  status.accessed = data.st_atime;
  return status;
}

int native_flags(OpenMode mode) {
  int flags = mode.read && mode.write ? O_RDWR : mode.write ? O_WRONLY : O_RDONLY;
  if (mode.create) flags |= O_CREAT;
  if (mode.truncate) flags |= O_TRUNC;
  if (mode.exclusive) flags |= O_EXCL;
  return flags | O_CLOEXEC | O_NONBLOCK;  // a pipe without a partner must not stop the program
}

/// Repeats a system call that a signal has interrupted.
template <class Call>
auto uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

struct CloseFolder {
  void operator()(DIR *folder) const { closedir(folder); }
};

}  // namespace

int PosixFileSystem::open(const char *path, OpenMode mode) {
  return uninterrupted([&] { return ::open(path, native_flags(mode), 0666); });
}

bool PosixFileSystem::close(int handle) {
  return ::close(handle) == 0;
}

std::ptrdiff_t PosixFileSystem::read(int handle, void *data, std::size_t size) {
  return uninterrupted([&] { return ::read(handle, data, size); });
}

std::ptrdiff_t PosixFileSystem::write(int handle, const void *data, std::size_t size) {
  return uninterrupted([&] { return ::write(handle, data, size); });
}

std::int64_t PosixFileSystem::seek(int handle, std::int64_t offset, SeekFrom from) {
  const int whence = from == SeekFrom::begin ? SEEK_SET : from == SeekFrom::current ? SEEK_CUR : SEEK_END;
  return ::lseek(handle, offset, whence);
}

bool PosixFileSystem::resize(int handle, std::uint64_t size) {
  return uninterrupted([&] { return ::ftruncate(handle, static_cast<off_t>(size)); }) == 0;
}

bool PosixFileSystem::flush(int handle) {
  return ::fsync(handle) == 0;
}

std::optional<FileStatus> PosixFileSystem::status(int handle) {
  struct stat data {};
  if (::fstat(handle, &data) != 0) return std::nullopt;
  return translated(data);
}

std::optional<FileStatus> PosixFileSystem::status(const char *path) {
  struct stat data {};
  if (::lstat(path, &data) != 0) return std::nullopt;
  const bool is_link = S_ISLNK(data.st_mode);
  if (is_link && ::stat(path, &data) != 0) return std::nullopt;
  FileStatus status = translated(data);
  status.is_link = is_link;
  return status;
}

std::optional<std::vector<std::string>> PosixFileSystem::list(const char *folder) {
  const std::unique_ptr<DIR, CloseFolder> entries(::opendir(folder));
  if (!entries) return std::nullopt;
  std::vector<std::string> names;
  while (const dirent *entry = ::readdir(entries.get())) {
    std::string name = entry->d_name;
    if (name != "." && name != "..") names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool PosixFileSystem::make_folder(const char *path) {
  return ::mkdir(path, 0777) == 0;
}
bool PosixFileSystem::remove_file(const char *path) {
  return ::unlink(path) == 0;
}
bool PosixFileSystem::remove_folder(const char *path) {
  return ::rmdir(path) == 0;
}
bool PosixFileSystem::rename(const char *from, const char *to) {
  return std::rename(from, to) == 0;
}

bool PosixFileSystem::set_read_only(const char *path, bool read_only) {
  struct stat data {};
  if (::stat(path, &data) != 0) return false;
  const mode_t rights = data.st_mode & 07777;
  return ::chmod(path, read_only ? rights & ~all_write_bits : rights | S_IWUSR) == 0;
}

bool PosixFileSystem::copy_rights(const char *from, const char *to) {
  struct stat data {};
  return ::stat(from, &data) == 0 && ::chmod(to, data.st_mode & 07777) == 0;
}

std::string PosixFileSystem::current_folder() {
  std::string path(4096, '\0');
  if (!::getcwd(path.data(), path.size())) return {};
  path.resize(path.find('\0'));
  return path;
}

bool PosixFileSystem::set_current_folder(const char *path) {
  return ::chdir(path) == 0;
}

}  // namespace framework
