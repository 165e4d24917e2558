#include "tool/geometry/truncation.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int lowest = std::numeric_limits<std::int32_t>::min();
constexpr int highest = std::numeric_limits<std::int32_t>::max();

TEST(Truncation, QuotientIsExactBeforeItIsCut) {
  struct Row {
    double dividend, divisor;
    int whole;
  };
  // 0.1, 0.2 and 0.3 as doubles: the first two lie above the decimal, the third below.
  for (const Row &row :
       {Row{3, 0.1, 29}, Row{-3, 0.1, -29}, Row{10, 0.1, 99}, Row{5, 0.2, 24}, Row{3, 0.3, 10},
        Row{3, 0.5, 6}, Row{-5, 0.5, -10}, Row{5, 3.0, 1}, Row{0, 0.1, 0}, Row{3, -0.5, -6},
        Row{3, 0.0, highest}, Row{-3, 0.0, lowest}, Row{0, 0.0, 0}, Row{3, 1e-300, highest}}) {
    EXPECT_EQ(geometry::truncated_quotient(row.dividend, row.divisor), row.whole)
        << row.dividend << " / " << row.divisor;
  }
}

TEST(Truncation, PointsAreCutTowardZero) {
  EXPECT_EQ(geometry::truncate({2.9, -2.9}), CPoint(2, -2));
  EXPECT_EQ(geometry::truncate({1e300, std::numeric_limits<double>::quiet_NaN()}), CPoint(highest, 0));
}

TEST(Truncation, IntegerArithmeticIsDefinedAtTheLimits) {
  EXPECT_EQ(geometry::integer_difference(highest, lowest), -1);
  EXPECT_EQ(geometry::integer_sum(highest, 1), highest);
  EXPECT_EQ(geometry::integer_sum(lowest, -1), lowest);
}

}  // namespace
