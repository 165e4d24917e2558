#pragma once
// How one lateral tracing is laid over another: by a line that both have, and a point of it that stays in
// place.

#include <string>

#include "apps/common/tracing_file.h"
#include "tool/tool.h"

namespace app {

/// The line that two tracings are laid over each other by.
struct Registration {
  std::string name;    ///< as the user wrote it
  unsigned mode = 0;   ///< 0: two landmarks; 1: Ba-N at the facial centre; 2: Ba-N at N
  unsigned line[2]{};  ///< landmark numbers of the line
  unsigned at = 0;     ///< landmark that stays in place (mode 0)
};

/// "S-N", "ANS-PNS@A", "Ba-N" (at the facial centre) or "Ba-N@N"; without "@" the first landmark stays in
/// place. Throws InputError.
Registration parse_registration(const std::string &text);

/// Throws InputError when a landmark that the registration needs is not placed.
void require_landmarks(const TracingFile &tracing, const Registration &registration);

/// How points of the second tracing come onto the film of the first.
struct Placement {
  tagDPOINT base{};  ///< of the first film
  tagDPOINT own{};   ///< of the second, falls on the base
  double angle = 0;  ///< radians, as the superimposition operations take it
  double factor = 1;

  CPoint on_first_film(CPoint second) const;
};

Placement registered(const tagPOINTLAT &first, const tagPOINTLAT &second, const Registration &on);

}  // namespace app
