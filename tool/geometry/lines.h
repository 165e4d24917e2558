#pragma once
// Midpoints, feet of perpendiculars, projections and intersections. Points are image pixels, x to the right,
// y downward. A line ab is infinite; vertical, horizontal and parallel lines are told by exact comparison.

#include <optional>

#include "tool/geometry/truncation.h"

namespace geometry {

// Midpoints ---------------------------------------------------------------------------------------

constexpr CPointD midpoint(CPointD a, CPointD b) {
  return {a.x == b.x ? a.x : (b.x - a.x) * 0.5 + a.x, a.y == b.y ? a.y : (b.y - a.y) * 0.5 + a.y};
}

/// In whole pixels, truncated from a's side: between 3 and 6 lies 4, between 6 and 3 lies 5.
constexpr CPoint integer_midpoint(CPoint a, CPoint b) {
  return {integer_sum(a.x, integer_difference(b.x, a.x) / 2),
          integer_sum(a.y, integer_difference(b.y, a.y) / 2)};
}

// Feet --------------------------------------------------------------------------------------------

/// Foot of the perpendicular from p to line ab; (a.x, p.y) when a and b coincide.
constexpr CPointD foot(CPointD a, CPointD b, CPointD p) {
  if (a.x == b.x) return {a.x, p.y};
  if (a.y == b.y) return {p.x, a.y};
  const double m = (b.y - a.y) / (b.x - a.x);
  const double k = a.y - a.x * m;
  const double w = p.x / m + p.y - k;
  return {w * m / (1.0 + m * m), k + m * m * w / (1.0 + m * m)};
}

/// The same in whole pixels. On an oblique line 0.5 is added to each coordinate before it is truncated.
constexpr CPoint integer_foot(CPoint a, CPoint b, CPoint p) {
  if (a.x == b.x) return {a.x, p.y};
  if (a.y == b.y) return {p.x, a.y};
  return truncate(foot(CPointD(a), CPointD(b), CPointD(p)) + CPointD(0.5, 0.5));
}

/// Intersection of the perpendicular to ab through c with the parallel to ab through d.
constexpr CPointD projection(CPointD a, CPointD b, CPointD c, CPointD d) {
  if (a.x == b.x) return {d.x, c.y};
  if (a.y == b.y) return {c.x, d.y};
  const double n = -(b.x - a.x) / (b.y - a.y);
  const double m = (b.y - a.y) / (b.x - a.x);
  const double k = c.y - c.x * n;
  const double w = d.y - d.x * m - k;
  return {w / (n - m), k + w * n / (n - m)};
}

// Intersections -----------------------------------------------------------------------------------

/// Intersection of line ab with line cd; empty for parallel lines and for two vertical ones.
constexpr std::optional<CPointD> intersection(CPointD a, CPointD b, CPointD c, CPointD d) {
  const CPointD u = b - a;
  const CPointD v = d - c;
  if (u.x == 0.0) {
    if (v.x == 0.0) return std::nullopt;
    const double slope = v.y / v.x;
    return CPointD(a.x, c.y - c.x * slope + a.x * slope);
  }
  const double u_slope = u.y / u.x;
  if (v.x == 0.0) return CPointD(c.x, a.y - a.x * u_slope + c.x * u_slope);
  const double v_slope = v.y / v.x;
  if (v_slope == u_slope) return std::nullopt;
  const double u_axis = a.y - a.x * u_slope;
  const double x = (c.y - c.x * v_slope - u_axis) / (u_slope - v_slope);
  return CPointD(x, u_axis + x * u_slope);
}

/// The same with (0, 0), the empty point, for "no intersection".
constexpr CPointD cross_point(CPointD a, CPointD b, CPointD c, CPointD d) {
  return intersection(a, b, c, d).value_or(CPointD());
}

/// True when p lies in the upright rectangle spanned by a and b, edges included.
constexpr bool in_box(CPointD a, CPointD b, CPointD p) {
  const auto between = [](double s, double t, double value) {
    return (s < t ? s : t) <= value && value <= (s < t ? t : s);
  };
  return between(a.x, b.x, p.x) && between(a.y, b.y, p.y);
}

/// Where segment ab, ends included, meets the infinite line cd.
constexpr std::optional<CPointD> segment_crossing(CPointD a, CPointD b, CPointD c, CPointD d) {
  const auto crossing = intersection(a, b, c, d);
  return crossing && in_box(a, b, *crossing) ? crossing : std::nullopt;
}

}  // namespace geometry
