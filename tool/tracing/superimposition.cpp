#include "tool/tracing/superimposition.h"

#include <algorithm>
#include <cmath>

#include "tool/analysis/landmarks.h"
#include "tool/geometry/angles.h"
#include "tool/geometry/frames.h"
#include "tool/geometry/lines.h"
#include "tool/geometry/transforms.h"
#include "tool/tracing/record_views.h"

namespace tracing {

namespace {

// Published constants: four digits, deliberately not pi.
constexpr double half_turn = 3.1415;
constexpr double full_turn = 6.283;
constexpr double radians_per_degree = 0.01745277777777778;  // 3.1415 / 180
constexpr double least_offset = 0.1;

CPoint from_origin(CPoint device, CPoint origin, bool flip) {
  using geometry::integer_difference;
  return {integer_difference(device.x, origin.x),
          flip ? integer_difference(origin.y, device.y) : integer_difference(device.y, origin.y)};
}

bool in_lateral_list(const ReferenceChoice &choice) {
  return std::max({choice.first, choice.second, choice.c, choice.d}) <
         unsigned{analysis::lateral_landmark_count};
}

/// Degrees to radians, brought into -90 to 90 degrees first.
double folded(double degrees) {
  if (degrees > 90.0) degrees = 180.0 - degrees;
  if (degrees < -90.0) degrees += 180.0;
  return degrees * radians_per_degree;
}

struct Line {
  CPointD from;
  CPointD to;
};

Line directed_right(CPoint a, CPoint b) {
  return a.x <= b.x ? Line{a, b} : Line{b, a};
}

double turn_between(const Line &a, const Line &b) {
  return folded(geometry::signed_angle(a.from, a.to, b.from, b.to));
}

}  // namespace

// Mapping -----------------------------------------------------------------------------------------

CPointD placed(const Superimposition &on, CPointD offset) {
  const CPointD d(offset.x == 0.0 ? least_offset : offset.x, offset.y == 0.0 ? least_offset : offset.y);
  const double r = geometry::norm(d) * on.scale;
  double direction = std::atan(d.y / d.x);
  if (d.x < 0.0) direction += half_turn;
  direction -= on.angle;
  if (direction < 0.0) direction += full_turn;
  if (direction > full_turn) direction -= full_turn;
  const CPointD p(on.base.x + r * std::cos(direction), on.ysign * on.base.y + r * std::sin(direction));
  return geometry::rotated(CPointD(on.centre), p, on.rotation, 1.0);
}

CPointD device_coordinates(const Superimposition &on, CPointD offset) {
  const CPointD zoomed = (placed(on, offset) - on.offset) * on.mag;
  return {zoomed.x - on.origin.x, on.flip ? on.origin.y - zoomed.y : zoomed.y - on.origin.y};
}

CPoint device_point(const Superimposition &on, CPointD offset) {
  if (on.scale == 0.0) return {};
  return from_origin(geometry::truncate((placed(on, offset) - on.offset) * on.mag), on.origin, on.flip);
}

CPoint image_point(const Superimposition &on, CPointD offset) {
  if (on.scale == 0.0) return {};
  Superimposition upright = on;
  upright.ysign = 1;
  return from_origin(geometry::truncate(placed(upright, offset) - on.offset), on.origin, false);
}

CPointD spline_device_coordinates(const Superimposition &on, CPointD offset,
                                  const SplinePlacement &placement) {
  const auto is = [&](int code) { return placement.code == static_cast<unsigned>(code); };
  Superimposition spline = on;
  spline.ysign = is(-1) || is(-2) || (placement.printing && (is(15111) || is(15210))) ? -1 : 1;
  spline.mag = on.mag * placement.factor;
  spline.flip = placement.printing && on.flip;
  return device_coordinates(spline, offset);
}

// Reference ---------------------------------------------------------------------------------------

std::optional<CPointD> reference_point(const tagPOINT *landmarks, const ReferenceChoice &choice) {
  using namespace analysis::lateral;
  const auto at = [&](unsigned k) { return CPointD(landmarks[k].x, landmarks[k].y); };
  switch (choice.mode) {
    case 0:
      if (!in_lateral_list(choice)) return std::nullopt;
      return geometry::projection(at(choice.first), at(choice.second), at(choice.c), at(choice.d));
    case 1:
      return geometry::facial_axis_origin({.basion = at(Ba),
                                           .nasion = at(N),
                                           .pterygoid = at(PT),
                                           .gonion = at(GoL),
                                           .menton = at(Me),
                                           .pogonion = at(PogR)});
    case 2:
      return at(N);
    default:
      return std::nullopt;
  }
}

std::optional<double> reference_angle(const tagPOINT *landmarks_a, const void *record_b,
                                      const ReferenceChoice &choice, bool frankfort) {
  using namespace analysis::lateral;
  if (choice.mode > 2 || (choice.mode == 0 && !in_lateral_list(choice))) return std::nullopt;
  const int first = choice.mode == 0 ? static_cast<int>(choice.first) : Ba;
  const int second = choice.mode == 0 ? static_cast<int>(choice.second) : N;
  const LateralRecord b(record_b);
  const Line line_a = directed_right(landmarks_a[first], landmarks_a[second]);
  const Line line_b = directed_right(b.landmark(first), b.landmark(second));
  double angle = turn_between(line_a, line_b);
  if (frankfort) {
    const Line frankfort_line{b.porion(), b.landmark(Or)};
    angle += turn_between({{0.0, 0.0}, {1.0, 0.0}}, frankfort_line) - turn_between(line_a, frankfort_line);
  }
  return angle;
}

}  // namespace tracing
