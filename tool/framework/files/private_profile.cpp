#include "tool/framework/files/private_profile.h"

#include <algorithm>
#include <cerrno>
#include <string>

#include "tool/framework/files/file_system.h"
#include "tool/framework/files/ini_document.h"
#include "tool/framework/files/last_error.h"
#include "tool/framework/files/native_path.h"
#include "tool/framework/files/read_file.h"
#include "tool/framework/text/copy_text.h"
#include "tool/framework/text/decimal.h"

namespace {

using framework::IniDocument;

IniDocument read_document(const char *path) {
  return IniDocument(framework::read_whole_file(path).value_or(std::string()));
}

std::string_view without_trailing_blanks(const char *text) {
  const std::string_view view = text ? text : "";
  return view.substr(0, view.find_last_not_of(' ') + 1);
}

/// Names one after the other, each with its zero character.
DWORD copy_names(const std::vector<std::string_view> &names, char *buffer, DWORD size) {
  std::string joined;
  for (const std::string_view name : names) joined.append(name).push_back('\0');
  if (size < 2) {
    framework::copy_text("", buffer, static_cast<int>(size));
    return 0;
  }
  const DWORD length = std::min(static_cast<DWORD>(joined.size()), size - 2);
  std::copy_n(joined.data(), length, buffer);
  buffer[length] = '\0';
  buffer[length + 1] = '\0';
  return length;
}

BOOL failed(int reason) {
  SetLastError(static_cast<DWORD>(reason));
  return FALSE;
}

}  // namespace

DWORD GetPrivateProfileStringA(const char *section, const char *key, const char *fallback, char *buffer,
                               DWORD size, const char *path) {
  if (!buffer || size == 0) return 0;
  size = std::min(size, DWORD{1} << 30);
  const IniDocument document = read_document(path);
  if (!section) return copy_names(document.sections(), buffer, size);
  if (!key) return copy_names(document.keys(section), buffer, size);
  const auto value = document.find(section, key);
  return static_cast<DWORD>(framework::copy_text(value ? *value : without_trailing_blanks(fallback), buffer,
                                                 static_cast<int>(size)));
}

UINT GetPrivateProfileIntA(const char *section, const char *key, int fallback, const char *path) {
  if (!section || !key) return static_cast<UINT>(fallback);
  const IniDocument document = read_document(path);
  const auto value = document.find(section, key);
  return static_cast<UINT>(value && !value->empty() ? framework::whole_number(*value) : fallback);
}

BOOL WritePrivateProfileStringA(const char *section, const char *key, const char *value, const char *path) {
  if (!section || !path || *path == '\0') return failed(EINVAL);
  const std::string native = framework::native_path_for_writing(path);
  const bool exists = framework::file_system().status(native.c_str()).has_value();
  const auto text = framework::read_whole_native_file(native.c_str());
  if (exists && !text) return failed(EACCES);  // never overwrite what could not be read
  IniDocument document(text.value_or(std::string()));
  if (!key)
    document.remove_section(section);
  else if (!value)
    document.remove(section, key);
  else if (!document.set(section, key, value))
    return failed(EINVAL);
  return framework::replace_file(native, document.text()) ? TRUE : failed(errno);
}
