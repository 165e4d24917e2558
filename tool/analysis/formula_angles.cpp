#include "tool/analysis/formula_angles.h"

#include <algorithm>
#include <cmath>

#include "tool/geometry/arc_tangent.h"
#include "tool/geometry/constants.h"

namespace analysis {
namespace {

double dot(const CPointD &a, const CPointD &b) {
  return a.x * b.x + a.y * b.y;
}
double norm(const CPointD &a) {
  return std::sqrt(dot(a, a));
}

/// Clamping keeps nearly collinear points from asking for the arc cosine of a hair more than 1.
double arc_degrees(double cosine) {
  return std::acos(std::clamp(cosine, -1.0, 1.0)) * 180.0 / geometry::pi;
}

bool has_equal_ratios(const CPointD &v, const CPointD &w) {
  if (v.y != 0.0 && w.y != 0.0 && v.x / v.y == w.x / w.y) return true;
  return v.x != 0.0 && w.x != 0.0 && v.y / v.x == w.y / w.x;
}

/// Well away from parallel the arc tangent gives the size without square roots; the definition by the arc
/// cosine is left for the rest.
bool is_well_apart(double cross, double dot) {
  return std::fabs(cross) > 1e-4 * std::fabs(dot);
}

double degrees_between(double cross, double dot) {
  return geometry::angle_of_legs(std::fabs(cross), dot) * geometry::degrees_per_radian;
}

double nearly_parallel_angle(const CPointD &v, const CPointD &w) {
  if (v == w) return 0.0;
  if (w.x == -v.x && w.y == -v.y) return 180.0;
  if (has_equal_ratios(v, w)) return dot(v, w) > 0.0 ? 0.0 : 180.0;
  const double cosine = dot(v, w) / (norm(v) * norm(w));
  if (cosine >= 1.0) return 0.0;
  if (cosine <= -1.0) return 180.0;
  return v.x * w.y - v.y * w.x >= 0.0 ? arc_degrees(cosine) : -arc_degrees(cosine);
}

}  // namespace

double detail::vertex_angle(double ux, double uy, double vx, double vy) {
  const double cross = vx * uy - vy * ux;
  const double dot = vx * ux + vy * uy;
  if (is_well_apart(cross, dot)) return 180.0 - degrees_between(cross, dot);
  const double lengths = norm({vx, vy}) * norm({ux, uy});
  if (lengths == 0.0) return 0.0;
  return 180.0 - arc_degrees(dot / lengths);
}

double detail::line_angle(double ux, double uy, double vx, double vy) {
  const double cross = ux * vy - uy * vx;
  const double dot = ux * vx + uy * vy;
  if (!is_well_apart(cross, dot)) return nearly_parallel_angle({ux, uy}, {vx, vy});
  return std::copysign(degrees_between(cross, dot), cross);
}

}  // namespace analysis
