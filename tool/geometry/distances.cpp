#include "tool/geometry/distances.h"

#include <cstring>

namespace geometry {

namespace {

bool same_sense(double line_from, double line_to, double from, double to) {
  return (line_to < line_from && to < from) || (line_to >= line_from && to >= from);
}

}  // namespace

double projected_length(CPointD a, CPointD b, CPointD p, CPointD q, double scale, bool with_sign) {
  if (a == b) return 0.0;
  const CPointD from = foot(a, b, p);
  const CPointD to = foot(a, b, q);
  // Compared byte by byte, so that two feet that are both not a number count as one.
  const double from_bytes[2] = {from.x, from.y};
  const double to_bytes[2] = {to.x, to.y};
  // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison,cert-exp42-c,cert-flp37-c)
  if (std::memcmp(from_bytes, to_bytes, sizeof from_bytes) == 0) return 0.0;
  const double projected = length(from, to, scale);
  if (!with_sign) return projected;
  const bool along = a.x == b.x ? same_sense(a.y, b.y, from.y, to.y) : same_sense(a.x, b.x, from.x, to.x);
  return along ? projected : -projected;
}

double triangle_area(CPoint a, CPoint b, CPoint c, double scale) {
  const double ab = integer_length(a, b, scale);
  const double bc = integer_length(b, c, scale);
  const double ca = integer_length(c, a, scale);
  const double half = (ab + bc + ca) * 0.5;
  const double square = (half - ca) * ((half - bc) * ((half - ab) * half));
  return square < 0.0 ? 0.0 : std::sqrt(square);  // rounding may leave flat triangles just below zero
}

}  // namespace geometry
