#include "tool/framework/files/registry.h"

#include "tool/framework/files/file_system.h"
#include "tool/framework/files/ini_document.h"
#include "tool/framework/files/read_file.h"
#include "tool/framework/platform.h"

namespace framework {
namespace {

/// Names that an ini key can hold, whatever the value's own name is.
std::string stored_name(std::string_view name) {
  return name.empty() ? "@" : protected_value(name);
}

/// The file, in a folder that exists; empty when there is no such folder.
std::string writable_store() {
  const std::string folder = platform().configuration_folder();
  return !folder.empty() && make_folders(folder) ? folder + "/registry.ini" : "";
}

std::string store() {
  const std::string folder = platform().configuration_folder();
  return folder.empty() ? "" : folder + "/registry.ini";
}

std::optional<IniDocument> read_store(const std::string &path) {
  if (const auto text = read_whole_native_file(path.c_str())) return IniDocument(*text);
  if (file_system().status(path.c_str())) return std::nullopt;  // there, but unreadable: leave it alone
  return IniDocument();
}

}  // namespace

std::optional<std::string> read_registry_text(std::string_view key, std::string_view name) {
  const auto document = read_store(store());
  const auto value = document ? document->find(key, stored_name(name)) : std::nullopt;
  if (!value) return std::nullopt;
  return unprotected_value(*value);
}

bool open_registry_key(std::string_view key) {
  static_cast<void>(key);  // a section appears with its first value
  const std::string path = writable_store();
  return !path.empty() && read_store(path);
}

bool write_registry_text(std::string_view key, std::string_view name, std::string_view text) {
  const std::string path = writable_store();
  auto document = path.empty() ? std::nullopt : read_store(path);
  return document && document->set(key, stored_name(name), protected_value(text)) &&
         replace_file(path, document->text());
}

}  // namespace framework
