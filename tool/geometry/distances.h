#pragma once
// Lengths and areas. Points are image pixels; `scale` is millimetres per pixel, and every result is in
// millimetres (square millimetres for areas). Scale 1 gives pixels.

#include <cmath>

#include "tool/geometry/lines.h"
#include "tool/geometry/truncation.h"

namespace geometry {

inline double norm(CPointD v) {
  return std::sqrt(v.x * v.x + v.y * v.y);
}

inline double length(CPointD a, CPointD b, double scale) {
  return norm(b - a) * scale;
}

/// The same on whole pixels: the differences are formed in 32 bits.
inline double integer_length(CPoint a, CPoint b, double scale) {
  return norm(CPointD(integer_difference(b.x, a.x), integer_difference(b.y, a.y))) * scale;
}

/// Distance of p from line ab, never negative; coinciding a and b count as a vertical line.
inline double distance_to_line(CPointD a, CPointD b, CPointD p, double scale) {
  return length(p, foot(a, b, p), scale);
}

/// Length of the projection of segment pq onto line ab. When `with_sign`, negative where pq runs against ab.
/// 0 when a and b coincide or the projections of p and q do.
double projected_length(CPointD a, CPointD b, CPointD p, CPointD q, double scale, bool with_sign);

/// Area of triangle abc by Heron's formula; 0 for points on one line.
double triangle_area(CPoint a, CPoint b, CPoint c, double scale);

}  // namespace geometry
