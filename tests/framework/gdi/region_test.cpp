#include "tool/framework/gdi/region.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "tool/framework/gdi/constants.h"

namespace {

using framework::FillRule;
using framework::Region;

constexpr int side = 40;  // figures lie within [0, side)
using Grid = std::vector<bool>;

Grid grid_of(const Region &region) {
  Grid grid(side * side);
  for (const RECT &rect : region.rectangles({0, 0, side, side}))
    for (int y = rect.top; y < rect.bottom; ++y)
      for (int x = rect.left; x < rect.right; ++x) {
        const auto at = static_cast<std::size_t>(y * side + x);
        if (grid[at]) ADD_FAILURE() << "rectangles overlap";
        grid[at] = true;
      }
  return grid;
}

std::string picture(const Grid &grid, int width, int height) {
  std::string text;
  for (int y = 0; y < height; ++y, text += '/')
    for (int x = 0; x < width; ++x) text += grid[static_cast<std::size_t>(y * side + x)] ? '#' : '.';
  return text;
}

/// Winding number about the centre of a pixel, moved right by less than any edge is away: cross products, no
/// division.
int winding(const std::vector<POINT> &points, int x, int y) {
  constexpr std::int64_t scale = 2000;
  const std::int64_t px = scale * x + scale / 2 + 1, py = scale * y + scale / 2;
  int turns = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const POINT a = points[i], b = points[(i + 1) % points.size()];
    const std::int64_t ax = scale * a.x, ay = scale * a.y, bx = scale * b.x, by = scale * b.y;
    const std::int64_t cross = (bx - ax) * (py - ay) - (px - ax) * (by - ay);
    if (ay <= py && by > py && cross < 0) ++turns;
    if (by <= py && ay > py && cross > 0) --turns;
  }
  return turns;
}

std::vector<POINT> random_points(std::mt19937 &random, int count) {
  std::uniform_int_distribution<int> coordinate(0, side);
  std::vector<POINT> points;
  for (int i = 0; i < count; ++i) points.push_back({coordinate(random), coordinate(random)});
  return points;
}

TEST(Region, fillsPolygonsAsTheWindingNumberSays) {
  std::mt19937 random(1);
  for (int round = 0; round < 200; ++round) {
    const std::vector<POINT> points = random_points(random, 3 + round % 9);
    for (const FillRule rule : {FillRule::alternate, FillRule::winding}) {
      const Region region = Region::polygon(points, rule);
      const Grid grid = grid_of(region);
      for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
          const int turns = winding(points, x, y);
          const bool inside = rule == FillRule::winding ? turns != 0 : turns % 2 != 0;
          ASSERT_EQ(grid[static_cast<std::size_t>(y * side + x)], inside)
              << round << " (" << x << "," << y << ")";
        }
    }
  }
}

TEST(Region, combinesAsSetsDo) {
  std::mt19937 random(2);
  const auto random_region = [&](int kind) {
    const std::vector<POINT> p = random_points(random, 6);
    const RECT box{p[0].x, p[0].y, p[1].x, p[1].y};
    if (kind == 0) return Region::rectangle(box);
    if (kind == 1) return Region::ellipse(box);
    if (kind == 2) return Region::polygon(p, FillRule::alternate);
    return Region::combined(Region::ellipse(box), Region::polygon(p, FillRule::winding), RGN_XOR);
  };
  const auto holds = [](int operation, bool a, bool b) {
    return operation == RGN_AND   ? a && b
           : operation == RGN_OR  ? a || b
           : operation == RGN_XOR ? a != b
                                  : a && !b;
  };
  for (int round = 0; round < 128; ++round) {
    const Region a = random_region(round % 4), b = random_region(round / 4 % 4);
    const Grid grid_a = grid_of(a), grid_b = grid_of(b);
    for (const int operation : {RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF}) {
      const Region c = Region::combined(a, b, operation);
      const Grid grid_c = grid_of(c);
      RECT seen{side, side, 0, 0};
      for (int i = 0; i < side * side; ++i) {
        const auto at = static_cast<std::size_t>(i);
        ASSERT_EQ(grid_c[at], holds(operation, grid_a[at], grid_b[at]))
            << round << " operation " << operation;
        if (!grid_c[at]) continue;
        seen = {std::min(seen.left, i % side), std::min(seen.top, i / side),
                std::max(seen.right, i % side + 1), std::max(seen.bottom, i / side + 1)};
      }
      if (c.kind() == Region::Kind::rows) {
        EXPECT_EQ(CRect(c.bounds()), CRect(seen)) << round;
      }
      EXPECT_EQ(c.kind() == Region::Kind::empty, seen.left == side) << round;
    }
  }
}

