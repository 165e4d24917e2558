#include "tool/api/CModelTool.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const double pi = std::acos(-1.0);

/// Twelve points on a half circle of radius 300 about (400, 400).
struct Arch {
  tagDPOINT points[12];
  Arch() {
    for (int i = 0; i < 12; ++i) {
      points[i] = {400 - 300 * std::cos(pi * i / 11.0), 400 - 300 * std::sin(pi * i / 11.0)};
    }
  }
};

TEST(Arch, PositionOfItsSecondPoint) {
  Arch arch;
  const double expected = pi / 11 * 30;  // the first of eleven spans of the half circle, 0.1 mm per pixel
  EXPECT_NEAR(CModelTool::Get6KinshinLength(arch.points, 100.0, 0.1), expected, 0.11);
  EXPECT_EQ(CModelTool::Get6KinshinLength(arch.points, 0.0, 0.1), 0.0);
  EXPECT_EQ(CModelTool::Get6KinshinLength(arch.points, -5.0, 0.1), 0.0);
  EXPECT_EQ(CModelTool::Get6KinshinLength(arch.points, 2.0, 0.1), 0.0) << "never nearer than the limit";
  EXPECT_NEAR(CModelTool::Get6KinshinLength(arch.points, 1e300, 0.1), expected, 0.11);
  for (tagDPOINT &p : arch.points) p.x = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(CModelTool::Get6KinshinLength(arch.points, 100.0, 0.1), 0.0);
}

TEST(Arch, StraightDistanceIgnoresCountAndRange) {
  Arch arch;
  tagDPOINT out{-7, -7};
  double position = 0.0;
  const auto search = [&](double distance, double limit) {
    return CModelTool::Get_Straight_SPLinePointd(arch.points, 2, 5, 6, 0.1, distance, arch.points[0], true,
                                                 limit, &out, &position);
  };
  // A chord of 30 mm on a radius of 30 mm spans 60 degrees, an arc of 10 pi mm.
  ASSERT_EQ(search(30.0, 200.0), 1);
  EXPECT_NEAR(position, 10 * pi, 0.2);
  EXPECT_NEAR(std::hypot(out.x - 100, out.y - 400) * 0.1, 30.0, 0.11);
  out = {-7, -7};
  position = 50.0;
  EXPECT_EQ(search(1e6, 20.0), 0);
  EXPECT_NEAR(position, 50.1, 1e-9);
  EXPECT_EQ(out.x, -7.0) << "not written";
}

TEST(GetSPLinePt, AppendsThePointsOfTheView) {
  const auto view_of = [](std::vector<tagPOINT> points, bool closed, bool flip, CPoint origin, double zoom) {
    CUIntArray xs, ys;
    xs.Add(77);
    ys.Add(88);
    const int added = CModelTool::GetSPLinePt(&xs, &ys, origin, zoom, points.data(),
                                              static_cast<short>(points.size()), closed, flip);
    EXPECT_EQ(xs.GetSize(), added + 1);
    EXPECT_EQ(ys.GetSize(), added + 1);
    EXPECT_EQ(xs.GetAt(0), 77u);
    std::vector<CPoint> view;
    for (int i = 1; i <= added; ++i)
      view.emplace_back(static_cast<int>(xs.GetAt(i)), static_cast<int>(ys.GetAt(i)));
    return view;
  };
  using Points = std::vector<CPoint>;
  EXPECT_EQ(view_of({{10, 20}}, false, false, {3, 4}, 0.55), (Points{{5 - 3, 11 - 4}}));
  EXPECT_EQ(view_of({{10, 20}, {300, 40}}, false, false, {3, 4}, 0.55),
            (Points{{5 - 3, 11 - 4}, {165 - 3, 22 - 4}}));
  EXPECT_EQ(view_of({{10, 20}, {300, 40}}, false, true, {3, 4}, 0.55),
            (Points{{5 - 3, 4 - 11}, {165 - 3, 4 - 22}}));
  EXPECT_EQ(view_of({}, false, false, {0, 0}, 1.0), Points());
  EXPECT_EQ(view_of({{0, 0}, {100, 0}, {50, 80}}, false, false, {0, 0}, 1.0).back(), CPoint(50, 80));
  const Points closed = view_of({{0, 0}, {100, 0}, {50, 80}}, true, true, {0, 0}, 1.0);
  EXPECT_EQ(closed.front(), CPoint(0, 0));
  EXPECT_EQ(closed.back(), CPoint(100, 0));
  tagPOINT none[1] = {};
  CUIntArray xs, ys;
  EXPECT_EQ(CModelTool::GetSPLinePt(&xs, &ys, CPoint(0, 0), 1.0, none, -3, 1, 0), 0);
}

TEST(GetSPLinePointd, LeavesItsOutputAloneBeyondTheCurve) {
  Arch arch;
  tagDPOINT out{-7, -7};
  const double whole = CModelTool::Get_SPLinePointd(arch.points, 12, 0, 12, 0.1, 1e9, &out);
  EXPECT_NEAR(whole, pi * 30, 0.5);
  EXPECT_EQ(out.x, -7.0);
  EXPECT_LE(CModelTool::Get_SPLinePointd(arch.points, 12, 0, 12, 0.1, 0.0, &out), 2.0);
  EXPECT_EQ(out.x, arch.points[0].x);
  EXPECT_EQ(out.y, arch.points[0].y);
}

}  // namespace
