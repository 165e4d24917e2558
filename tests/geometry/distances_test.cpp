#include "tool/geometry/distances.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/random_points.h"

namespace {

using namespace geometry;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(Length, ScalesLinearlyAndFormsWholePixelDifferencesIn32Bits) {
  EXPECT_DOUBLE_EQ(length({0, 0}, {3, 4}, 0.1), 0.5);
  EXPECT_DOUBLE_EQ(length({0, 0}, {3, 4}, -2.0), -10.0);
  EXPECT_DOUBLE_EQ(integer_length({1, 1}, {4, 5}, 2.0), 10.0);
  EXPECT_DOUBLE_EQ(integer_length({INT32_MIN, 0}, {INT32_MAX, 0}, 1.0), 1.0);
  EXPECT_DOUBLE_EQ(length(CPoint(INT32_MIN, 0), CPoint(INT32_MAX, 0), 1.0), 4294967295.0);
}

TEST(DistanceToLine, IsTheHeightOverTheLine) {
  EXPECT_DOUBLE_EQ(distance_to_line({0, 0}, {10, 0}, {3, -7}, 0.5), 3.5);
  EXPECT_DOUBLE_EQ(distance_to_line({2, 2}, {2, 2}, {-1, 9}, 1.0), 3.0);
  SCOPED_TRACE("seed 31");
  support::RandomPoints random(31);
  for (int i = 0; i < 2000; ++i) {
    const CPointD a = random.real(), u = random.real(), p = random.real();
    const double area = std::abs((p.x - a.x) * u.y - (p.y - a.y) * u.x);
    EXPECT_NEAR(distance_to_line(a, a + u, p, 1.0), area / norm(u), 1e-6);
  }
}

TEST(ProjectedLength, TakesItsSignFromTheLine) {
  struct Row {
    const char *what;
    CPointD a, b, p, q;
    double signed_length;
  };
  const Row rows[] = {{"along", {0, 0}, {10, 0}, {2, 5}, {7, -3}, 0.5},
                      {"against", {0, 0}, {10, 0}, {7, -3}, {2, 5}, -0.5},
                      {"along to the left", {10, 0}, {0, 0}, {7, -3}, {2, 5}, 0.5},
                      {"up a vertical line", {0, 0}, {0, 10}, {-3, 7}, {5, 2}, -0.5},
                      {"along an upward line", {0, 10}, {0, 0}, {-3, 7}, {5, 2}, 0.5},
                      {"oblique", {0, 0}, {3, 4}, {0, 0}, {6, 8}, 1.0},
                      {"coinciding feet", {0, 0}, {10, 0}, {4, 1}, {4, 9}, 0.0},
                      {"no line", {3, 3}, {3, 3}, {0, 0}, {9, 9}, 0.0},
                      {"no numbers", {0, 0}, {3, 4}, {nan, nan}, {nan, nan}, 0.0}};
  for (const Row &row : rows) {
    EXPECT_NEAR(projected_length(row.a, row.b, row.p, row.q, 0.1, true), row.signed_length, 1e-12)
        << row.what;
    EXPECT_NEAR(projected_length(row.a, row.b, row.p, row.q, 0.1, false), std::abs(row.signed_length), 1e-12)
        << row.what;
  }
}

TEST(TriangleArea, GrowsWithTheSquareOfTheScale) {
  EXPECT_NEAR(triangle_area({0, 0}, {30, 0}, {0, 40}, 0.1), 6.0, 1e-12);
  for (int k = 1; k < 200; ++k) {
    EXPECT_NEAR(triangle_area({0, 0}, {k, 3 * k}, {7 * k, 21 * k}, 0.1), 0.0, 0.02) << k;  // flat, never NaN
  }
}

}  // namespace
