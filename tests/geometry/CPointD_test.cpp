#include "tool/geometry/CPointD.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(CPointD, IsNullOnlyAtExactlyZero) {
  struct Row {
    CPointD point;
    int null;
  };
  for (const Row &row : {Row{{}, 1}, Row{{-0.0, 0.0}, 1}, Row{{0.0, 1e-300}, 0}, Row{{nan, 0.0}, 0}}) {
    EXPECT_EQ(row.point.IsPointNull(), row.null) << row.point.x << ", " << row.point.y;
  }
  CPointD point(3.0, 4.0);
  EXPECT_EQ(&point.SetPointEmpty(), &point);
  EXPECT_EQ(point.IsPointNull(), 1);
}

TEST(CPointD, ComparesExactlyWithBothKindsOfPoint) {
  EXPECT_EQ(CPointD(1.5, 2.0) == CPoint(1, 2), 0);
  EXPECT_EQ(CPointD(1.0, 2.0) == CPoint(1, 2), 1);
  EXPECT_EQ(CPointD(1.0, 2.0) != CPoint(1, 2), 0);
  EXPECT_EQ(CPointD(0.1 + 0.2, 0.0) == CPointD(0.3, 0.0), 0);
  EXPECT_EQ(CPointD(nan, 0.0) == CPointD(nan, 0.0), 0);
  EXPECT_EQ(CPointD(nan, 0.0) != CPointD(nan, 0.0), 1);
}

TEST(CPointD, CompoundOperatorsSurviveTheirOwnMembersAsOperands) {
  CPointD point(2.0, 6.0);
  point *= point.x;
  EXPECT_TRUE(point == CPointD(4.0, 12.0));
  point /= point.x;
  EXPECT_TRUE(point == CPointD(1.0, 3.0));
  point.SetPoint(point.y, point.x);
  EXPECT_TRUE(point == CPointD(3.0, 1.0));
  const CPointD &same = point;
  point -= same;
  EXPECT_EQ(point.IsPointNull(), 1);
}

TEST(CPointD, CalculatesExactly) {
  const CPoint lowest(INT32_MIN, INT32_MAX);
  EXPECT_TRUE(CPointD(lowest) - lowest == CPointD());
  EXPECT_TRUE(CPointD(0.5, 0.5) + CPoint(1, 2) == CPointD(1.5, 2.5));
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(CPointD(1.0, -1.0) / 0.0 == CPointD(infinity, -infinity));
}

TEST(CPointD, ReturnsFromTheRecordBitForBit) {
  const CPointD point(-0.0, nan);
  const CPointD back = CPointD().FromDPOINT(point.ToDPOINT());
  EXPECT_EQ(std::bit_cast<std::uint64_t>(back.x), std::bit_cast<std::uint64_t>(point.x));
  EXPECT_EQ(std::bit_cast<std::uint64_t>(back.y), std::bit_cast<std::uint64_t>(point.y));
}

}  // namespace
