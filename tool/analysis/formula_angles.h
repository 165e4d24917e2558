#pragma once
// The two angles of the formula language. They differ from the plane geometry's in their degenerate cases.

#include "tool/geometry/CPointD.h"

namespace analysis {

/// angle1 and angle3: the angle at p1 between the arms to p0 and p2, [0, 180] degrees; 0 when an arm has no
/// length.
double formula_vertex_angle(const CPointD &p0, const CPointD &p1, const CPointD &p2);

/// angle2 and angle4: the angle from direction p0-p1 to direction p2-p3 in degrees, (-180, 180]; positive
/// when v.x w.y - v.y w.x is (clockwise on the screen, y downward). Parallel directions give exactly 0 or
/// 180; a line without length gives not-a-number.
double formula_line_angle(const CPointD &p0, const CPointD &p1, const CPointD &p2, const CPointD &p3);

}  // namespace analysis
