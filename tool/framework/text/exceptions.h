#pragma once
// The framework's exceptions. They are thrown by value and caught by reference. Across the exported boundary
// only CInvalidArgException ever leaves the library: a bad index into a string or number array.

#include <exception>
#include <string>
#include <utility>

class CException : public std::exception {
 public:
  const char *what() const noexcept override { return "framework exception"; }
};

/// An argument outside its range, above all an array index.
class CInvalidArgException : public CException {
 public:
  const char *what() const noexcept override { return "invalid argument"; }
};

class CMemoryException : public CException {
 public:
  const char *what() const noexcept override { return "out of memory"; }
};

/// A failed file operation; `m_cause` tells why, `m_lOsError` is the system's error number.
class CFileException : public CException {
 public:
  enum Cause {
    none,
    genericException,
    fileNotFound,
    badPath,
    tooManyOpenFiles,
    accessDenied,
    invalidFile,
    removeCurrentDir,
    directoryFull,
    badSeek,
    hardIO,
    sharingViolation,
    lockViolation,
    diskFull,
    endOfFile,
  };

  explicit CFileException(int cause = none, int os_error = 0, std::string path = {})
      : m_cause(cause), m_lOsError(os_error), path_(std::move(path)) {}
  const char *what() const noexcept override { return "file error"; }
  const char *path() const noexcept { return path_.c_str(); }

  /// The cause that belongs to a system error number (errno).
  static int OsErrorToCause(int os_error);

  int m_cause;
  int m_lOsError;

 private:
  std::string path_;
};

[[noreturn]] inline void AfxThrowInvalidArgException() {
  throw CInvalidArgException();
}
