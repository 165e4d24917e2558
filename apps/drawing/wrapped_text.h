#pragma once
// Text broken into lines that fit a width.

#include <string>
#include <vector>

#include "apps/drawing/sheet.h"

namespace app {

/// Breaks at line feeds, at blanks, and between any two characters that are not ASCII; a word that is too
/// long by itself is broken where it must be. At least one line.
std::vector<std::string> wrapped(const Sheet &sheet, std::string_view utf8, const TextLook &look,
                                 double width);

}  // namespace app
