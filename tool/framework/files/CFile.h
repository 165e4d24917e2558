#pragma once
// The framework's file object: one open file, unbuffered. Paths are code page 932. Operations that fail throw
// CFileException; Open alone tells by its result. The members are virtual so that a caller may supply other
// storage.

#include <cstdint>
#include <ctime>

#include "tool/framework/text/CString.h"
#include "tool/framework/text/exceptions.h"
#include "tool/framework/types.h"

using ULONGLONG = std::uint64_t;
using LONGLONG = std::int64_t;

/// What GetStatus tells about a file. Times are seconds since 1970.
struct CFileStatus {
  std::time_t m_ctime = 0;  ///< created
  std::time_t m_mtime = 0;  ///< modified
  std::time_t m_atime = 0;  ///< accessed
  ULONGLONG m_size = 0;     ///< bytes
  BYTE m_attribute = 0;     ///< CFile::Attribute bits
  CString m_szFullName;
};

class CFile {
 public:
  enum OpenFlags : UINT {
    modeRead = 0x0000,
    modeWrite = 0x0001,
    modeReadWrite = 0x0002,
    shareCompat = 0x0000,
    shareExclusive = 0x0010,
    shareDenyWrite = 0x0020,
    shareDenyRead = 0x0030,
    shareDenyNone = 0x0040,
    modeNoInherit = 0x0080,
    modeCreate = 0x1000,      ///< create, or empty an existing file
    modeNoTruncate = 0x2000,  ///< with modeCreate: keep an existing file's content
    typeText = 0x4000,        ///< no effect: bytes stay as they are
    typeBinary = 0x8000,
  };
  /// A leading dot makes a file hidden; no file is a system file.
  enum Attribute { normal = 0x00, readOnly = 0x01, hidden = 0x02, directory = 0x10, archive = 0x20 };
  enum SeekPosition : UINT { begin = 0, current = 1, end = 2 };

  CFile() = default;
  CFile(const char *path, UINT flags);  ///< opens, or throws
  virtual ~CFile();
  CFile(const CFile &) = delete;
  CFile &operator=(const CFile &) = delete;

  virtual BOOL Open(const char *path, UINT flags, CFileException *error = nullptr);
  virtual void Close();
  virtual void Abort();  ///< closes without a word about failures

  /// Bytes read; fewer than `size` only at the end of the file.
  virtual UINT Read(void *data, UINT size);
  virtual void Write(const void *data, UINT size);
  virtual void Flush();
  /// The new position from the beginning.
  virtual ULONGLONG Seek(LONGLONG offset, UINT from);
  ULONGLONG SeekToEnd() { return Seek(0, end); }
  void SeekToBegin() { Seek(0, begin); }
  virtual ULONGLONG GetPosition() const;
  virtual ULONGLONG GetLength() const;
  virtual void SetLength(ULONGLONG length);

  BOOL GetStatus(CFileStatus &status) const;
  static BOOL GetStatus(const char *path, CFileStatus &status);
  CString GetFilePath() const { return path_; }
  CString GetFileName() const;

  static void Remove(const char *path);                  ///< a read-only file stays
  static void Rename(const char *from, const char *to);  ///< never onto an existing file

 private:
  int handle_ = -1;
  CString path_;
};