TEST(Region, smallFigures) {
  // In the first row the outline runs through the centres of pixels 1 (left edge) and 2 (right edge).
  const POINT diamond[] = {{2, 0}, {4, 2}, {2, 4}, {0, 2}};
  EXPECT_EQ(picture(grid_of(Region::polygon(diamond, FillRule::alternate)), 5, 4),
            ".#.../###../###../.#.../");
  const POINT triangle[] = {{0, 0}, {4, 0}, {0, 4}};
  EXPECT_EQ(picture(grid_of(Region::polygon(triangle, FillRule::alternate)), 4, 4), "###./##../#.../..../");
  EXPECT_EQ(picture(grid_of(Region::ellipse({0, 0, 4, 4})), 4, 4), ".##./####/####/.##./");
  EXPECT_EQ(picture(grid_of(Region::ellipse({1, 0, 2, 3})), 3, 3), ".#./.#./.#./");
  EXPECT_EQ(picture(grid_of(Region::ellipse({0, 0, 7, 5})), 7, 5),
            ".#####./#######/#######/#######/.#####./");
}

TEST(Region, ellipsesAreRoundAndSymmetric) {
  for (int width = 1; width <= side; ++width)
    for (const int height : {1, 2, 5, 17, side}) {
      const Grid grid = grid_of(Region::ellipse({0, 0, width, height}));
      for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
          const double dx = (x + 0.5) / width - 0.5, dy = (y + 0.5) / height - 0.5;
          const double distance = dx * dx + dy * dy;
          if (std::abs(distance - 0.25) < 1e-12) continue;  // on the outline
          ASSERT_EQ(grid[static_cast<std::size_t>(y * side + x)], distance < 0.25) << width << "x" << height;
        }
    }
}

TEST(Region, rowsAreSortedAndJoined) {
  const Region two =
      Region::combined(Region::rectangle({0, 0, 4, 4}), Region::rectangle({6, 0, 9, 4}), RGN_OR);
  ASSERT_EQ(two.rectangles().size(), 2u);
  EXPECT_EQ(CRect(two.rectangles()[1]), CRect(6, 0, 9, 4));
  const Region one = Region::combined(two, Region::rectangle({4, 0, 6, 4}), RGN_OR);
  EXPECT_EQ(one, Region::rectangle({0, 0, 9, 4}));
  const Region tall = Region::combined(one, Region::rectangle({0, 4, 9, 5}), RGN_OR);
  EXPECT_EQ(tall, Region::rectangle({0, 0, 9, 5}));
  Region hole = Region::combined(tall, Region::rectangle({2, 2, 3, 3}), RGN_DIFF);
  EXPECT_EQ(hole.rectangles().size(), 4u);
  hole.offset(100, -50);
  EXPECT_TRUE(hole.contains({100, -50}));
  EXPECT_FALSE(hole.contains({102, -48}));
  EXPECT_FALSE(hole.contains({109, -50}));
}

TEST(Region, hugeCoordinatesAreKeptWithinLimits) {
  constexpr int far = 0x7FFFFFFF;
  const POINT points[] = {{-far, -far}, {far, -far}, {0, far}};
  const Region triangle = Region::polygon(points, FillRule::alternate);
  EXPECT_TRUE(triangle.contains({0, 0}));
  EXPECT_FALSE(Region::ellipse({-far, -far, far, far}).contains({far, 0}));
  EXPECT_TRUE(Region::ellipse({-far, -far, far, far}).contains({67108000, 0}));
  Region moved = Region::combined(triangle, Region::ellipse({-far, -far, far, far}), RGN_XOR);
  moved.offset(far, far);
  Region gone = Region::rectangle({0, 0, 5, 5});
  gone.offset(far, far);
  EXPECT_EQ(gone.kind(), Region::Kind::empty);
}

}  // namespace
