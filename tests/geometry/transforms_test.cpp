#include "tool/geometry/transforms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/support/random_points.h"
#include "tool/geometry/distances.h"

namespace {

using namespace geometry;

void expect_near(const CPointD &actual, const CPointD &expected, double tolerance = 1e-6) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
}

/// p - centre turned clockwise on the screen by plain trigonometry.
CPointD clockwise(const CPointD &v, double degrees) {
  const double t = degrees * std::numbers::pi / 180;
  return {v.x * std::cos(t) - v.y * std::sin(t), v.x * std::sin(t) + v.y * std::cos(t)};
}

TEST(TurnedOffset, GoesFromTheStartInTheTurnedDirection) {
  struct Row {
    const char *what;
    CPointD a, b, c;
    double len, angle, scale;
    CPointD point;
  };
  const Row rows[] = {{"quarter turn is clockwise", {0, 0}, {10, 0}, {0, 0}, 5, 90, 1, {0, 5}},
                      {"millimetres", {0, 0}, {10, 0}, {0, 0}, 5, 0, 0.1, {50, 0}},
                      {"no direction: straight down", {0, 0}, {0, 0}, {0, 0}, 5, 0, 1, {0, 5}},
                      {"scale 0: the second point", {1, 2}, {3, 4}, {9, 9}, 5, 30, 0, {3, 4}},
                      {"up to the left", {4, 4}, {1, 0}, {0, 0}, 5, 0, 1, {-3, -4}},
                      {"negative length", {0, 0}, {10, 0}, {0, 0}, -5, 0, 1, {-5, 0}}};
  for (const Row &row : rows) {
    SCOPED_TRACE(row.what);
    expect_near(turned_offset(row.a, row.b, row.c, row.len, row.angle, row.scale), row.point);
    if (row.scale == 1) expect_near(turned_offset_px(row.a, row.b, row.c, row.len, row.angle), row.point);
  }
  expect_near(turned_offset({0, 0}, {10, 0}, 5, 90, 1), {10, 5});
}

TEST(TurnedOffset, AgreesWithPlainTrigonometry) {
  SCOPED_TRACE("seed 41");
  support::RandomPoints random(41);
  for (int i = 0; i < 5000; ++i) {
    const CPointD a = random.whole(50), b = random.whole(50), c = random.real();
    const double angle = random.number(-720, 720), len = random.number(0, 100);
    if (a == b) continue;
    const CPointD e = clockwise((b - a) / norm(b - a), angle);
    expect_near(turned_offset(a, b, c, len, angle, 0.5), c + e * (len / 0.5));
  }
}

TEST(Rotated, TurnsClockwiseAndBack) {
  expect_near(rotated({0, 0}, {10, 0}, 90, 0.1), {0, 10});
  expect_near(rotated({3, 4}, {9, 9}, 77, 0.0), {3, 4}, 0);
  expect_near(rotated_scaled({1, 1}, {10, 1}, 30, 0.0), {1, 1});
  SCOPED_TRACE("seed 42");
  support::RandomPoints random(42);
  for (int i = 0; i < 5000; ++i) {
    const CPointD centre = random.whole(), p = random.real();
    const double angle = random.number(-180, 180);
    expect_near(rotated(centre, rotated(centre, p, angle, 0.1), -angle, 0.1), p, 1e-4);
    expect_near(rotated(centre, p, angle, 0.1), centre + clockwise(p - centre, angle), 1e-4);
    expect_near(rotated_scaled(centre, p, angle, 0.7), centre + clockwise(p - centre, angle) * 0.7, 1e-4);
  }
}

TEST(Rotated, ByNothingKeepsThePointBitForBit) {
  const CPointD p(0.1 + 0.2, -1.0 / 3.0);
  for (const double angle : {0.0, -0.0, -360.0}) {
    EXPECT_TRUE(rotated({1e5, 7.7}, p, angle, 0.1) == p) << angle;
    EXPECT_TRUE(rotated_scaled({1e5, 7.7}, p, angle, 1.0) == p) << angle;
  }
  EXPECT_TRUE(rotated({1e5, 7.7}, p, 0.0, 0.0) == CPointD(1e5, 7.7));
}

TEST(WholePixelStep, CutsItsOffsets) {
  struct Row {
    CPointD a, b;
    double r;
    CPointD point;
  };
  const Row rows[] = {{{0, 0}, {3, 4}, 5, {3, 4}},     {{0, 0}, {3, 4}, 5.9, {3, 4}},
                      {{0, 0}, {10, 0}, 5.9, {5, 0}},  {{0, 0}, {-10, 0}, 5.9, {-5, 0}},
                      {{0, 0}, {0, 10}, 5.9, {0, 5}},  {{0, 0}, {0, -10}, 5.9, {0, -5}},
                      {{0, 0}, {-3, 4}, 5.9, {-3, 4}}, {{0.5, 0.5}, {-2.5, -3.5}, 5, {-2.5, -3.5}},
                      {{2, 2}, {2, 2}, 5, {2, -3}}};
  for (const Row &row : rows) expect_near(whole_pixel_step(row.a, row.b, row.r), row.point, 0);
}

TEST(NearTracePoint, FollowsTheDirectionButNotBeyondTheImage) {
  EXPECT_EQ(near_trace_point({100, 100}, {160, 180}, 50.5), CPoint(130, 140));  // (130.3, 140.4)
  EXPECT_EQ(near_trace_point({100, 100}, {160, 20}, 50.5), CPoint(130, 59));    // (130.3, 59.6)
  EXPECT_EQ(near_trace_point({100, 100}, {40, 20}, 50.5), CPoint(69, 59));
  EXPECT_EQ(near_trace_point({30, 40}, {-30, 120}, 60.5), CPoint(0, 88));  // (-6.3, 88.4)
  EXPECT_EQ(near_trace_point({30, 40}, {90, -40}, 60.5), CPoint(66, 0));   // (66.3, -8.4)
}

}  // namespace
