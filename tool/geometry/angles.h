#pragma once
// Angles in degrees. The image frame has y downward; "counter-clockwise" means as seen on the screen.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "tool/geometry/constants.h"
#include "tool/geometry/distances.h"

namespace geometry {

namespace detail {

/// The rules for directions that are parallel or nearly so.
double nearly_parallel_angle(const CPointD &u, const CPointD &v);

/// Angle of a right triangle's legs, radians in [0, pi]: atan2 for an opposite leg that is not negative,
/// without its care for zeros and infinities.
inline double angle_of_legs(double opposite, double adjacent) {
  const double along = std::abs(adjacent);
  const double acute =
      opposite <= along ? std::atan(opposite / along) : std::numbers::pi / 2.0 - std::atan(along / opposite);
  return adjacent < 0.0 ? std::numbers::pi - acute : acute;
}

}  // namespace detail

/// Signed angle from direction u to direction v, in (-180, 180], positive counter-clockwise: from (1, 0) to
/// (0, 1), which is downward, it is -90. Parallel directions of unequal length give 0 whatever their sense,
/// exactly opposite ones of equal length 180. One zero direction gives not-a-number, two give 0.
///
/// The published definition takes the arc cosine, turns u by plus and by minus that angle and keeps the sign
/// that comes nearer to v. The cross product decides the same without turning anything, and well away from
/// parallel the arc tangent gives the same size without the two square roots.
inline double signed_angle(const CPointD &u, const CPointD &v) {
  const double dot = v.x * u.x + v.y * u.y;
  const double cross = u.x * v.y - u.y * v.x;
  const double across = std::abs(cross);
  if (!(across > 1e-4 * std::abs(dot))) return detail::nearly_parallel_angle(u, v);
  const double size = to_degrees(detail::angle_of_legs(across, dot));
  return cross > 0.0 ? -size : size;
}

/// Signed angle from line a1a2 to line b1b2.
inline double signed_angle(const CPointD &a1, const CPointD &a2, const CPointD &b1, const CPointD &b2) {
  return signed_angle(a2 - a1, b2 - b1);
}

/// Angle at the vertex between the arms towards a and c, 0 to 180; -1 for an arm without length.
inline double angle_at(const CPointD &a, const CPointD &vertex, const CPointD &c) {
  const CPointD u = vertex - a;
  const CPointD v = c - vertex;
  const double lengths = norm(u) * norm(v);
  if (lengths == 0.0) return -1.0;
  return 180.0 - to_degrees(std::acos(std::clamp((v.x * u.x + v.y * u.y) / lengths, -1.0, 1.0)));
}

}  // namespace geometry
