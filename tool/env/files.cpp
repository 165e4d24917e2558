#include "tool/env/files.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <string>

#include "tool/env/path.h"
#include "tool/framework/files/CFile.h"
#include "tool/framework/files/CFileFind.h"
#include "tool/framework/files/attributes.h"
#include "tool/framework/files/file_system.h"
#include "tool/framework/files/last_error.h"
#include "tool/framework/files/native_path.h"
#include "tool/framework/files/system_paths.h"

namespace env {
namespace {

using framework::file_system;

constexpr int deepest_folder = 100;

std::string_view view_of(const char *text) {
  return text ? text : "";
}

/// Passes a result on and keeps the reason of a failure as the last error.
bool noted(bool done) {
  if (!done) SetLastError(static_cast<DWORD>(errno));
  return done;
}

std::string without_trailing_slash(std::string path) {
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return path;
}

std::string native_folder(std::string_view path) {
  return without_trailing_slash(framework::native_path(path));
}

std::string native_folder_for_writing(std::string_view path) {
  return without_trailing_slash(framework::native_path_for_writing(path));
}

std::string child(const std::string &folder, const std::string &name) {
  return std::string(folder).append("/").append(name);
}

bool lies_within(const std::string &path, const std::string &folder) {
  return path == folder || path.starts_with(folder == "/" ? folder : folder + "/");
}

bool copy_native_tree(const std::string &source, const std::string &target, int depth) {
  if (depth > deepest_folder || !framework::make_folders(target)) return false;
  const auto names = file_system().list(source.c_str());
  if (!names) return false;
  return std::all_of(names->begin(), names->end(), [&](const std::string &name) {
    const std::string from = child(source, name);
    const std::string to = child(target, name);
    const auto status = file_system().status(from.c_str());
    return status && status->is_folder ? copy_native_tree(from, to, depth + 1)
                                       : framework::copy_file(from, to, false);
  });
}

void empty_native_folder(const std::string &folder, int depth) {
  const auto names = file_system().list(folder.c_str());
  if (!names || depth > deepest_folder) return;
  for (const std::string &name : *names) {
    const std::string path = child(folder, name);
    const auto status = file_system().status(path.c_str());
    if (status && status->is_folder && !status->is_link) {
      empty_native_folder(path, depth + 1);
      file_system().remove_folder(path.c_str());
    } else if (!status || status->is_link || !status->read_only) {
      file_system().remove_file(path.c_str());
    }
  }
}

}  // namespace

bool file_exists(const char *path) {
  return file_system().status(framework::native_path(view_of(path)).c_str()).has_value();
}

std::uint32_t file_size(const char *path) {
  CFile file;
  if (!file.Open(path, CFile::modeRead | CFile::shareDenyNone)) return 0;
  try {
    const ULONGLONG size = file.SeekToEnd();
    return static_cast<std::uint32_t>(std::min<ULONGLONG>(size, std::numeric_limits<std::uint32_t>::max()));
  } catch (const CException &) {
    return 0;
  }
}

void remove_file(const char *path) {
  try {
    if (file_exists(path)) CFile::Remove(path);
  } catch (const CException &) {  // a file that cannot be removed stays
  }
}

bool copy_file(const char *source, const char *target, bool fail_if_exists) {
  return noted(framework::copy_file(framework::native_path(view_of(source)),
                                    framework::native_path_for_writing(view_of(target)), fail_if_exists));
}

bool copy_file_writable(const char *source, const char *target, bool fail_if_exists) {
  if (!copy_file(source, target, fail_if_exists)) return false;
  SetFileAttributesA(target, FILE_ATTRIBUTE_NORMAL);
  return true;
}

bool make_folders(const char *path) {
  return noted(framework::make_folders(native_folder_for_writing(view_of(path))));
}

bool copy_tree(const char *source, const char *target) {
  const std::string from = native_folder(view_of(source));
  const std::string to = native_folder_for_writing(view_of(target));
  return noted(!from.empty() && !lies_within(to, from) && copy_native_tree(from, to, 0));
}

bool copy_folder_files(const char *source, const char *target) {
  if (!SetCurrentDirectoryA(source) || !make_folders(target)) return false;
  const std::string from = with_trailing_delimiter(std::string(view_of(source)));
  const std::string to = with_trailing_delimiter(std::string(view_of(target)));
  CFileFind finder;
  for (BOOL more = finder.FindFile("*"); more;) {
    more = finder.FindNextFile();
    if (finder.IsDots() || finder.IsDirectory() || finder.IsSystem() || finder.IsHidden()) continue;
    const CString name = finder.GetFileName();
    if (!copy_file(CString(from) + name, CString(to) + name, false)) return false;
  }
  return true;
}

void delete_folder(const char *path) {
  const std::string folder = native_folder(view_of(path));
  if (folder.empty()) return;
  empty_native_folder(folder, 0);
  file_system().remove_folder(folder.c_str());
}

void empty_folder(const char *path) {
  const std::string folder = native_folder(view_of(path));
  if (!folder.empty()) empty_native_folder(folder, 0);
}

}  // namespace env
