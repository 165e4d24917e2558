#include "tool/geometry/angles.h"

namespace geometry::detail {

double nearly_parallel_angle(const CPointD &u, const CPointD &v, double cosine) {
  if (u == v) return 0.0;
  if (u == v * -1.0) return 180.0;
  if (u.y != 0.0 && v.y != 0.0 && v.x / v.y == u.x / u.y) return 0.0;
  if (u.x != 0.0 && v.x != 0.0 && u.y / u.x == v.y / v.x) return 0.0;
  if (cosine >= 1.0) return 0.0;
  if (cosine <= -1.0) return 180.0;
  return signed_angle_from_cosine(u, v, cosine);
}

}  // namespace geometry::detail
