#include "tool/framework/files/CFileFind.h"

#include <cerrno>

#include "tool/framework/files/attributes.h"
#include "tool/framework/files/last_error.h"
#include "tool/framework/files/native_path.h"
#include "tool/framework/text/cp932.h"

namespace framework {

bool matches_pattern(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  // The last '*' met, and where in the name it would have to give way to one more character.
  std::size_t star = std::string_view::npos;
  std::size_t retry = 0;
  std::size_t n = 0;
  std::size_t p = 0;
  while (n < name.size()) {
    const std::size_t name_next = next_character(name, n);
    const std::size_t pattern_next = next_character(pattern, p);
    const std::string_view wanted = pattern.substr(p, pattern_next - p);
    if (wanted == "*") {
      star = p = pattern_next;
      retry = n;
    } else if (wanted == "?" ||
               (!wanted.empty() && equal_ignoring_case(wanted, name.substr(n, name_next - n)))) {
      p = pattern_next;
      n = name_next;
    } else if (star != std::string_view::npos) {
      p = star;
      n = retry = next_character(name, retry);
    } else {
      return false;
    }
  }
  return pattern.substr(p).find_first_not_of('*') == std::string_view::npos;
}

}  // namespace framework

BOOL CFileFind::FindFile(const char *pattern, DWORD) {
  Close();
  const std::string_view whole = pattern && *pattern ? pattern : "*";
  const std::string_view wanted = framework::file_name(whole);
  root_ = whole.substr(0, whole.size() - wanted.size());
  native_folder_ = root_.empty() ? "." : framework::native_path(root_);
  const auto names = framework::file_system().list(native_folder_.c_str());
  if (!names) {
    SetLastError(static_cast<DWORD>(errno));
    return FALSE;
  }
  for (const char *dots : {".", ".."})
    if (framework::matches_pattern(dots, wanted)) names_.emplace_back(dots);
  for (const std::string &name : *names)
    if (framework::matches_pattern(framework::cp932_path(name), wanted)) names_.push_back(name);
  if (names_.empty()) SetLastError(ENOENT);
  return !names_.empty();
}

BOOL CFileFind::FindNextFile() {
  if (next_ >= names_.size()) return FALSE;
  const std::string &native = names_[next_++];
  name_ = framework::cp932_path(native);
  status_ = framework::file_system().status((native_folder_ + "/" + native).c_str());
  return next_ < names_.size();
}

void CFileFind::Close() {
  names_.clear();
  next_ = 0;
  name_.clear();
  status_.reset();
}

CString CFileFind::GetFileName() const {
  return CString(name_);
}

CString CFileFind::GetFileTitle() const {
  return CString(name_.substr(0, name_.rfind('.')));
}

BOOL CFileFind::matches_attribute(DWORD attribute) const {
  return status_ && (framework::attributes_of(*status_, name_) & attribute) != 0;
}
