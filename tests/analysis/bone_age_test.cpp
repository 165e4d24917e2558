#include "tool/analysis/bone_age.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <string>

#include "tests/support/temporary_folder.h"

namespace {

using analysis::bone_age;
using analysis::bone_age_coefficients;

/// d1 / l1 = 0.5, d2 / l2 = 0.8, d2 / d3 = 1.
tagCVBA vertebrae(int factor = 1) {
  tagCVBA record{};
  const auto place = [&](int k, int x, int y) { record.pt[k] = {x * factor, y * factor}; };
  place(11, 30, 50);  // 50 above the line of 14 and 15
  place(12, 0, 0);
  place(13, 100, 0);
  place(14, 0, 100);
  place(15, 90, 100);
  place(16, 10, 320);
  place(17, 50, 320);  // both 80 above the line of 20 and 21
  place(18, 0, 300);
  place(19, 60, 380);  // length 100
  place(20, 0, 400);
  place(21, 90, 400);
  return record;
}

std::array<double, 4> defaults(int sex) {
  return bone_age_coefficients("/no/such/folder/cvba.dat", sex);
}

TEST(BoneAge, FromTheDefaultCoefficients) {
  for (const int factor : {1, 7}) EXPECT_NEAR(bone_age(vertebrae(factor), defaults(1)), 12.415, 1e-9);
  for (const int sex : {2, 0, -1}) EXPECT_NEAR(bone_age(vertebrae(), defaults(sex)), 12.36, 1e-9) << sex;
  tagCVBA record = vertebrae();
  record.pt[13] = record.pt[12];
  EXPECT_TRUE(std::isinf(bone_age(record, defaults(1)))) << "coinciding points";
  EXPECT_TRUE(std::isnan(bone_age(tagCVBA{}, defaults(1))));
}

TEST(BoneAge, TakesSingleCoefficientsFromTheFile) {
  const support::TemporaryFolder folder;
  struct Row {
    const char *what, *text;
    double male_c1, male_c0, female_c1;
  };
  const Row rows[] = {
      {"one key", "[CVB_AGE]\r\nPARAM_M1=10\r\n", 10.0, 0.82, 6.2},
      {"not a number", "[CVB_AGE]\r\nPARAM_M1=abc\r\n", 0.0, 0.82, 6.2},
      {"another section", "[OTHER]\r\nPARAM_M1=10\r\n", 13.17, 0.82, 6.2},
      {"all at once", "[CVB_AGE]\r\nPARAM_M0=-1.5\r\nPARAM_M1=2.25\r\nPARAM_F1=3e1\r\n", 2.25, -1.5, 30.0}};
  const std::string path = folder.path() + "/cvba.dat";
  for (const Row &row : rows) {
    std::ofstream(path, std::ios::binary) << row.text;
    EXPECT_EQ(bone_age_coefficients(path.c_str(), 1)[1], row.male_c1) << row.what;
    EXPECT_EQ(bone_age_coefficients(path.c_str(), 1)[0], row.male_c0) << row.what;
    EXPECT_EQ(bone_age_coefficients(path.c_str(), 2)[1], row.female_c1) << row.what;
  }
}

}  // namespace
