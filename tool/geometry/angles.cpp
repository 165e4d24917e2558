#include "tool/geometry/angles.h"

namespace geometry::detail {

double nearly_parallel_angle(const CPointD &u, const CPointD &v) {
  if (u == v) return 0.0;
  if (u.x == -v.x && u.y == -v.y) return 180.0;
  if (u.y != 0.0 && v.y != 0.0 && v.x / v.y == u.x / u.y) return 0.0;
  if (u.x != 0.0 && v.x != 0.0 && u.y / u.x == v.y / v.x) return 0.0;
  const double cosine = (v.x * u.x + v.y * u.y) / (norm(v) * norm(u));
  if (cosine >= 1.0) return 0.0;
  if (cosine <= -1.0) return 180.0;
  const double angle = std::acos(cosine);
  // A cross product of 0 stands for the tie between the two turns, which counts as positive.
  return to_degrees(u.x * v.y - u.y * v.x > 0.0 ? -angle : angle);
}

}  // namespace geometry::detail
