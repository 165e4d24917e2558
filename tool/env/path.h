#pragma once
// The parts of paths, code page 932. Second bytes of two-byte characters are no delimiters.

#include <string>
#include <string_view>

namespace env {

/// The delimiter of a path: '/' when one occurs after the first character, else '\'.
char delimiter_of(std::string_view path);

/// With a delimiter at the end; a path that ends in either delimiter stays as it is, and so does an empty
/// one.
std::string with_trailing_delimiter(std::string path);

/// Without a delimiter at the end. A path shorter than 4 bytes becomes the drive root of its first character
/// ("C:" gives "C:\"); an empty one stays empty.
std::string without_trailing_delimiter(std::string path);

/// Everything up to and including the last delimiter or drive colon.
std::string_view folder_part(std::string_view path);
/// "C:" or nothing.
std::string_view drive_part(std::string_view path);
/// The file name without folder and extension.
std::string_view file_title(std::string_view path);
/// The extension with its dot; empty when there is none.
std::string_view file_extension(std::string_view path);

}  // namespace env
