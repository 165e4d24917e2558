#include "tool/model/crowns.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tool/model/crown_templates.h"

namespace {

using namespace model;

TEST(CrownTemplate, IsChosenByTheTable) {
  struct Row {
    int family, tooth;
    std::size_t count;
    std::size_t first, second;  ///< anchors of the turned position
    POINT start;                ///< tells templates of one size apart
  };
  const Row rows[] = {
      {5, -1, 12, 0, 6, {50, 0}},   {7, -1, 12, 0, 6, {50, 0}},   {5, 3, 6, 2, 5, {201, 50}},
      {5, 4, 6, 2, 5, {201, 50}},   {5, 2, 8, 4, 0, {150, 100}},  {5, 1, 11, 4, 0, {132, 130}},
      {5, 0, 12, 4, 0, {119, 159}}, {5, 9, 12, 4, 0, {119, 159}}, {5, -2, 12, 4, 0, {119, 159}},
      {6, 3, 10, 3, 8, {245, 519}}, {6, 4, 10, 3, 8, {245, 519}}, {6, 2, 9, 0, 4, {314, 493}},
      {6, 1, 11, 0, 5, {332, 460}}, {6, 0, 11, 0, 5, {341, 424}},
  };
  for (const Row &row : rows) {
    for (const int code : {11, 10}) {
      for (const bool mirror : {true, false}) {
        const CrownTemplate shape = crown_template({row.family, code, mirror, row.tooth});
        const bool turned = (code == 11) == mirror || row.tooth == -1;
        ASSERT_EQ(shape.points.size(), row.count);
        EXPECT_EQ(CPoint(shape.points[0]), CPoint(row.start));
        EXPECT_EQ(shape.anchor_1, turned ? row.first : row.second) << row.family << ' ' << row.tooth;
        EXPECT_EQ(shape.anchor_2, turned ? row.second : row.first) << row.family << ' ' << row.tooth;
      }
    }
  }
  for (const int tooth : {5, -2, 99}) EXPECT_TRUE(crown_template({6, 11, true, tooth}).points.empty());
  EXPECT_TRUE(Crown({}, {1, 2}, {3, 4}).points().empty());
}

TEST(CrownTemplate, PointsAreAsPublished) {
  struct Row {
    std::span<const POINT> points;
    int x, y, order;  ///< sums over the points, and of (i + 1) (x + 3 y)
  };
  // Formed from the published tables by another program.
  const Row rows[] = {
      {crown_general, 600, 720, 17844}, {crown_u6, 1277, 364, 8468},      {crown_u8, 1276, 724, 15750},
      {crown_u11, 1603, 1322, 34165},   {crown_u12, 1603, 1805, 46664},   {crown_l9, 2719, 4510, 80847},
      {crown_l10, 2480, 5332, 101854},  {crown_l11a, 3545, 5179, 113695}, {crown_l11b, 3688, 4817, 108248}};
  for (const Row &row : rows) {
    int x = 0, y = 0, order = 0, i = 0;
    for (const POINT &p : row.points) {
      x += p.x;
      y += p.y;
      order += ++i * (p.x + 3 * p.y);
    }
    EXPECT_EQ(x, row.x);
    EXPECT_EQ(y, row.y);
    EXPECT_EQ(order, row.order);
  }
}

TEST(Crown, OfFullSizeIsItsTemplateShifted) {
  const Crown crown(crown_template({5, 0, false, -1}), {100, 100}, {100, 220});
  ASSERT_EQ(crown.points().size(), 12u);
  EXPECT_EQ(CPoint(crown.points()[0]), CPoint(100, 100));
  EXPECT_EQ(CPoint(crown.points()[6]), CPoint(100, 220));
  for (std::size_t i = 0; i < 12; ++i) {  // truncation may lose a pixel of what is not exact
    EXPECT_NEAR(crown.points()[i].x, crown_general[i].x + 50, 1) << i;
    EXPECT_NEAR(crown.points()[i].y, crown_general[i].y + 100, 1) << i;
  }
}

TEST(Crown, IsTurnedAndScaledOntoTheWidthPoints) {
  // Template vectors from anchor (50, 0), turned with (0, 120) onto (120, 90) and scaled by 150 / 120:
  // (x, y) becomes (100, 50) + (y, 0.75 y) + (0.75 x, -x) with x, y relative to the anchor.
  const Crown crown(crown_template({5, 0, false, -1}), {100.4, 50.4}, {220.4, 140.4});
  const CPointD p1(100.4, 50.4);
  for (std::size_t i = 0; i < 12; ++i) {
    const double x = crown_general[i].x - 50, y = crown_general[i].y;
    EXPECT_NEAR(crown.points()[i].x, std::trunc(p1.x + y + 0.75 * x), 1) << i;
    EXPECT_NEAR(crown.points()[i].y, std::trunc(p1.y + 0.75 * y - x), 1) << i;
  }
  EXPECT_EQ(CPoint(crown.points()[0]), CPoint(100, 50));
  EXPECT_EQ(CPoint(crown.points()[6]), CPoint(220, 140));
}

TEST(Crown, ExchangedAnchorsTurnItEndForEnd) {
  // U8's anchors 4 and 0 at full size: (163, 79) and (150, 100).
  const Crown crown(crown_template({5, 11, true, 2}), {163, 79}, {150, 100});
  const Crown turned(crown_template({5, 11, false, 2}), {163, 79}, {150, 100});
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_NEAR(crown.points()[i].x, crown_u8[i].x, 1);
    EXPECT_NEAR(crown.points()[i].y, crown_u8[i].y, 1);
    EXPECT_NEAR(turned.points()[i].x, 163 + 150 - crown_u8[i].x, 1);
    EXPECT_NEAR(turned.points()[i].y, 79 + 100 - crown_u8[i].y, 1);
  }
}

TEST(Crown, CollapsesOntoCoincidingWidthPoints) {
  const Crown crown(crown_template({5, 11, true, 3}), {70.9, -8.9}, {70.9, -8.9});
  ASSERT_EQ(crown.points().size(), 6u);
  for (const POINT &p : crown.points()) EXPECT_EQ(CPoint(p), CPoint(70, -8));
  const double nan = std::numeric_limits<double>::quiet_NaN();
  (void)Crown(crown_template({5, 11, true, 3}), {nan, 1e308}, {-1e308, 2});
}

}  // namespace
