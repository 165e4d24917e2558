#pragma once
// Angles in degrees. The image frame has y downward; "counter-clockwise" means as seen on the screen.

#include <algorithm>
#include <cmath>

#include "tool/geometry/constants.h"
#include "tool/geometry/distances.h"

namespace geometry {

namespace detail {

/// Sign and size of the angle from u to v from its cosine. The sign is that of turning u by plus and by minus
/// the angle and seeing which comes nearer to v; the cross product decides the same without sine and cosine,
/// and a cross product of 0 counts as the tie does: positive.
inline double signed_angle_from_cosine(const CPointD &u, const CPointD &v, double cosine) {
  const double angle = std::acos(cosine);
  return to_degrees(u.x * v.y - u.y * v.x > 0.0 ? -angle : angle);
}

/// The rules for lines that are parallel, as far as doubles can tell.
double nearly_parallel_angle(const CPointD &u, const CPointD &v, double cosine);

}  // namespace detail

/// Signed angle from direction u to direction v, in (-180, 180], positive counter-clockwise: from (1, 0) to
/// (0, 1), which is downward, it is -90. Parallel directions of unequal length give 0 whatever their sense,
/// exactly opposite ones of equal length 180. One zero direction gives not-a-number, two give 0.
inline double signed_angle(const CPointD &u, const CPointD &v) {
  const double cosine = (v.x * u.x + v.y * u.y) / (norm(v) * norm(u));
  // Away from a cosine of 1 none of the rules for parallel lines, with their four divisions, can apply.
  if (std::abs(cosine) < 1.0 - 1e-9) [[likely]]
    return detail::signed_angle_from_cosine(u, v, cosine);
  return detail::nearly_parallel_angle(u, v, cosine);
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
