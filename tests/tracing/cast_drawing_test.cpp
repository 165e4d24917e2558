#include "tool/tracing/cast_drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tool/api/CModelTool.h"
#include "tool/api/CTools.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

constexpr COLORREF red = RGB(255, 0, 0);

struct Paper {
  framework::RecordingDevice device;
  CDC dc{device};
};

/// A wire along a parabola with its front at (300, 100).
struct Wire {
  tagDPOINT a[12], b[12], front{300.9, 100.9};
  CPoint whole_a[11], whole_b[11];
  tagPOINT curve[23];
  Wire() {
    for (int i = 0; i < 12; ++i) {
      const double x = 20.0 * (11 - i) + 0.7;
      a[i] = {300 - x, 100.3 + x * x / 200};
      b[i] = {300 + x, 100.3 + x * x / 200};
    }
    for (int i = 0; i < 11; ++i) {
      whole_a[i] = {static_cast<int>(a[i].x), static_cast<int>(a[i].y)};
      whole_b[i] = {static_cast<int>(b[i].x), static_cast<int>(b[i].y)};
      curve[i] = whole_a[i];
      curve[22 - i] = whole_b[i];
    }
    curve[11] = {300, 100};
  }
};

TEST(drawWire, isOneCurveThroughBothSides) {
  Wire wire;
  Paper whole, real, spline;
  CModelTool::DrawWire(&whole.dc, {3, 4}, 0.5, 9, &wire.front, nullptr, nullptr, 9, 9, wire.whole_a,
                       wire.whole_b, red);
  CModelTool::DrawWired(&real.dc, {3, 4}, 0.5, 9, &wire.front, nullptr, nullptr, 9, 9, wire.a, wire.b, red);
  CTools::Draw_SPLine(&spline.dc, {3, 4}, 0.5, wire.curve, 23, red, 102, 0, 1, 0, 10);
  ASSERT_EQ(whole.device.size(), 1U);
  EXPECT_THAT(whole.device.line(0), testing::HasSubstr("| pen solid 2 #ff0000 round | rop copy"));
  EXPECT_EQ(whole.device.line(0), real.device.line(0));
  EXPECT_EQ(whole.device.line(0), spline.device.line(0));
}

TEST(drawTooth, isAClosedCurve) {
  Paper drawn, spline;
  tagDPOINT p1{100, 100}, p2{100, 220};
  CModelTool::DrawTooth(&drawn.dc, {3, 4}, 1.5, 9, 5, 0, false, 1, &p1, &p2, red);
  const model::Crown crown(model::crown_template({5, 0, false, 1}), {100, 100}, {100, 220});
  CTools::Draw_SPLine(&spline.dc, {3, 4}, 1.5, crown.points().data(), 11, red, 102, 1, 1, 0, 10);
  ASSERT_EQ(drawn.device.size(), 1U);
  EXPECT_EQ(drawn.device.line(0), spline.device.line(0));
  CModelTool::DrawTooth(&drawn.dc, {}, 1, 0, 4, 0, false, 5, &p1, &p2, red);
  EXPECT_EQ(drawn.device.size(), 1U) << "no such tooth";
  CModelTool::DrawTooth(nullptr, {}, 1, 0, 5, 0, false, 1, &p1, &p2, red);
}

TEST(getToothPt, givesTheSameOutlineAsPoints) {
  tagDPOINT p1{100, 100}, p2{100, 220};
  CUIntArray xs, ys;
  xs.Add(7);
  ys.Add(7);
  const int count = CModelTool::GetToothPt(&xs, &ys, {10, 20}, 2.0, 9, 5, 0, false, -1, &p1, &p2);
  EXPECT_EQ(xs.GetSize(), count + 1);
  EXPECT_EQ(ys.GetSize(), count + 1);
  // The general crown starts on p1; a closed list ends with its second point, (125, 105).
  EXPECT_EQ(xs.GetAt(1), 2U * 100 - 10);
  EXPECT_EQ(ys.GetAt(1), 2U * 100 - 20);
  EXPECT_NEAR(xs.GetAt(count), 2 * 125 - 10, 2);
  EXPECT_NEAR(ys.GetAt(count), 2 * 105 - 20, 2);
  EXPECT_EQ(CModelTool::GetToothPt(&xs, &ys, {}, 1, 0, 4, 0, false, 5, &p1, &p2), 0);
}

TEST(computeWirePointd, passesItsArguments) {
  // q (0, 0), p (0, -100) straight up, r (0, 50); turned -90 degrees, up points left.
  tagDPOINT p{0, -100}, q{0, 0}, r{0, 50}, a{}, b{};
  double ratioA[10] = {1, 2}, ratioB[10] = {1, 3};
  const auto expect = [&](int side, int k, CPointD wantA, CPointD wantB) {
    CModelTool::ComputeWirePointd(9, side, &p, &q, &r, ratioA, ratioB, 5, 7, k, &a, &b);
    EXPECT_NEAR(a.x, wantA.x, 1e-6) << side << ' ' << k;
    EXPECT_NEAR(a.y, wantA.y, 1e-6) << side << ' ' << k;
    EXPECT_NEAR(b.x, wantB.x, 1e-6) << side << ' ' << k;
    EXPECT_NEAR(b.y, wantB.y, 1e-6) << side << ' ' << k;
  };
  expect(5, 1, {-10, -10}, {21, -10});
  expect(6, 1, {10, -10}, {-21, -10});
  expect(5, -1, {-5, 50}, {7, 50});
  expect(5, 10, {0, -100}, {0, -100});
}

}  // namespace
