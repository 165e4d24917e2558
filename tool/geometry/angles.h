#pragma once
// Angles in degrees. The image frame has y downward; "counter-clockwise" means as seen on the screen.

#include <algorithm>
#include <cmath>

#include "tool/geometry/arc_tangent.h"
#include "tool/geometry/constants.h"
#include "tool/geometry/distances.h"
#include "tool/geometry/pair.h"

namespace geometry {

namespace detail {

/// The rules for directions that are parallel or nearly so.
double nearly_parallel_angle(const CPointD &u, const CPointD &v);

/// Kept out of line: inlined into its callers it makes them pass the directions through memory, which costs
/// more than the call.
[[gnu::noinline]] inline double signed_angle(Pair u, Pair v) {
  const Pair alike = u * v;
  const Pair crosswise = u * Pair{v[1], v[0]};
  const double dot = alike[0] + alike[1];
  const double cross = crosswise[0] - crosswise[1];
  const double across = std::abs(cross);
  if (!(across > 1e-4 * std::abs(dot))) [[unlikely]]
    return nearly_parallel_angle({u[0], u[1]}, {v[0], v[1]});
  return std::copysign(angle_of_legs(across, dot), -cross) * degrees_per_radian;
}

}  // namespace detail

/// Signed angle from direction u to direction v, in (-180, 180], positive counter-clockwise: from (1, 0) to
/// (0, 1), which is downward, it is -90. Parallel directions of unequal length give 0 whatever their sense,
/// exactly opposite ones of equal length 180. One zero direction gives not-a-number, two give 0.
///
/// The published definition takes the arc cosine, turns u by plus and by minus that angle and keeps the sign
/// that comes nearer to v (a tie: positive). The cross product decides the same without turning anything, and
/// well away from parallel the arc tangent gives the same size without the two square roots.
inline double signed_angle(const CPointD &u, const CPointD &v) {
  return detail::signed_angle(Pair{u.x, u.y}, Pair{v.x, v.y});
}

/// Signed angle from line a1a2 to line b1b2.
inline double signed_angle(const CPointD &a1, const CPointD &a2, const CPointD &b1, const CPointD &b2) {
  return signed_angle(a2 - a1, b2 - b1);
}
/// Between directions as pairs.
inline double signed_angle(Pair u, Pair v) {
  return detail::signed_angle(u, v);
}
/// The same between whole pixels, whose differences are exact.
inline double signed_angle(const POINT &a1, const POINT &a2, const POINT &b1, const POINT &b2) {
  return detail::signed_angle(pair_of(a2) - pair_of(a1), pair_of(b2) - pair_of(b1));
}

/// Angle at the vertex between the arms towards a and c, 0 to 180; -1 for an arm without length.
inline double angle_at(CPointD a, CPointD vertex, CPointD c) {
  const CPointD u = vertex - a;
  const CPointD v = c - vertex;
  const double lengths = norm(u) * norm(v);
  if (lengths == 0.0) return -1.0;
  return 180.0 - to_degrees(std::acos(std::clamp((v.x * u.x + v.y * u.y) / lengths, -1.0, 1.0)));
}

}  // namespace geometry
