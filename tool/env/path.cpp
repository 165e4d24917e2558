#include "tool/env/path.h"

#include <algorithm>

#include "tool/framework/files/attributes.h"
#include "tool/framework/text/ascii.h"
#include "tool/framework/text/cp932.h"

namespace env {
namespace {

using framework::next_character;

constexpr std::size_t shortest_cut_path = 4;

std::size_t last_character(std::string_view path) {
  std::size_t last = 0;
  for (std::size_t i = 0; i < path.size(); i = next_character(path, i)) last = i;
  return last;
}

bool ends_in_delimiter(std::string_view path) {
  if (path.empty()) return false;
  const char last = path[last_character(path)];
  return last == '\\' || last == '/';
}

}  // namespace

char delimiter_of(std::string_view path) {
  for (std::size_t i = next_character(path, 0); i < path.size(); i = next_character(path, i))
    if (path[i] == '/') return '/';
  return '\\';
}

std::string with_trailing_delimiter(std::string path) {
  if (!path.empty() && !ends_in_delimiter(path)) path += delimiter_of(path);
  return path;
}

std::string without_trailing_delimiter(std::string path) {
  if (path.empty()) return path;
  if (path.size() < shortest_cut_path) return {path.front(), ':', '\\'};
  if (ends_in_delimiter(path)) path.pop_back();
  return path;
}

std::string_view folder_part(std::string_view path) {
  return path.substr(0, path.size() - framework::file_name(path).size());
}

std::string_view drive_part(std::string_view path) {
  const bool has_drive = path.size() >= 2 && framework::is_letter(path[0]) && path[1] == ':';
  return path.substr(0, has_drive ? 2 : 0);
}

std::string_view file_title(std::string_view path) {
  const std::string_view name = framework::file_name(path);
  return name.substr(0, name.rfind('.'));
}

std::string_view file_extension(std::string_view path) {
  const std::string_view name = framework::file_name(path);
  return name.substr(std::min(name.rfind('.'), name.size()));
}

}  // namespace env
