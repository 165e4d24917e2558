#include "tool/framework/files/native_path.h"

#include <algorithm>

#include "tool/framework/files/file_system.h"
#include "tool/framework/platform.h"
#include "tool/framework/text/ascii.h"
#include "tool/framework/text/cp932.h"

namespace framework {
namespace {

bool has_drive(std::string_view path) {
  return path.size() >= 2 && is_letter(path[0]) && path[1] == ':';
}

/// Turns every '\' that is a character of its own into '/'.
void unify_delimiters(std::string &path) {
  for (std::size_t i = 0; i < path.size(); i = next_character(path, i))
    if (path[i] == '\\') path[i] = '/';
}

bool exists(const std::string &path) {
  return !path.empty() && file_system().status(path.c_str());
}

std::string folder_of(const std::string &path) {
  const std::size_t end = path.rfind('/');
  if (end == std::string::npos) return ".";
  return end == 0 ? "/" : path.substr(0, end);
}

/// For names in UTF-8, where no byte of a longer character looks like a letter.
bool same_name(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

/// A name of the folder that differs from `name` only in letter case.
std::optional<std::string> find_name(const std::string &folder, std::string_view name) {
  const auto names = file_system().list(folder.empty() ? "." : folder.c_str());
  if (!names) return std::nullopt;
  const auto found = std::find_if(names->begin(), names->end(),
                                  [&](const std::string &other) { return same_name(other, name); });
  if (found == names->end()) return std::nullopt;
  return *found;
}

/// The path with each part that does not exist replaced by one that differs in letter case, as far as there
/// are any.
std::string with_existing_case(const std::string &path) {
  std::string result;
  for (std::size_t begin = 0; begin < path.size();) {
    const std::size_t name_begin = std::min(path.find_first_not_of('/', begin), path.size());
    const std::size_t name_end = std::min(path.find('/', name_begin), path.size());
    const std::string_view name = std::string_view(path).substr(name_begin, name_end - name_begin);
    result.append(path, begin, name_begin - begin);
    const std::string folder = result;
    result += name;
    if (!name.empty() && !exists(result)) {
      const auto other = find_name(folder, name);
      if (!other) return result.append(path, name_end);  // nothing below a missing part
      result = folder + *other;
    }
    begin = name_end;
  }
  return result;
}

/// Whether a path says where to find or to create something.
bool leads_somewhere(const std::string &path) {
  return exists(path) || exists(folder_of(path));
}

}  // namespace

std::string exact_native_path(std::string_view cp932_path) {
  std::string rest(cp932_path.substr(0, cp932_path.find('\0')));
  std::string drive;
  if (has_drive(rest)) {
    drive = platform().drive_folder(upper(rest[0]));
    if (drive.empty()) return {};
    drive += '/';
    rest.erase(0, 2);
  }
  unify_delimiters(rest);
  auto converted = utf8_from_cp932(rest);
  if (!converted) return {};
  return drive + converted->substr(
                     drive.empty() ? 0 : std::min(converted->find_first_not_of('/'), converted->size()));
}

std::string native_path(std::string_view cp932_path) {
  std::string path = exact_native_path(cp932_path);
  if (exists(path)) return path;
  path = with_existing_case(path);
  if (is_ascii(cp932_path) || leads_somewhere(path)) return path;
  std::string as_it_is(cp932_path);
  return leads_somewhere(as_it_is) ? as_it_is : path;
}

std::string native_path_for_writing(std::string_view cp932_path) {
  if (has_drive(cp932_path)) make_folders(platform().drive_folder(upper(cp932_path[0])));
  return native_path(cp932_path);
}

std::string cp932_path(std::string_view native_path) {
  return cp932_from_utf8(native_path).value_or(std::string(native_path));
}

const char *ShortNativePath::convert(const char *cp932_path) {
  if (has_drive(std::string_view(cp932_path, cp932_path[0] == '\0' ? 0 : 2))) return nullptr;
  std::size_t length = 0;
  for (; cp932_path[length] != '\0'; ++length) {
    const char c = cp932_path[length];
    if (static_cast<unsigned char>(c) >= 0x80 || length + 1 == buffer_.size()) return nullptr;
    buffer_[length] = c == '\\' ? '/' : c;
  }
  buffer_[length] = '\0';
  return buffer_.data();
}

}  // namespace framework
