#pragma once
// A disk that fails on demand and counts what it is asked for.

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <limits>
#include <string>

#include "tool/framework/files/file_system.h"

namespace support {

class FaultyFileSystem : public framework::PosixFileSystem {
 public:
  using PosixFileSystem::status;

  // Faults
  std::string unreadable;  ///< a path containing this cannot be opened
  std::size_t largest_read = std::numeric_limits<std::size_t>::max();  ///< short reads
  std::size_t largest_write = std::numeric_limits<std::size_t>::max();
  std::uint64_t readable = std::numeric_limits<std::uint64_t>::max();  ///< bytes until reading fails
  std::uint64_t room = std::numeric_limits<std::uint64_t>::max();      ///< bytes until the disk is full
  bool rename_fails = false;

  // Counts
  int opened = 0;
  int closed = 0;
  int asked = 0;  ///< for the status of a path
  int listed = 0;

  int open(const char *path, framework::OpenMode mode) override {
    if (!unreadable.empty() && std::string(path).find(unreadable) != std::string::npos) return failed(EACCES);
    const int handle = PosixFileSystem::open(path, mode);
    opened += handle >= 0;
    return handle;
  }
  bool close(int handle) override {
    ++closed;
    return PosixFileSystem::close(handle);
  }
  std::ptrdiff_t read(int handle, void *data, std::size_t size) override {
    if (readable == 0) return failed(EIO);
    const auto count = PosixFileSystem::read(handle, data, std::min({size, largest_read, capped(readable)}));
    if (count > 0) readable -= static_cast<std::uint64_t>(count);
    return count;
  }
  std::ptrdiff_t write(int handle, const void *data, std::size_t size) override {
    if (room == 0) return failed(ENOSPC);
    const auto count = PosixFileSystem::write(handle, data, std::min({size, largest_write, capped(room)}));
    if (count > 0) room -= static_cast<std::uint64_t>(count);
    return count;
  }
  std::optional<framework::FileStatus> status(const char *path) override {
    ++asked;
    return PosixFileSystem::status(path);
  }
  std::optional<std::vector<std::string>> list(const char *folder) override {
    ++listed;
    return PosixFileSystem::list(folder);
  }
  bool rename(const char *from, const char *to) override {
    if (rename_fails) return failed(EACCES) == 0;
    return PosixFileSystem::rename(from, to);
  }

 private:
  static std::size_t capped(std::uint64_t count) { return static_cast<std::size_t>(count); }
  static int failed(int reason) {
    errno = reason;
    return -1;
  }
};

}  // namespace support
