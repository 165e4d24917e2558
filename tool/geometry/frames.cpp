#include "tool/geometry/frames.h"

#include <cmath>

#include "tool/geometry/constants.h"
#include "tool/geometry/distances.h"
#include "tool/geometry/lines.h"

namespace geometry {

namespace {

struct ArmOffset {
  double distance;  ///< of d from the arm's line, pixels
  double sign;      ///< 1 while d projects strictly inside the arm
};

ArmOffset oblique_arm_offset(CPoint a, CPoint end, CPoint d) {
  const CPoint on_arm = truncate(foot(CPointD(a), CPointD(end), CPointD(d)));
  const double arm = integer_length(a, end, 1.0);
  const bool inside = integer_length(end, on_arm, 1.0) < arm && integer_length(a, on_arm, 1.0) < arm;
  return {integer_length(d, on_arm, 1.0), inside ? 1.0 : -1.0};
}

}  // namespace

AxisOffsets axis_offsets(CPoint a, CPoint b, CPoint c, CPoint d, double scale) {
  const CPointD from_d = CPointD(a) - CPointD(d);
  const ArmOffset from_ab = a.y == b.y ? ArmOffset{from_d.y, 1.0} : oblique_arm_offset(a, b, d);
  const ArmOffset from_ac = a.y == c.y ? ArmOffset{from_d.x, 1.0} : oblique_arm_offset(a, c, d);
  return {from_ac.distance * from_ab.sign * scale, from_ab.distance * from_ac.sign * scale};
}

CPointD offset_in_frame(CPointD a, CPointD b, double scale, double along, double across) {
  if (scale == 0.0) return {};
  if (along == 0.0) return a;
  const double axis = b.x == a.x ? half_pi : std::atan((b.y - a.y) / (b.x - a.x));
  const double offset = std::atan(across / along) + (along < 0.0 ? pi : 0.0);
  const double distance = norm(CPointD(along, across)) / scale;
  const double direction = offset - axis;
  return {a.x + std::cos(direction) * distance, a.y - std::sin(direction) * distance};
}

std::optional<CPointD> facial_axis_origin(const FacialAxisLandmarks &at) {
  const auto gnathion = intersection(at.gonion, at.menton, at.nasion, at.pogonion);
  if (!gnathion) return std::nullopt;
  return intersection(at.basion, at.nasion, at.pterygoid, *gnathion);
}

}  // namespace geometry
