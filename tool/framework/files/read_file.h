#pragma once
// Reading a whole file, the way definition files are read at every call.

#include <cstddef>
#include <optional>
#include <string>

namespace framework {

inline constexpr std::size_t largest_whole_file = std::size_t{64} << 20;

/// The bytes of the plain file at a code page 932 path. Empty when it is missing or unreadable, is a folder
/// or a device, or is larger than `largest_whole_file`. A file that shrinks meanwhile gives what is left of
/// it.
std::optional<std::string> read_whole_file(const char *cp932_path);

/// The same for a native path.
std::optional<std::string> read_whole_native_file(const char *native_path);

}  // namespace framework
