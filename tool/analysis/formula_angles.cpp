#include "tool/analysis/formula_angles.h"

#include <algorithm>
#include <cmath>

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

/// Whether the components stand in exactly equal ratios. Quotients can only be equal where the cross product
/// nearly vanishes, so most pairs need no division.
bool has_equal_ratios(const CPointD &v, const CPointD &w) {
  constexpr double near_parallel = 1e-12;
  const double first = v.x * w.y;
  const double second = v.y * w.x;
  if (std::fabs(first - second) > near_parallel * (std::fabs(first) + std::fabs(second))) return false;
  if (v.y != 0.0 && w.y != 0.0 && v.x / v.y == w.x / w.y) return true;
  return v.x != 0.0 && w.x != 0.0 && v.y / v.x == w.y / w.x;
}

}  // namespace

double formula_vertex_angle(const CPointD &p0, const CPointD &p1, const CPointD &p2) {
  const CPointD u = p2 - p1;
  const CPointD v = p1 - p0;
  const double lengths = norm(u) * norm(v);
  if (lengths == 0.0) return 0.0;
  return 180.0 - arc_degrees(dot(u, v) / lengths);
}

double formula_line_angle(const CPointD &p0, const CPointD &p1, const CPointD &p2, const CPointD &p3) {
  const CPointD v = p1 - p0;
  const CPointD w = p3 - p2;
  if (v == w) return 0.0;
  if (w.x == -v.x && w.y == -v.y) return 180.0;
  if (has_equal_ratios(v, w)) return dot(v, w) > 0.0 ? 0.0 : 180.0;
  const double cosine = dot(v, w) / (norm(v) * norm(w));
  if (cosine >= 1.0) return 0.0;
  if (cosine <= -1.0) return 180.0;
  const double angle = arc_degrees(cosine);
  return v.x * w.y - v.y * w.x >= 0.0 ? angle : -angle;
}

}  // namespace analysis
