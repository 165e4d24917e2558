#pragma once
// File attributes in the application's form. A leading dot makes a file hidden, missing rights to write make
// it read-only, and no file is a system file.

#include <string_view>

#include "tool/framework/files/file_system.h"
#include "tool/framework/types.h"

inline constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
inline constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x02;
inline constexpr DWORD FILE_ATTRIBUTE_SYSTEM = 0x04;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 0x20;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
inline constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

/// The attributes at a code page 932 path; INVALID_FILE_ATTRIBUTES when nothing is there.
DWORD GetFileAttributesA(const char *path);
/// Sets or takes away the right to write; the other attributes cannot be changed. FALSE when that fails.
BOOL SetFileAttributesA(const char *path, DWORD attributes);

namespace framework {

/// The part of a path after its last delimiter or drive colon; second bytes of two-byte characters are no
/// delimiters.
std::string_view file_name(std::string_view path);

/// FILE_ATTRIBUTE_... of a file with this status and path; FILE_ATTRIBUTE_NORMAL when there are none.
DWORD attributes_of(const FileStatus &status, std::string_view path);

}  // namespace framework
