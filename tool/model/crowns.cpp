#include "tool/model/crowns.h"

#include "tool/geometry/angles.h"
#include "tool/geometry/distances.h"
#include "tool/geometry/transforms.h"
#include "tool/geometry/truncation.h"
#include "tool/model/crown_templates.h"

namespace model {

namespace {

constexpr int upper_family = 5;
constexpr int turned_code = 11;
constexpr int general_tooth = -1;

/// With the anchors of the turned position.
CrownTemplate upper_crown(int tooth) {
  switch (tooth) {
    case 3:
    case 4:
      return {crown_u6, 2, 5};
    case 2:
      return {crown_u8, 4, 0};
    case 1:
      return {crown_u11, 4, 0};
    default:
      return {crown_u12, 4, 0};
  }
}

CrownTemplate lower_crown(int tooth) {
  switch (tooth) {
    case 3:
    case 4:
      return {crown_l10, 3, 8};
    case 2:
      return {crown_l9, 0, 4};
    case 1:
      return {crown_l11a, 0, 5};
    case 0:
      return {crown_l11b, 0, 5};
    default:
      return {};
  }
}

}  // namespace

CrownTemplate crown_template(const CrownChoice &choice) {
  if (choice.tooth == general_tooth) return {crown_general, 0, 6};
  CrownTemplate shape = choice.family == upper_family ? upper_crown(choice.tooth) : lower_crown(choice.tooth);
  const bool turned = (choice.code == turned_code) == choice.mirror;
  if (!turned) std::swap(shape.anchor_1, shape.anchor_2);
  return shape;
}

Crown::Crown(const CrownTemplate &shape, CPointD width_1, CPointD width_2) {
  const bool collapsed = width_1 == width_2;
  const CPoint first = geometry::truncate(width_1);
  count_ = shape.points.size();
  if (count_ == 0) return;
  const CPoint t0 = shape.points[shape.anchor_1];
  const CPoint t1 = shape.points[shape.anchor_2];
  const double size = geometry::length(width_1, width_2, 1.0) / geometry::integer_length(t0, t1, 1.0);
  const double turn = geometry::signed_angle(t0, t1, width_1, width_2);
  for (std::size_t j = 0; j < count_; ++j) {
    const CPoint t = shape.points[j];
    if (j == shape.anchor_1 || collapsed) {
      points_[j] = first;
    } else if (j == shape.anchor_2) {
      points_[j] = geometry::truncate(width_2);
    } else {
      points_[j] = geometry::truncate(
          geometry::turned_offset(t0, t, width_1, size * geometry::integer_length(t0, t, 1.0), -turn, 1.0));
    }
  }
}

}  // namespace model
