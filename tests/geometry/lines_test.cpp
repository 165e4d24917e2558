#include "tool/geometry/lines.h"

#include <gtest/gtest.h>

#include "tests/support/random_points.h"
#include "tool/geometry/distances.h"

namespace {

using namespace geometry;

void expect_near(const CPointD &actual, const CPointD &expected, double tolerance = 1e-9) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
}

TEST(Midpoint, InWholePixelsIsCutFromTheFirstPoint) {
  EXPECT_EQ(integer_midpoint({3, 6}, {6, 3}), CPoint(4, 5));
  EXPECT_EQ(integer_midpoint({-3, 0}, {-6, 0}), CPoint(-4, 0));
  expect_near(midpoint(CPoint(3, 6), CPoint(6, 3)), {4.5, 4.5}, 0);
  EXPECT_EQ(integer_midpoint({INT32_MAX, 0}, {INT32_MIN, 0}),
            CPoint(INT32_MAX, 0));  // the difference wraps to 1
}

TEST(Foot, OfAPerpendicular) {
  struct Row {
    CPointD a, b, p, foot;
  };
  const Row rows[] = {{{0, 0}, {10, 0}, {3, 7}, {3, 0}},     {{0, 0}, {10, 10}, {10, 0}, {5, 5}},
                      {{4, 0}, {4, 9}, {-1, 100}, {4, 100}}, {{0, 0}, {3, 1}, {2, 1}, {2.1, 0.7}},
                      {{5, 5}, {5, 5}, {1, 2}, {5, 2}},      {{0, 8}, {8, 0}, {0, 0}, {4, 4}}};
  for (const Row &row : rows) expect_near(foot(row.a, row.b, row.p), row.foot);
}

TEST(Foot, InWholePixelsAddsAHalfOnlyOnObliqueLines) {
  EXPECT_EQ(integer_foot({0, 0}, {3, 1}, {0, 1}), CPoint(0, 0));     // (0.3, 0.1)
  EXPECT_EQ(integer_foot({0, 0}, {3, 1}, {2, 1}), CPoint(2, 1));     // (2.1, 0.7)
  EXPECT_EQ(integer_foot({0, 0}, {3, 1}, {-2, -1}), CPoint(-1, 0));  // (-2.1, -0.7): not symmetric
  EXPECT_EQ(integer_foot({0, 0}, {0, 9}, {-5, -3}), CPoint(0, -3));
  EXPECT_EQ(integer_foot({0, 0}, {9, 0}, {-5, -3}), CPoint(-5, 0));
}

TEST(Projection, OntoTheParallelThroughAPoint) {
  expect_near(projection({0, 0}, {0, 5}, {7, 8}, {1, 2}), {1, 8});
  expect_near(projection({0, 0}, {5, 0}, {7, 8}, {1, 2}), {7, 2});
  expect_near(projection({0, 0}, {1, 1}, {10, 0}, {0, 2}), {4, 6});
}

TEST(Intersection, OfEveryKindOfLines) {
  struct Row {
    const char *what;
    CPointD a, b, c, d;
    std::optional<CPointD> point;
  };
  const Row rows[] = {
      {"oblique", {0, 0}, {10, 10}, {0, 10}, {10, 0}, CPointD(5, 5)},
      {"beyond both segments", {0, 0}, {1, 1}, {10, 0}, {11, -1}, CPointD(5, 5)},
      {"first vertical", {4, 0}, {4, 9}, {0, 0}, {1, 2}, CPointD(4, 8)},
      {"second vertical", {0, 0}, {1, 2}, {4, 0}, {4, 9}, CPointD(4, 8)},
      {"level and upright", {0, 3}, {9, 3}, {2, -1}, {2, 1}, CPointD(2, 3)},
      {"parallel", {0, 0}, {2, 1}, {0, 5}, {4, 7}, std::nullopt},
      {"both vertical", {0, 0}, {0, 1}, {3, 0}, {3, 5}, std::nullopt},
      {"both level", {0, 0}, {1, 0}, {0, 3}, {5, 3}, std::nullopt},
      {"first without length, second oblique", {4, 4}, {4, 4}, {0, 0}, {1, 2}, CPointD(4, 8)}};
  for (const Row &row : rows) {
    SCOPED_TRACE(row.what);
    const auto point = intersection(row.a, row.b, row.c, row.d);
    ASSERT_EQ(point.has_value(), row.point.has_value());
    expect_near(cross_point(row.a, row.b, row.c, row.d), row.point.value_or(CPointD()));
  }
}

TEST(SegmentCrossing, BoundsOnlyTheFirstLine) {
  EXPECT_TRUE(segment_crossing({0, 0}, {10, 0}, {5, -1}, {5, 1}));
  EXPECT_TRUE(segment_crossing({0, 0}, {10, 0}, {5, 40}, {5, 41}));
  EXPECT_TRUE(segment_crossing({0, 0}, {10, 0}, {10, -1}, {10, 1})) << "an end point counts";
  EXPECT_FALSE(segment_crossing({0, 0}, {10, 0}, {15, -1}, {15, 1}));
  EXPECT_FALSE(segment_crossing({0, 0}, {10, 0}, {0, 1}, {10, 1}));
}

}  // namespace
