#pragma once
// Per-user text values under registry keys, kept in "registry.ini" of the platform's configuration folder.
// Key and value names are compared with letter case ignored; an empty value name is the key's own value.

#include <optional>
#include <string>
#include <string_view>

namespace framework {

/// The text of a value; empty when the key or the value is missing.
std::optional<std::string> read_registry_text(std::string_view key, std::string_view name);

/// Creates the key when missing; false when it cannot be kept.
bool open_registry_key(std::string_view key);

/// Sets a value; false when it cannot be kept.
bool write_registry_text(std::string_view key, std::string_view name, std::string_view text);

}  // namespace framework
