#pragma once
// The one table of faces: which installed font stands for which named one. Nothing is left to the system's
// guess.

#include <string>
#include <string_view>
#include <vector>

namespace qt_backend {

struct Substitution {
  std::string_view name;       ///< the face that is asked for, UTF-8
  std::string_view family;     ///< the installed family that stands for it
  std::string_view companion;  ///< for characters which that one lacks
  /// Above and below the baseline, parts of the character height. Those of the face asked for, so that a line
  /// of text is as high as it would be there.
  double ascent;
  double descent;
};

/// The row of a face, letter case aside; an unknown or empty name has the row of the Japanese gothic.
const Substitution &substitution_for(std::string_view face_utf8);

/// Every family that the table names, once.
std::vector<std::string_view> substituted_families();

}  // namespace qt_backend
