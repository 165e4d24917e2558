#include "tool/geometry/frames.h"

#include <gtest/gtest.h>

namespace {

using namespace geometry;

TEST(AxisOffsets, CutFeetToWholePixelsBeforeMeasuring) {
  struct Row {
    const char *what;
    CPoint b, c, d;
    double horizontal, vertical;
  };
  // From (100, 100) along (4, 3) and (-3, 4), each 100 pixels long. A level axis is measured without a sign
  // of its own and without a foot.
  const CPoint a(100, 100), b(180, 160), c(40, 180);
  const Row rows[] = {
      {"inside both arms: feet (141, 130) and (84, 120)", b, c, {126, 151}, 5.2201533, 2.5806976},
      {"before a on the first: feet (61, 70) and (84, 120)", b, c, {46, 91}, -4.7801674, 2.5806976},
      {"before a on the second: feet (141, 130) and (114, 80)", b, c, {156, 111}, 5.2201533, -2.4207437},
      {"beyond b: feet (221, 190) and (84, 120)", b, c, {206, 211}, -15.2200526, 2.5806976},
      {"ab level, ac upright", {200, 100}, {100, 200}, {130, 140}, 3.0, -4.0},
      {"ab upright, ac level", {100, 200}, {200, 100}, {130, 140}, -3.0, 3.0}};
  for (const Row &row : rows) {
    const AxisOffsets offsets = axis_offsets(a, row.b, row.c, row.d, 0.1);
    EXPECT_NEAR(offsets.horizontal, row.horizontal, 1e-6) << row.what;
    EXPECT_NEAR(offsets.vertical, row.vertical, 1e-6) << row.what;
  }
}

TEST(OffsetInFrame, PlacesPoints) {
  struct Row {
    const char *what;
    CPointD a, b;
    double scale, along, across;
    CPointD point;
  };
  const Row rows[] = {{"above a line to the right", {0, 0}, {10, 0}, 1, 3, 4, {3, -4}},
                      {"backwards", {0, 0}, {10, 0}, 1, -3, 0, {-3, 0}},
                      {"the axis points to +x either way", {0, 0}, {-10, 0}, 1, 3, 4, {3, -4}},
                      {"a vertical axis points down", {0, 0}, {0, -10}, 1, 3, 4, {4, 3}},
                      {"oblique", {1, 1}, {5, 5}, 0.5, 1, 0, {1 + 1.414213562, 1 + 1.414213562}},
                      {"nothing along: the origin", {7, 8}, {9, 9}, 1, 0, 4, {7, 8}},
                      {"no scale", {7, 8}, {9, 9}, 0, 3, 4, {0, 0}}};
  for (const Row &row : rows) {
    const CPointD point = offset_in_frame(row.a, row.b, row.scale, row.along, row.across);
    EXPECT_NEAR(point.x, row.point.x, 1e-7) << row.what;
    EXPECT_NEAR(point.y, row.point.y, 1e-7) << row.what;
  }
}

TEST(FacialAxisOrigin, CrossesCranialBaseAndFacialAxis) {
  // The mandibular plane y = 10 and nasion-pogonion x = 10 meet at (10, 10). The axis from PT is y = 5 + x /
  // 2, basion-nasion y = -5 - 3 x / 2.
  FacialAxisLandmarks at{.basion = {-10, 10},
                         .nasion = {10, -20},
                         .pterygoid = {0, 5},
                         .gonion = {-5, 10},
                         .menton = {5, 10},
                         .pogonion = {10, 0}};
  const auto origin = facial_axis_origin(at);
  ASSERT_TRUE(origin);
  EXPECT_NEAR(origin->x, -5.0, 1e-9);
  EXPECT_NEAR(origin->y, 2.5, 1e-9);
  at.pogonion = CPointD(30, -20);  // nasion-pogonion is now parallel to the mandibular plane
  EXPECT_FALSE(facial_axis_origin(at));
}

}  // namespace
