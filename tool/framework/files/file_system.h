#pragma once
// The seam to the disk: everything the library does with files goes through one replaceable FileSystem, so
// that full disks, unreadable files and short reads are ordinary test rows.
//
// Paths are native: UTF-8 with '/'. A function that fails says so by its result and leaves the reason in
// errno.

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace framework {

struct FileStatus {
  std::uint64_t size = 0;
  bool is_folder = false;
  bool is_regular = false;  ///< neither folder nor device, pipe or socket
  bool is_link = false;     ///< a symbolic link; the other members tell about what it leads to
  bool read_only = false;   ///< nobody has the right to write
  std::time_t changed = 0;  ///< status change, for want of a creation time
  std::time_t modified = 0;
  std::time_t accessed = 0;
};

struct OpenMode {
  bool read = false;
  bool write = false;
  bool create = false;     ///< when missing
  bool truncate = false;   ///< when it exists
  bool exclusive = false;  ///< with create: fail when it exists
};

enum class SeekFrom { begin, current, end };

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Open files: a handle is 0 or more
  virtual int open(const char *path, OpenMode mode) = 0;  ///< -1: failed
  virtual bool close(int handle) = 0;
  /// Bytes moved, possibly fewer than asked for; reading 0: end of the file; -1: failed.
  virtual std::ptrdiff_t read(int handle, void *data, std::size_t size) = 0;
  virtual std::ptrdiff_t write(int handle, const void *data, std::size_t size) = 0;
  virtual std::int64_t seek(int handle, std::int64_t offset,
                            SeekFrom from) = 0;  ///< new position; -1: failed
  virtual bool resize(int handle, std::uint64_t size) = 0;
  virtual bool flush(int handle) = 0;
  virtual std::optional<FileStatus> status(int handle) = 0;

  // Names
  virtual std::optional<FileStatus> status(const char *path) = 0;
  /// The names in a folder without "." and "..", in byte order.
  virtual std::optional<std::vector<std::string>> list(const char *folder) = 0;
  virtual bool make_folder(const char *path) = 0;
  virtual bool remove_file(const char *path) = 0;
  virtual bool remove_folder(const char *path) = 0;
  virtual bool rename(const char *from, const char *to) = 0;  ///< replaces a file of the new name
  virtual bool set_read_only(const char *path, bool read_only) = 0;
  virtual bool copy_rights(const char *from, const char *to) = 0;
  virtual std::string current_folder() = 0;  ///< empty: failed
  virtual bool set_current_folder(const char *path) = 0;
};

/// The disk itself.
class PosixFileSystem : public FileSystem {
 public:
  int open(const char *path, OpenMode mode) override;
  bool close(int handle) override;
  std::ptrdiff_t read(int handle, void *data, std::size_t size) override;
  std::ptrdiff_t write(int handle, const void *data, std::size_t size) override;
  std::int64_t seek(int handle, std::int64_t offset, SeekFrom from) override;
  bool resize(int handle, std::uint64_t size) override;
  bool flush(int handle) override;
  std::optional<FileStatus> status(int handle) override;
  std::optional<FileStatus> status(const char *path) override;
  std::optional<std::vector<std::string>> list(const char *folder) override;
  bool make_folder(const char *path) override;
  bool remove_file(const char *path) override;
  bool remove_folder(const char *path) override;
  bool rename(const char *from, const char *to) override;
  bool set_read_only(const char *path, bool read_only) override;
  bool copy_rights(const char *from, const char *to) override;
  std::string current_folder() override;
  bool set_current_folder(const char *path) override;
};

/// The file system in use.
FileSystem &file_system();

/// Installs a file system, which must outlive its use; null brings the disk back. Gives the one before (null:
/// the disk).
FileSystem *install_file_system(FileSystem *replacement);

/// Installs a file system for the lifetime of the scope.
class FileSystemScope {
 public:
  explicit FileSystemScope(FileSystem &used) : before_(install_file_system(&used)) {}
  ~FileSystemScope() { install_file_system(before_); }
  FileSystemScope(const FileSystemScope &) = delete;
  FileSystemScope &operator=(const FileSystemScope &) = delete;

 private:
  FileSystem *before_;
};

// Built on the seam
// -----------------------------------------------------------------------------------------------
/// A handle of the file system, closed at the end of its life. Closing keeps errno.
class OpenFile {
 public:
  OpenFile(const char *path, OpenMode mode) : handle_(file_system().open(path, mode)) {}
  ~OpenFile();
  OpenFile(const OpenFile &) = delete;
  OpenFile &operator=(const OpenFile &) = delete;

  explicit operator bool() const { return handle_ >= 0; }
  int handle() const { return handle_; }
  bool close();  ///< tells whether everything reached the disk

 private:
  int handle_;
};

/// Reads until `size` bytes are there or the file ends; the bytes read, or -1.
std::ptrdiff_t read_fully(int handle, void *data, std::size_t size);

/// Writes everything or fails.
bool write_fully(int handle, const void *data, std::size_t size);

/// Puts a new content in the place of a file's old one in a single step: whoever reads finds either, never a
/// part. When it fails the old content stays. A file that exists keeps its rights; a read-only one is not
/// replaced.
bool replace_file(const std::string &path, std::string_view content);

/// Copies a plain file, replacing the target's content in a single step. Fails for folders and devices, on a
/// read-only target, on itself, and with `fail_if_exists` on any target. The copy of a read-only file is
/// read-only.
bool copy_file(const std::string &source, const std::string &target, bool fail_if_exists);

/// Creates a folder and its missing parents; true when it is there afterwards.
bool make_folders(const std::string &path);

}  // namespace framework
