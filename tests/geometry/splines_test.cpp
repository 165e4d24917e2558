#include "tool/geometry/splines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "tests/support/random_points.h"
#include "tool/geometry/distances.h"

namespace {

using namespace geometry;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr SplineBasis bases[] = {SplineBasis::catmull_rom, SplineBasis::lagrange};

std::vector<tagDPOINT> straight(int count, double spacing) {
  std::vector<tagDPOINT> points;
  for (int i = 0; i < count; ++i) points.push_back({i * spacing, 0});
  return points;
}

std::vector<tagDPOINT> random_curve(support::RandomPoints &random, int count) {
  std::vector<tagDPOINT> points;
  for (int i = 0; i < count; ++i) points.push_back(random.real(400).ToDPOINT());
  return points;
}

ControlPoints all(const std::vector<tagDPOINT> &points) {
  return {points.data(), static_cast<int>(points.size())};
}

TEST(SplinePoint, BlendsItsFourPoints) {
  SCOPED_TRACE("seed 51");
  support::RandomPoints random(51);
  const auto cubic = [](double t) { return 2 * t * t * t - 3 * t * t + 5 * t - 7; };
  for (const SplineBasis basis : bases) {
    for (int i = 0; i < 200; ++i) {
      const CPointD p0 = random.real(), p1 = random.real(), p2 = random.real(), p3 = random.real();
      EXPECT_TRUE(spline_point(p0, p1, p2, p3, 0.0, basis) == p1);
      EXPECT_TRUE(spline_point(p0, p1, p2, p3, 1.0, basis) == p2);
    }
    // Catmull-Rom at 1/2: (-1, 9, 9, -1) / 16 of the four points; Lagrange at -1, 0, 1, 2 the same weights.
    const CPointD p = spline_point({16, 0}, {0, 16}, {0, 0}, {0, 32}, 0.5, basis);
    EXPECT_NEAR(p.x, -1.0, 1e-12);
    EXPECT_NEAR(p.y, 9.0 - 2.0, 1e-12);
  }
  // At 1/4 they differ: for the first point -t (t-1)^2 / 2; Lagrange reproduces a cubic.
  EXPECT_NEAR(spline_point({128, 0}, {}, {}, {}, 0.25).x, -9.0, 1e-12);
  for (double t = 0; t <= 1; t += 0.125) {
    const CPointD p =
        spline_point({0, cubic(-1)}, {0, cubic(0)}, {0, cubic(1)}, {0, cubic(2)}, t, SplineBasis::lagrange);
    EXPECT_NEAR(p.y, cubic(t), 1e-12) << t;
  }
}

TEST(CurveWalk, KeepsPointsTenUnitsApartAndAllKnots) {
  SCOPED_TRACE("seed 52");
  support::RandomPoints random(52);
  for (int round = 0; round < 50; ++round) {
    const std::vector<tagDPOINT> points = random_curve(random, 8);
    CurveWalk walk(all(points));
    CPointD end = CPointD().FromDPOINT(points[0]);
    std::size_t span = 0;
    while (const auto chord = walk.next()) {
      EXPECT_TRUE(chord->from == end);
      end = chord->to;
      if (chord->span == static_cast<int>(span)) {
        EXPECT_GE(length(chord->from, chord->to, 1.0), 10.0);
        continue;
      }
      EXPECT_EQ(chord->span, static_cast<int>(++span));  // the chord into the next knot
      EXPECT_TRUE(end == CPointD(points[span].x, points[span].y));
    }
    EXPECT_EQ(span, 7U);
  }
}

TEST(CurveLength, CountsTheSpansOfTheRange) {
  for (const double spacing : {3.0, 10.0, 100.0, 1234.5})
    for (const int count : {2, 3, 4, 12})
      EXPECT_NEAR(curve_length(all(straight(count, spacing)), {0, count}, 0.1), (count - 1) * spacing * 0.1,
                  1e-9)
          << spacing << " x " << count;
  // In the outer spans the samples at t = k / 10 lie at 49 / 2 (t + 2 t^2 - t^3) from the outer end. Of them
  // and the evenly spaced ones of the middle span the last kept ones are 43.8795, 93.1 and 144.0845. The
  // chord into a knot belongs to the span behind it, the closing chord to the last point.
  const auto line = straight(4, 49);
  struct Row {
    int start, end;
    double length;
  };
  const Row rows[] = {{0, 4, 147},    {0, 3, 144.0845}, {1, 2, 49.2205}, {0, 1, 43.8795}, {2, 4, 53.9},
                      {3, 4, 2.9155}, {0, 0, 43.8795},  {1, 1, 0},       {4, 9, 0},       {-1, 4, 103.1205}};
  for (const Row &row : rows)
    EXPECT_NEAR(curve_length(all(line), {row.start, row.end}, 1.0), row.length, 1e-9)
        << row.start << ".." << row.end;
  const auto two = straight(2, 95);
  EXPECT_DOUBLE_EQ(curve_length(all(two), {7, 3}, 2.0), 190.0) << "two points ignore the range";
  for (const int few : {1, -5}) EXPECT_EQ(curve_length({two.data(), few}, {0, 9}, 2.0), 0.0);
}

TEST(CurveLength, IsTheSameForWholePixelsAndDoubles) {
  const tagPOINT whole[] = {{0, 0}, {40, 90}, {150, 60}, {170, -20}, {90, -80}};
  std::vector<tagDPOINT> real;
  for (const tagPOINT &p : whole) real.push_back({static_cast<double>(p.x), static_cast<double>(p.y)});
  const double length = curve_length({whole, 5}, {0, 5}, 0.1);
  EXPECT_EQ(length, curve_length(all(real), {0, 5}, 0.1));
  // Not shorter than the polygon of the control points, not longer than a loose hull.
  EXPECT_GT(length, 0.1 * (98.4 + 114.0 + 82.4 + 100.0 - 4.0));
  EXPECT_LT(length, 0.12 * (98.5 + 114.1 + 82.5 + 100.0));
}

TEST(PointAtLength, FindsPositionsOnAStraightCurve) {
  const auto line = straight(5, 100);
  for (const double target : {0.0, 5.0, 10.0, 77.7, 100.0, 250.25, 400.0}) {
    const ReachedPoint reached = point_at_length(all(line), {0, 5}, 1.0, target);
    ASSERT_TRUE(reached.point) << target;
    EXPECT_NEAR(reached.point->x, target, 1e-9);
    EXPECT_GE(reached.length, target);
    EXPECT_LE(reached.length, target + 20.0);
  }
  const ReachedPoint beyond = point_at_length(all(line), {0, 5}, 0.1, 40.001);
  EXPECT_FALSE(beyond.point);
  EXPECT_NEAR(beyond.length, 40.0, 1e-9);
  const ReachedPoint two = point_at_length({line.data(), 2}, {9, 9}, 0.1, 4.0);
  ASSERT_TRUE(two.point);
  EXPECT_NEAR(two.point->x, 40.0, 1e-9);
  EXPECT_NEAR(two.length, 10.0, 1e-12);
  EXPECT_FALSE(point_at_length({line.data(), 2}, {0, 2}, 0.1, 10.5).point);
  EXPECT_EQ(point_at_length({line.data(), 1}, {0, 2}, 0.1, 0.0).length, 0.0);
}

TEST(PointBetween, ExtrapolatesAndSurvivesEqualLengths) {
  EXPECT_TRUE(point_between({0, 0}, {10, 20}, 2, 4, 3) == CPointD(5, 10));
  EXPECT_TRUE(point_between({0, 0}, {10, 20}, 2, 4, 6) == CPointD(20, 40));
  EXPECT_TRUE(point_between({0, 0}, {10, 20}, 2, 2, 6) == CPointD(10, 20));
}

TEST(ArcPositions, AgreeWithTheSingleQuestion) {
  SCOPED_TRACE("seed 53");
  support::RandomPoints random(53);
  for (int round = 0; round < 20; ++round) {
    const std::vector<tagDPOINT> points = random_curve(random, 12);
    for (const double scale : {0.1, 0.0, -0.1}) {
      const ArcPositions arc(all(points), scale);
      for (const double target : {-3.0, 0.0, 0.5, 33.3, 200.0, 1e9, nan}) {
        const auto single = point_at_length(all(points), {0, 12}, scale, target).point;
        const auto many = arc.at(target);
        ASSERT_EQ(single.has_value(), many.has_value()) << target << " scale " << scale;
        EXPECT_TRUE(!single || *single == *many) << target;
      }
    }
  }
}

TEST(SearchDistance, StepsToTheDistance) {
  struct Row {
    CPointD from;
    double distance;
    bool forward;
    double start, found;
  };
  const auto line = straight(12, 100);
  // Steps of 0.1; before the beginning the first chord is continued.
  for (const Row &row : {Row{{0, 0}, 33.25, true, 0.0, 33.3},
                         {{1000, 0}, 33.25, false, 80.0, 66.7},
                         {{100, 0}, 11.95, false, 2.0, -2.0}}) {
    double position = row.start;
    const auto point =
        search_distance(all(line), 0.1, {row.from, row.distance, row.forward, 200.0}, position);
    ASSERT_TRUE(point);
    EXPECT_NEAR(position, row.found, 1e-6);
    EXPECT_NEAR(point->x, row.found * 10, 1e-5);
  }
  double position = 5.0;
  EXPECT_FALSE(search_distance(all(line), 0.1, {{0, 0}, 33.25, true, 3.0}, position));
  EXPECT_NEAR(position, 5.1, 1e-12) << "one step, then the limit";
}

TEST(SearchDistance, AlwaysEnds) {
  struct Row {
    const char *what;
    double scale, distance;
    bool forward;
    double limit, position;
  };
  const Row rows[] = {{"endless limit", 0.1, 1e9, true, infinity, 0},
                      {"limit is not a number", 0.1, 1e9, true, nan, 0},
                      {"backward without length", 0.0, 1.0, false, 0, 0},
                      {"forward from far below", 0.0, 1.0, true, 10, -1e300},
                      {"endless distance backward", 0.1, infinity, false, 0, 0},
                      {"position is not a number", 0.1, 1e9, true, 10, nan}};
  const auto line = straight(12, 100);
  for (const Row &row : rows) {
    double position = row.position;
    EXPECT_FALSE(
        search_distance(all(line), row.scale, {{0, 0}, row.distance, row.forward, row.limit}, position))
        << row.what;
  }
}

TEST(CurveWalk, IsBoundedForHostileCoordinates) {
  const tagDPOINT rows[][4] = {{{0, 0}, {1e300, 0}, {0, 1e300}, {1e300, 1e300}},
                               {{nan, 0}, {1, nan}, {nan, nan}, {2, 2}},
                               {{infinity, 0}, {-infinity, 5}, {0, 0}, {1, 1}},
                               {{-2e9, -2e9}, {2e9, 2e9}, {-2e9, 2e9}, {2e9, -2e9}}};
  for (const auto &points : rows) {
    for (const CurveEnds ends : {CurveEnds::open, CurveEnds::closed})
      EXPECT_LE(kept_points({points, 4}, ends).size(), 1'000'100u);
    (void)curve_crossing({points, 4}, {0, 0}, {1, 1});
  }
}

TEST(KeptPoints, StartAndEndAsTheCurveDoes) {
  const tagPOINT points[] = {{0, 0}, {100, 0}, {50, 80}};
  const auto knots = [&](CurveEnds ends) {
    std::vector<int> found;
    for (const CPointD &p : kept_points({points, 3}, ends))
      for (int i = 0; i < 3; ++i)
        if (p == CPoint(points[i])) found.push_back(i);
    return found;
  };
  EXPECT_EQ(knots(CurveEnds::open), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(knots(CurveEnds::closed), (std::vector<int>{0, 1, 2, 0, 1}));
  const auto closed = kept_points({points, 3}, CurveEnds::closed);
  EXPECT_TRUE(closed[1] == CPointD(100, 0) && closed.back() == CPointD(100, 0));
  // The walked spans begin with the one from knot 1 to knot 2, whose outer neighbours are both knot 0.
  double off = infinity;
  for (int k = 1; k < 1000; ++k)
    off = std::min(off, length(closed[2],
                               spline_point(CPoint(points[0]), CPoint(points[1]), CPoint(points[2]),
                                            CPoint(points[0]), k / 1000.0),
                               1.0));
  EXPECT_NEAR(off, 0.0, 0.1);
  EXPECT_EQ(kept_points({points, 2}, CurveEnds::closed).size(), 2u);
  EXPECT_EQ(kept_points({points, 1}, CurveEnds::open).size(), 1u);
  EXPECT_TRUE(kept_points({points, 0}, CurveEnds::open).empty());
}

TEST(CurveCrossing, FindsTheFirstChordThatCrosses) {
  const auto line = straight(4, 100);
  const auto crossing = curve_crossing(all(line), {150, -3}, {150, -1});
  ASSERT_TRUE(crossing);
  EXPECT_NEAR(crossing->x, 150, 1e-9);
  EXPECT_FALSE(curve_crossing(all(line), {350, 0}, {350, 1}));
  EXPECT_TRUE(curve_crossing({line.data(), 2}, {50, 5}, {50, 6}));
  EXPECT_FALSE(curve_crossing({line.data(), 1}, {0, 5}, {0, 6}));
  const tagPOINT zigzag[] = {{0, 0}, {100, 100}, {200, 0}, {300, 100}};
  const auto first = curve_crossing({zigzag, 4}, {0, 50}, {1, 50});
  EXPECT_TRUE(first && first->x < 100.0) << "of the three crossings the first";
}

}  // namespace
