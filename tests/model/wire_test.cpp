#include "tool/model/wire.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace model;

TEST(WirePair, StandsBesideTheWalkFromQToP) {
  // q (100, 200), p (130, 240): 50 pixels in the direction (0.6, 0.8); turned -90 degrees (0.8, -0.6).
  double a[10], b[10];
  for (int i = 0; i < 10; ++i) {
    a[i] = 1.0 + i;
    b[i] = 0.5 * i;
  }
  const WireFrame frame{.p = {130, 240}, .q = {100, 200}, .r = {130, 340}, .offset_a = 10, .offset_b = 20};
  struct Row {
    int k;
    CPointD outA, outB;
  };
  const Row rows[] = {
      {0, {100 + 8, 200 - 6}, {100, 200}},
      {1, {103 + 16, 204 - 12}, {103 - 8, 204 + 6}},
      {9, {127 + 80, 236 - 60}, {127 - 72, 236 + 54}},
      {10, {130, 240}, {130, 240}},
      {99, {130, 240}, {130, 240}},
      {-2, {130, 240}, {130, 240}},
      // r to p is straight up: turned -90 degrees it points left.
      {-1, {130 - 10, 340}, {130 + 20, 340}},
  };
  for (const bool exchanged : {false, true}) {
    WireFrame side = frame;
    side.exchanged = exchanged;
    for (const Row &row : rows) {
      const WirePair pair = wire_pair(side, row.k, a, b);
      // Exchanged sides mirror each point at the walk.
      const CPointD middle = row.k == -1 ? CPointD(130, 340) : CPointD(100 + 3.0 * row.k, 200 + 4.0 * row.k);
      const bool mirrored = exchanged && row.k >= -1 && row.k < 10;
      const CPointD wantA = mirrored ? middle + middle - row.outA : row.outA;
      const CPointD wantB = mirrored ? middle + middle - row.outB : row.outB;
      EXPECT_NEAR(pair.a.x, wantA.x, 1e-6) << row.k;
      EXPECT_NEAR(pair.a.y, wantA.y, 1e-6) << row.k;
      EXPECT_NEAR(pair.b.x, wantB.x, 1e-6) << row.k;
      EXPECT_NEAR(pair.b.y, wantB.y, 1e-6) << row.k;
    }
  }
}

TEST(WirePair, WithoutADirectionIsNoNumber) {
  const double ratios[10] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
  const WireFrame frame{.p = {5, 5}, .q = {5, 5}, .r = {5, 5}, .offset_a = 10, .offset_b = 20};
  EXPECT_FALSE(std::isfinite(wire_pair(frame, 0, ratios, ratios).a.x));
  EXPECT_FALSE(std::isfinite(wire_pair(frame, -1, ratios, ratios).b.x));
}

TEST(WireCurve, RunsDownOneSideAndUpTheOther) {
  std::array<POINT, wire_side_points> a{}, b{};
  for (int i = 0; i < wire_side_points; ++i) {
    a[static_cast<std::size_t>(i)] = {i, 10};
    b[static_cast<std::size_t>(i)] = {100 + i, 20};
  }
  const auto curve = wire_curve(a, {50.9, -60.9}, b);
  EXPECT_EQ(CPoint(curve[0]), CPoint(0, 10));
  EXPECT_EQ(CPoint(curve[10]), CPoint(10, 10));
  EXPECT_EQ(CPoint(curve[11]), CPoint(50, -60));
  EXPECT_EQ(CPoint(curve[12]), CPoint(110, 20));
  EXPECT_EQ(CPoint(curve[22]), CPoint(100, 20));
}

}  // namespace
