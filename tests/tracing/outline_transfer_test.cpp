#include "tool/tracing/outline_transfer.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using namespace tracing;

// Two points beside a vertical source line. The targets lie on half pixels, so that the ten-digit pi of the
// geometry cannot push a point over a pixel's edge.
const int diamond[50][2] = {{0, 0}, {5, 5}, {-5, 5}, {0, 10}};
constexpr CPointD upper{100.5, 100.5}, lower{100.5, 120.5}, right{120.5, 100.5};
constexpr CPoint top(0, 0), bottom(0, 10), none(0, 0), reversed(-1, -1);
const OutlineView turned{.centre = {100, 100}, .turn = 90}, collapsed{.centre = {30, 40}, .scale = 0},
    life_size{.origin = {1000, 2000}, .mag = 10, .centre = {100, 100}, .scale = 0.1, .mirrored = true};

// clang-format off
const struct {
  const char *name;
  OutlineFit fit;
  OutlineView view;
  std::array<CPoint, 4> points;
} rows[] = {
    {"twice as large", {upper, lower, top, bottom}, {}, {{{100, 100}, {110, 110}, {90, 110}, {100, 120}}}},
    {"pivot above: mirrored", {upper, lower, top, bottom, true}, {}, {{{100, 100}, {90, 110}, {110, 110}, {100, 120}}}},
    {"to the right", {upper, right, top, bottom}, {}, {{{100, 100}, {110, 90}, {110, 110}, {120, 100}}}},
    {"own ends", {upper, lower, none, none}, {}, {{{100, 100}, {110, 110}, {90, 110}, {100, 120}}}},
    {"last end first", {upper, lower, reversed, reversed}, {}, {{{100, 120}, {110, 110}, {90, 110}, {100, 100}}}},
    {"zoomed", {upper, lower, top, bottom}, {{10, 20}, 1.5}, {{{140, 130}, {155, 145}, {125, 145}, {140, 160}}}},
    {"turned", {upper, lower, top, bottom}, turned, {{{99, 100}, {89, 110}, {89, 90}, {79, 100}}}},
    {"life-size", {upper, lower, top, bottom}, life_size, {{{0, 1000}, {10, 990}, {-10, 990}, {0, 980}}}},
    {"scale 0", {upper, lower, top, bottom}, collapsed, {{{30, 40}, {30, 40}, {30, 40}, {30, 40}}}},
};
// clang-format on

TEST(outlineTransfer, placesPoints) {
  for (const auto &row : rows) {
    std::array<POINT, outline_capacity> device{};
    ASSERT_EQ(transfer_outline(diamond, row.fit, row.view, device.data()), 4) << row.name;
    for (std::size_t i = 0; i < 4; ++i)
      EXPECT_TRUE(row.points[i] == device[i])
          << row.name << ' ' << i << ": " << device[i].x << ',' << device[i].y;
  }
}

TEST(outlineTransfer, degenerateOutlines) {
  std::array<POINT, outline_capacity> device{};
  const OutlineFit own_ends{upper, lower, none, none};
  const int single[50][2] = {{7, 7}};
  ASSERT_EQ(transfer_outline(single, own_ends, {}, device.data()), 1);
  EXPECT_TRUE(CPoint(100, 100) == device[0]);

  const int closed[50][2] = {{1, 1}, {5, 5}, {1, 1}};
  ASSERT_EQ(transfer_outline(closed, own_ends, {}, device.data()), 3);
  EXPECT_TRUE(CPoint(100, 100) == device[0]);
  EXPECT_TRUE(CPoint(100, 120) == device[1]);  // on the pivot

  int full[50][2];
  for (auto &point : full) point[0] = point[1] = 3;
  full[3][0] = 0;
  EXPECT_EQ(outline_size(full), 50);
  full[3][1] = 0;
  EXPECT_EQ(outline_size(full), 3);
  EXPECT_EQ(transfer_outline(nullptr, own_ends, {}, device.data()), 0);
}

}  // namespace
