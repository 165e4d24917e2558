#pragma once
// From the application's paths to the disk's and back.
//
// The application's paths are code page 932 with '\' or '/', with or without a drive letter; second bytes
// 0x5C of two-byte characters are no delimiters. Native paths are UTF-8 with '/'. Without a drive letter a
// path stands for the native path of the same parts, so "/home/user/x" and "data\x" work as they are; a drive
// letter is replaced by the folder that the platform names for it.

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace framework {

/// The native path, letter for letter; whether anything is there does not matter. Empty: no path, an unknown
/// drive, or bytes that are no code page 932 text.
std::string exact_native_path(std::string_view cp932_path);

/// The native path of what the application means. What exists under the exact name comes first; otherwise
/// each missing part is searched in its folder with letter case ignored (definition folders come from disks
/// that ignore it), the first match in byte order counting. Parts that are not found stay as they are, for
/// creating them. A path that leads nowhere when read as code page 932 but does so byte for byte is taken
/// byte for byte: folders may have names that the code page cannot express.
std::string native_path(std::string_view cp932_path);

/// The same, and the folder of a drive named in the path is created when missing.
std::string native_path_for_writing(std::string_view cp932_path);

/// Code page 932 of a native path; where that is impossible, the bytes themselves (see native_path).
std::string cp932_path(std::string_view native_path);

/// The exact native path in a fixed buffer, for the common case: only ASCII. Null when the path needs the
/// other way.
class ShortNativePath {
 public:
  const char *convert(const char *cp932_path);

 private:
  std::array<char, 1024> buffer_;
};

}  // namespace framework
