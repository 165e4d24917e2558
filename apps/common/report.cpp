#include "apps/common/report.h"

#include <cmath>

namespace app {

Tone tone_of_deviation(double sd_units) {
  const double distance = std::abs(sd_units);
  if (!(distance > 1.0)) return std::isnan(distance) ? Tone::plain : Tone::within;
  if (!(distance > 2.0)) return Tone::beyond_one;
  return distance > 3.0 ? Tone::beyond_three : Tone::beyond_two;
}

}  // namespace app
