#include "tool/framework/files/system_paths.h"

#include <algorithm>
#include <cerrno>
#include <string>

#include "tool/framework/files/file_system.h"
#include "tool/framework/files/last_error.h"
#include "tool/framework/files/native_path.h"
#include "tool/framework/platform.h"
#include "tool/framework/text/copy_text.h"

namespace {

int buffer_size(DWORD size) {
  return static_cast<int>(std::min(size, DWORD{1} << 30));
}

DWORD copy_whole(const std::string &text, DWORD size, char *buffer) {
  if (text.size() >= size) return text.empty() ? 0 : static_cast<DWORD>(text.size() + 1);
  return static_cast<DWORD>(framework::copy_text(text, buffer, buffer_size(size)));
}

}  // namespace

DWORD GetModuleFileNameA(void *, char *buffer, DWORD size) {
  return static_cast<DWORD>(
      framework::copy_text(framework::platform().module_path(), buffer, buffer_size(size)));
}

DWORD GetTempPathA(DWORD size, char *buffer) {
  return copy_whole(framework::platform().temporary_path(), size, buffer);
}

DWORD GetCurrentDirectoryA(DWORD size, char *buffer) {
  return copy_whole(framework::cp932_path(framework::file_system().current_folder()), size, buffer);
}

BOOL SetCurrentDirectoryA(const char *path) {
  const std::string native = framework::native_path(path ? path : "");
  if (framework::file_system().set_current_folder(native.c_str())) return TRUE;
  SetLastError(static_cast<DWORD>(errno));
  return FALSE;
}
