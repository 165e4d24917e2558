#include "tool/framework/files/attributes.h"

#include <cerrno>

#include "tool/framework/files/last_error.h"
#include "tool/framework/files/native_path.h"
#include "tool/framework/text/cp932.h"

namespace framework {

std::string_view file_name(std::string_view path) {
  std::size_t begin = 0;
  for (std::size_t i = 0; i < path.size(); i = next_character(path, i))
    if (path[i] == '\\' || path[i] == '/' || (path[i] == ':' && i == 1)) begin = i + 1;
  return path.substr(begin);
}

DWORD attributes_of(const FileStatus &status, std::string_view path) {
  const std::string_view name = file_name(path);
  DWORD attributes = 0;
  if (status.read_only) attributes |= FILE_ATTRIBUTE_READONLY;
  if (name.starts_with('.') && name != "." && name != "..") attributes |= FILE_ATTRIBUTE_HIDDEN;
  if (status.is_folder) attributes |= FILE_ATTRIBUTE_DIRECTORY;
  return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

}  // namespace framework

DWORD GetFileAttributesA(const char *path) {
  const std::string_view name = path ? path : "";
  const auto status = framework::file_system().status(framework::native_path(name).c_str());
  if (status) return framework::attributes_of(*status, name);
  SetLastError(static_cast<DWORD>(errno));
  return INVALID_FILE_ATTRIBUTES;
}

BOOL SetFileAttributesA(const char *path, DWORD attributes) {
  const std::string native = framework::native_path(path ? path : "");
  if (framework::file_system().set_read_only(native.c_str(), (attributes & FILE_ATTRIBUTE_READONLY) != 0))
    return TRUE;
  SetLastError(static_cast<DWORD>(errno));
  return FALSE;
}
