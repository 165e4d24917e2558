#include "tool/geometry/transforms.h"

#include <algorithm>
#include <cmath>

#include "tool/geometry/angles.h"
#include "tool/geometry/constants.h"
#include "tool/geometry/distances.h"
#include "tool/geometry/lines.h"
#include "tool/geometry/truncation.h"

namespace geometry {

namespace {

/// The direction a -> b turned by `angle`, split as the published results are: cosine, minus sine, and the
/// signs of the quadrant to be applied last.
struct TurnedDirection {
  double cosine;
  double sine;
  double sign_x;
  double sign_y;
};

TurnedDirection turned_direction(CPointD a, CPointD b, double angle) {
  const double sign_x = a.x <= b.x ? -1.0 : 1.0;
  const double sign_y = a.y <= b.y ? -1.0 : 1.0;
  const bool same_signs = sign_x * sign_y == 1.0;
  const double rise = same_signs ? a.y - b.y : b.y - a.y;
  const double base = b.x == a.x ? -half_pi : std::atan(rise / (b.x - a.x));
  const double turn = to_radians(angle);
  const double final_angle = same_signs ? pi + (base - turn) : base + turn + pi;
  return {std::cos(final_angle), std::sin(final_angle), sign_x, sign_y};
}

}  // namespace

CPointD turned_offset(CPointD a, CPointD b, CPointD c, double len, double angle, double scale) {
  if (scale == 0.0) return b;
  const TurnedDirection e = turned_direction(a, b, angle);
  return {c.x + e.cosine * len / scale * e.sign_x, c.y - e.sine * len / scale * e.sign_y};
}

CPointD turned_offset(CPointD a, CPointD b, double len, double angle, double scale) {
  return turned_offset(a, b, b, len, angle, scale);
}

CPointD turned_offset_px(CPointD a, CPointD b, CPointD c, double len, double angle) {
  const TurnedDirection e = turned_direction(a, b, angle);
  return {c.x + e.cosine * len * e.sign_x, c.y - e.sine * len * e.sign_y};
}

CPoint integer_moved(CPoint a, CPoint b, CPoint c, double k) {
  const CPoint step = truncate((CPointD(b) - CPointD(a)) * k);
  return {integer_sum(c.x, step.x), integer_sum(c.y, step.y)};
}

CPointD rotated(CPointD centre, CPointD p, double angle, double scale) {
  if (scale == 0.0) return centre;
  const double turn = angle < 0.0 ? angle + 360.0 : angle;
  if (turn == 0.0) return p;
  const CPointD opposite = turned_offset(p, centre, 100.0, 0.0, scale);
  return turned_offset(opposite, centre, length(centre, p, scale), turn, scale);
}

CPointD rotated_scaled(CPointD centre, CPointD p, double angle, double factor) {
  const double turn = angle < 0.0 ? angle + 360.0 : angle;
  if (turn == 0.0) return factor == 1.0 ? p : moved(centre, p, centre, std::abs(factor));
  const CPointD opposite = turned_offset(p, centre, 100.0, 0.0, factor);
  return turned_offset_px(opposite, centre, centre, length(centre, p, factor), turn);
}

CPointD whole_pixel_step(CPointD a, CPointD b, double r) {
  const double sign_x = b.x <= a.x ? -1.0 : 1.0;
  const double sign_y = b.y <= a.y ? -1.0 : 1.0;
  if (a.x == b.x) return {a.x, a.y + framework::to_int(r) * sign_y};
  if (a.y == b.y) return {a.x + framework::to_int(r) * sign_x, a.y};
  const double m = (b.y - a.y) / (b.x - a.x);
  const double offset_x = std::sqrt(r * r / (m * m + 1.0));
  const double offset_y = std::sqrt(r * r - offset_x * offset_x);
  return {a.x + framework::to_int(offset_x) * sign_x, a.y + framework::to_int(offset_y) * sign_y};
}

CPoint near_trace_point(CPoint a, CPoint b, double len) {
  const CPointD start(a);
  const CPointD right(start.x + 100.0, start.y);
  const double angle = angle_at(right, start, CPointD(b));
  // Every foot on the horizontal through a lies at a's height.
  const double turn = a.y > b.y ? 360.0 - angle : angle;
  const CPoint reached = truncate(turned_offset_px(start, right, start, len, turn));
  return {std::max(reached.x, 0), std::max(reached.y, 0)};
}

}  // namespace geometry
