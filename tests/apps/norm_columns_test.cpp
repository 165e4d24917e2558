#include "apps/common/norm_columns.h"

#include <gtest/gtest.h>

#include <string>

namespace {

analysis::DefinitionFile file(const std::string &text) {
  return analysis::DefinitionFile(text);
}

const char *const by_age =
    "Mean_M:\r\nX=1\r\nY=60,61,62,63,64,65,66,67,68,69,70,71,72\r\nMean_F:\r\nX=1\r\nSD:\r\nX=2\r\n"
    "Stage:\r\nchild=0-12\r\nadult=12-\r\n";
const char *const by_stage =
    "Mean:\r\nX=1,2,3\r\nStage_M:\r\nchild=0-10\r\npubertal=10-15\r\nadult=15-\r\n"
    "Stage_F:\r\nchild=0-9\r\npubertal=9-14\r\nadult=14-\r\n";
const char *const by_teeth =
    "Mean:\r\nX=1,2\r\nStage_Type:\r\nDental\r\nStage:\r\nmixed=IIA-IIIC\r\nlate=IIIC\r\n";
const char *const second_set =
    "Mean:\r\nX=1,2,3,4\r\nMean2:\r\nX=1,2\r\nStage2:\r\nyoung=0-12\r\nold=12-\r\n";

TEST(NormColumns, FollowTheStagesOrTheYears) {
  const struct {
    const char *name, *text;
    int sex;
    app::Growth growth;
    int age_code;
  } rows[] = {
      {"younger than the first column", by_age, 1, {3.0, ""}, 0},
      {"first column", by_age, 1, {6.9, ""}, 0},
      {"a year later", by_age, 1, {7.0, ""}, 1},
      {"last column", by_age, 1, {18.0, ""}, 12},
      {"older than the last column", by_age, 1, {90.0, ""}, 12},
      {"age not stated", by_age, 1, {{}, ""}, 12},
      {"one column for women", by_age, 2, {12.0, ""}, 0},
      {"a boy of 14", by_stage, 1, {14.0, ""}, 1},
      {"a girl of 14", by_stage, 2, {14.0, ""}, 2},
      {"stages without an age", by_stage, 2, {{}, ""}, 2},
      {"by teeth", by_teeth, 1, {30.0, "IIIB"}, 0},
      {"by teeth, late", by_teeth, 1, {8.0, "VA"}, 1},
      {"by teeth, not stated", by_teeth, 1, {8.0, ""}, 1},
      {"two sets", second_set, 1, {8.0, ""}, 2},
      {"two sets, older", second_set, 1, {13.0, ""}, 103},
      {"no norms", "Calc:\r\nX=len([S],[N])\r\n", 1, {12.0, ""}, 0},
  };
  for (const auto &row : rows)
    EXPECT_EQ(app::norm_columns(file(row.text), row.sex, row.growth).age_code, row.age_code) << row.name;
}

TEST(NormColumns, SayWhatTheyStandFor) {
  EXPECT_EQ(app::norm_columns(file(by_age), 1, {12.9, ""}).meaning, "12 years (column 7 of 13)");
  EXPECT_EQ(app::norm_columns(file(by_age), 1, {40.0, ""}).meaning, "18 years and older (column 13 of 13)");
  EXPECT_EQ(app::norm_columns(file(by_stage), 2, {10.0, ""}).meaning, "pubertal (column 2 of 3)");
  EXPECT_EQ(app::norm_columns(file(by_age), 2, {12.0, ""}).meaning, "one for all ages");
}

TEST(GrowthStages, AreToldByAgeAndByTeeth) {
  EXPECT_EQ(app::growth_stages(file(by_stage), 2, {10.0, "IIIB"}).by_age, "pubertal");
  EXPECT_EQ(app::growth_stages(file(by_stage), 2, {10.0, "IIIB"}).by_teeth, "");
  EXPECT_EQ(app::growth_stages(file(by_teeth), 2, {10.0, "IIIB"}).by_age, "");
  EXPECT_EQ(app::growth_stages(file(by_teeth), 2, {10.0, "IIIB"}).by_teeth, "mixed");
  EXPECT_EQ(app::growth_stages(file(by_stage), 2, {{}, ""}).by_age, "");
}

}  // namespace
