#include "tool/geometry/angles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "tests/support/random_points.h"

namespace {

using geometry::angle_at;
using geometry::signed_angle;

constexpr double tolerance = 1e-6;  // the ten-digit pi shifts 180 degrees by 2.4e-8

TEST(SignedAngle, FollowsItsRules) {
  struct Row {
    const char *what;
    CPointD from, to;
    double angle;
  };
  for (const Row &row :
       {Row{"a quarter clockwise", {1, 0}, {0, 1}, -90},
        Row{"a quarter counter-clockwise", {1, 0}, {0, -1}, 90}, Row{"equal", {3, -7}, {3, -7}, 0},
        Row{"exactly opposite", {1, 1}, {-1, -1}, 180}, Row{"opposite, another length", {1, 1}, {-2, -2}, 0},
        Row{"both without direction", {0, 0}, {0, 0}, 0}, Row{"45 degrees clockwise", {1, 0}, {5, 5}, -45},
        Row{"135 degrees counter-clockwise", {1, 0}, {-5, -5}, 135},
        Row{"hardly off parallel", {1e6, 0}, {1e6, 1}, -std::atan(1e-6) * 180 / std::numbers::pi},
        Row{"hardly off opposite", {1e6, 0}, {-1e6, -1}, 180 - std::atan(1e-6) * 180 / std::numbers::pi}})
    EXPECT_NEAR(signed_angle(row.from, row.to), row.angle, tolerance) << row.what;
}

// The definition taken literally: the arc cosine, and its sign by turning u both ways.
double by_turning(const CPointD &u, const CPointD &v) {
  const double lu = std::hypot(u.x, u.y), lv = std::hypot(v.x, v.y);
  const double t = std::acos((u.x * v.x + u.y * v.y) / (lu * lv));
  const auto off = [&](double by) {
    const double x = u.x / lu * std::cos(by) - u.y / lu * std::sin(by);
    const double y = u.x / lu * std::sin(by) + u.y / lu * std::cos(by);
    return std::hypot(x - v.x / lv, y - v.y / lv);
  };
  return (off(-t) <= off(t) ? t : -t) / 3.141592654 * 180.0;
}

TEST(SignedAngle, AgreesWithTheTurningDefinitionAndFlipsWhenSwapped) {
  SCOPED_TRACE("seed 11");
  support::RandomPoints random(11);
  for (int i = 0; i < 20000; ++i) {
    const CPointD u = random.real(), v = random.real();
    EXPECT_NEAR(signed_angle(u, v), by_turning(u, v), 1e-9) << u.x << " " << u.y << " " << v.x << " " << v.y;
    EXPECT_EQ(signed_angle(u, v), -signed_angle(v, u));
    EXPECT_NEAR(std::abs(signed_angle(u, v) - signed_angle(u, v * -1.0)), 180.0, tolerance);
  }
}

TEST(SignedAngle, OfNearlyParallelPixelsStaysInRange) {
  SCOPED_TRACE("seed 12");
  support::RandomPoints random(12);
  for (int i = 0; i < 20000; ++i) {
    const CPointD u = random.whole(30), v = CPointD(u) * 7.0 + CPointD(random.whole(1));
    const double angle = signed_angle(u, v);
    EXPECT_TRUE(std::isnan(angle) || (angle > -180.0 - tolerance && angle <= 180.0 + tolerance));
  }
  EXPECT_TRUE(std::isnan(signed_angle({0, 0}, {1, 2})) && std::isnan(signed_angle({1, 0}, {0, 0})));
}

TEST(ArcTangent, IsThatOfTheStandardLibrary) {
  SCOPED_TRACE("seed 14");
  support::RandomPoints random(14);
  for (int i = 0; i < 100000; ++i) {
    const double opposite = std::exp(random.number(-30, 30)), adjacent = std::sinh(random.number(-30, 30));
    const double expected = std::atan2(opposite, adjacent);
    EXPECT_NEAR(geometry::angle_of_legs(opposite, adjacent), expected, 4.5e-16 * std::max(1.0, expected));
  }
  EXPECT_EQ(geometry::angle_of_legs(0.0, 3.0), 0.0);
  EXPECT_EQ(geometry::angle_of_legs(3.0, 0.0), std::numbers::pi / 2);
  EXPECT_EQ(geometry::angle_of_legs(0.0, -3.0), std::numbers::pi);
}

TEST(AngleAt, MeasuresBetweenTheArms) {
  struct Row {
    CPointD a, vertex, c;
    double angle;
  };
  const Row rows[] = {{{10, 0}, {0, 0}, {0, 10}, 90},  {{10, 0}, {0, 0}, {20, 0}, 0},
                      {{10, 0}, {0, 0}, {-3, 0}, 180}, {{5, 5}, {2, 2}, {2, -8}, 135},
                      {{1, 0}, {1, 0}, {5, 5}, -1},    {{5, 5}, {1, 0}, {1, 0}, -1},
                      {{0, 0}, {1, 3}, {2, 6}, 180},   {{0, 0}, {7, 7}, {0.1, 0.1}, 0}};
  for (const Row &row : rows) {
    EXPECT_NEAR(angle_at(row.a, row.vertex, row.c), row.angle, 2e-6) << row.c.x << ", " << row.c.y;
  }
  SCOPED_TRACE("seed 13");
  support::RandomPoints random(13);
  for (int i = 0; i < 20000; ++i) {
    const CPointD vertex = random.real(), arm = random.real();
    EXPECT_NEAR(angle_at(vertex + arm, vertex, vertex + arm * random.number(0.1, 9)), 0.0, 1e-5);
  }
}

}  // namespace
