#pragma once
// The two angles of the formula language. They differ from the plane geometry's in their degenerate cases.

#include "tool/geometry/CPointD.h"

namespace analysis {

namespace detail {

// From the direction into the vertex, or of the first line, to the other one: bare coordinates stay in
// registers.
double vertex_angle(double ux, double uy, double vx, double vy);
double line_angle(double ux, double uy, double vx, double vy);

}  // namespace detail

/// angle1 and angle3: the angle at p1 between the arms to p0 and p2, [0, 180] degrees; 0 when an arm has no
/// length.
inline double formula_vertex_angle(CPointD p0, CPointD p1, CPointD p2) {
  return detail::vertex_angle(p1.x - p0.x, p1.y - p0.y, p2.x - p1.x, p2.y - p1.y);
}

/// angle2 and angle4: the angle from direction p0-p1 to direction p2-p3 in degrees, (-180, 180]; positive
/// when their cross product is (clockwise on the screen, y downward). Parallel directions give exactly 0 or
/// 180; a line without length gives not-a-number.
inline double formula_line_angle(CPointD p0, CPointD p1, CPointD p2, CPointD p3) {
  return detail::line_angle(p1.x - p0.x, p1.y - p0.y, p3.x - p2.x, p3.y - p2.y);
}

}  // namespace analysis
