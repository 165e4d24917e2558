#pragma once
// The circle constants of the published results: ten digits, deliberately not the full double precision.
// Every conversion between degrees and radians goes through here.

namespace geometry {

inline constexpr double pi = 3.141592654;
inline constexpr double half_pi = 1.570796327;
inline constexpr double two_pi = 6.283185308;
inline constexpr double degrees_per_radian = 180.0 / pi;

constexpr double to_radians(double degrees) {
  return degrees / 180.0 * pi;
}
constexpr double to_degrees(double radians) {
  return radians / pi * 180.0;
}

}  // namespace geometry
