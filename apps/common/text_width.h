#pragma once
// How many columns of a terminal a text takes.

#include <string>
#include <string_view>

namespace app {

/// Columns of a UTF-8 text: Japanese and full-width characters take two, combining marks none, half-width
/// katakana one. A broken byte counts as one.
std::size_t display_width(std::string_view utf8);

std::string pad_right(std::string_view utf8, std::size_t width);  ///< blanks after the text
std::string pad_left(std::string_view utf8, std::size_t width);   ///< blanks before it

}  // namespace app
