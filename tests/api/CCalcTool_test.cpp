#include "tool/api/CCalcTool.h"

#include <gtest/gtest.h>

#include "tests/support/random_points.h"
#include "tool/analysis/landmarks.h"

namespace {

/// One random whole-pixel point in the three forms that callers use.
struct Forms {
  CPoint whole;
  tagDPOINT plain;
  CPointD real;
  explicit Forms(CPoint p) : whole(p), plain{double(p.x), double(p.y)}, real(p) {}
};

TEST(CCalcTool, EveryFormOfAPointGivesTheSameResult) {
  SCOPED_TRACE("seed 61");
  support::RandomPoints random(61);
  for (int i = 0; i < 500; ++i) {
    Forms a(random.whole()), b(random.whole()), c(random.whole()), d(random.whole());
    EXPECT_EQ(CCalcTool::Get_Length(a.whole, b.whole, 0.1), CCalcTool::Get_Lengthd(&a.plain, &b.real, 0.1));
    EXPECT_EQ(CCalcTool::Get_Angle(a.whole, b.whole, c.whole, d.whole),
              CCalcTool::Get_Angled(&a.plain, b.whole, &c.plain, d.whole));
    EXPECT_EQ(CCalcTool::Angle_Cal(a.whole, b.whole, c.whole),
              CCalcTool::Angle_Cald(a.whole, &b.plain, &c.plain));
    EXPECT_EQ(CCalcTool::Get_Suisen_Length(a.whole, b.whole, c.whole, 0.1),
              CCalcTool::Get_Suisen_Length(a.whole, b.whole, &c.plain, 0.1));
    EXPECT_EQ(CCalcTool::Get_Touei_Length(a.whole, b.whole, c.whole, d.whole, 0.1, 1),
              CCalcTool::Get_Touei_Length(&a.plain, &b.plain, c.whole, d.whole, 0.1, -7));
    tagDPOINT whole_foot{}, mixed_foot{};
    CCalcTool::Get_Pointd(a.whole, b.whole, c.whole, &whole_foot);
    CCalcTool::Get_Pointd(&a.plain, &b.plain, c.whole, &mixed_foot);
    const CPointD foot = CCalcTool::Get_Pointd(&a.real, &b.real, &c.real);
    EXPECT_TRUE(foot == CPointD(whole_foot.x, whole_foot.y) && foot == CPointD(mixed_foot.x, mixed_foot.y));
    CPointD crossing = CCalcTool::CrossPoint(&a.real, &b.real, &c.real, &d.real);
    tagDPOINT pile{};
    CCalcTool::Pile_Pointd(a.whole, b.whole, &c.plain, &d.plain, &pile);
    EXPECT_TRUE(crossing == CPointD(pile.x, pile.y));
    tagDPOINT moved{}, turned{};
    CCalcTool::V_Moved(a.whole, &b.plain, c.whole, &moved, 0.5);
    EXPECT_TRUE(CPointD(moved.x, moved.y) == c.real + (b.real - a.real) * 0.5);
    CCalcTool::Lot_Pointdd(&a.plain, &b.plain, 30.0, 0.1, &turned);
    EXPECT_TRUE(CPointD(turned.x, turned.y) == geometry::rotated_scaled(a.real, b.real, 30.0, 0.1));
    EXPECT_EQ(CCalcTool::CrossPoint(&a.whole, &b.whole, &c.whole, &d.whole), geometry::truncate(crossing));
  }
}

TEST(CCalcTool, AnOutputMayBeAnInput) {
  tagDPOINT a{0, 0}, b{10, 10}, p{10, 0};
  CCalcTool::Get_Pointd(&a, &b, &p, &p);
  EXPECT_DOUBLE_EQ(p.x, 5.0);
  EXPECT_DOUBLE_EQ(p.y, 5.0);
}

TEST(CCalcTool, FailedCrossings) {
  tagDPOINT a{0, 0}, b{2, 1}, c{0, 5}, d{4, 7}, out{-7, -7};
  EXPECT_EQ(CCalcTool::Get_Cross_Pointd(&a, &b, &c, &d, &out), 0);
  EXPECT_EQ(CCalcTool::Chk_Cross(&a, &b, &c, &d, &out), 0);
  CCalcTool::Pile_Pointd(&a, &b, &c, &d, &out);
  EXPECT_TRUE(CPointD(out.x, out.y).IsPointNull());
  EXPECT_EQ(CCalcTool::Chk_Cross(CPoint(0, 0), CPoint(10, 0), CPoint(15, -1), CPoint(15, 1), &out), 0);
  EXPECT_EQ(out.x, 15.0) << "the intersection is left all the same";
}

TEST(CCalcTool, WholePixelMembersTruncate) {
  EXPECT_EQ(CCalcTool::Get_Mpoint(CPoint(3, 6), CPoint(6, 3)), CPoint(4, 5));
  EXPECT_EQ(CCalcTool::Get_Point(CPoint(0, 0), CPoint(3, 1), CPoint(2, 1)), CPoint(2, 1));
  EXPECT_EQ(CCalcTool::Get_CirclePoint(CPoint(0, 0), CPoint(3, 4), 5.9), CPoint(3, 4));
  EXPECT_EQ(CCalcTool::V_Move(CPoint(0, 0), CPoint(3, -3), CPoint(10, 10), 0.5), CPoint(11, 9));
  EXPECT_EQ(CCalcTool::V_Move(CPoint(0, 0), CPoint(1, 1), CPoint(INT32_MAX, 5), 1e300),
            CPoint(INT32_MAX, INT32_MAX));
  EXPECT_EQ(CCalcTool::Trans_Point(CPoint(0, 0), CPoint(30, 40), 5.55, 0, 0.1), CPoint(63, 84));
  CPoint a(0, 0), b(3, 3), c(0, 4), d(4, 1);  // x = y meets y = 4 - 3 x / 4 at 16 / 7
  EXPECT_EQ(CCalcTool::CrossPoint(&a, &b, &c, &d), CPoint(2, 2));
}

TEST(GetOrg, ByMode) {
  using namespace analysis::lateral;
  tagPOINT landmarks[analysis::lateral_landmark_count] = {};
  landmarks[S] = {0, 0};
  landmarks[N] = {10, -20};
  landmarks[PogR] = {10, 0};
  landmarks[GoL] = {-5, 10};
  landmarks[Me] = {5, 10};
  landmarks[Ba] = {-10, 10};
  landmarks[PT] = {0, 5};
  const tagDPOINT before{-7, -7};
  struct Row {
    unsigned mode, i1, i2, i3, i4;
    CPointD origin;
  };
  const Row rows[] = {{0, GoL, Me, N, PT, {10, 5}},   // level reference: (c.x, d.y)
                      {1, 0, 0, 0, 0, {-5, 2.5}},     // see the frame's own test
                      {2, 0, 0, 0, 0, {10, -20}},     // nasion
                      {3, GoL, Me, N, PT, {-7, -7}},  // unknown mode
                      {0, GoL, 51, N, PT, {-7, -7}},  // beyond the list
                      {0, GoL, Me, 0xFFFFFFFFu, PT, {-7, -7}}};
  for (const Row &row : rows) {
    tagDPOINT out = before;
    CCalcTool::Get_Org(landmarks, &out, row.mode, row.i1, row.i2, row.i3, row.i4);
    EXPECT_NEAR(out.x, row.origin.x, 1e-9) << row.mode;
    EXPECT_NEAR(out.y, row.origin.y, 1e-9) << row.mode;
  }
}

}  // namespace
