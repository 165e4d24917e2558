#pragma once
// Walks the entries of a folder that match a pattern:
//   CFileFind finder;
//   for (BOOL more = finder.FindFile("C:\\data\\*.txt"); more;) {
//     more = finder.FindNextFile();
//     ... finder.GetFileName() ...
//   }
// "*" and "*.*" match every name, "." and ".." among them. Names come in byte order, as they were when
// FindFile was called; letter case is ignored in patterns.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tool/framework/files/file_system.h"
#include "tool/framework/text/CString.h"
#include "tool/framework/types.h"

class CFileFind {
 public:
  CFileFind() = default;
  virtual ~CFileFind() = default;

  /// Null or no pattern: everything in the current folder. FALSE when the folder cannot be read or nothing
  /// matches.
  virtual BOOL FindFile(const char *pattern = nullptr, DWORD unused = 0);
  /// Moves to the next entry; TRUE while there are more after it.
  virtual BOOL FindNextFile();
  void Close();

  // About the entry at hand
  CString GetFileName() const;
  CString GetFilePath() const { return CString(root_ + name_); }
  CString GetFileTitle() const;  ///< the name without its extension
  CString GetRoot() const { return CString(root_); }
  std::uint64_t GetLength() const { return status_ ? status_->size : 0; }
  BOOL IsDots() const { return name_ == "." || name_ == ".."; }
  BOOL IsDirectory() const { return matches_attribute(0x10); }
  BOOL IsReadOnly() const { return matches_attribute(0x01); }
  BOOL IsHidden() const { return matches_attribute(0x02); }
  BOOL IsSystem() const { return matches_attribute(0x04); }

 private:
  BOOL matches_attribute(DWORD attribute) const;

  std::string root_;                ///< code page 932, with its delimiter
  std::string native_folder_;       ///< where the names are
  std::vector<std::string> names_;  ///< native
  std::size_t next_ = 0;
  std::string name_;  ///< of the entry at hand, code page 932
  std::optional<framework::FileStatus> status_;
};

namespace framework {

/// Whether a name matches a pattern of '*' and '?', code page 932, letter case ignored. "*.*" matches names
/// without a point too.
bool matches_pattern(std::string_view name, std::string_view pattern);

}  // namespace framework
