#include "tool/geometry/growth_weight.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(StandardWeight, ByAgeAndSex) {
  struct Row {
    double age, height;
    int sex;
    double weight;
  };
  for (const Row &row :
       {Row{0.5, 60, 1, 0.0}, Row{-3, 60, 1, 0.0}, Row{std::numeric_limits<double>::quiet_NaN(), 60, 1, 0.0},
        Row{1, 80, 1, 0.00206 * 6400 - 0.1166 * 80 + 6.5273},
        Row{5.9, 110, 2, 0.00249 * 12100 - 0.1858 * 110 + 9.036}, Row{6, 115, 1, 0.461 * 115 - 32.382},
        Row{6, 115, 0, 0.458 * 115 - 32.079}, Row{10.9, 140, 1, 0.752 * 140 - 70.461},
        Row{16, 160, 2, 0.578 * 160 - 39.057}, Row{17, 170, 1, 0.672 * 170 - 53.642},
        Row{40, 160, 2, 0.598 * 160 - 42.339}, Row{1e300, 160, 2, 0.598 * 160 - 42.339}}) {
    EXPECT_NEAR(geometry::standard_weight(row.age, row.height, row.sex), row.weight, 1e-9) << row.age;
  }
}

}  // namespace
