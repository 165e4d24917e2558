#include "tool/analysis/display_settings.h"

#include <gtest/gtest.h>

#include "tests/support/analysis_item_folder.h"
#include "tool/tool.h"

namespace {

analysis::DisplaySettings parse(const std::string &text) {
  return analysis::parse_display_settings(support::crlf(text));
}

}  // namespace

TEST(DisplaySettings, KeepTheSectionsApart) {
  const analysis::DisplaySettings settings = parse(
      "title:\nS\nPoint:\nS\nN\nSuppLine:\n[S][N]\nstray\n[S]\nPointSetting:\nS=1, 2\n\n[End]\nPoint:\nA\n");
  EXPECT_EQ(settings.points, (std::vector<std::string>{"S", "N"}));
  EXPECT_EQ(settings.point_settings, (std::vector<std::string>{"S=1, 2", ""}));
  ASSERT_EQ(settings.segments.size(), 1U);
  EXPECT_STREQ(settings.segments[0].from, "S");
  EXPECT_STREQ(settings.segments[0].to, "N");
}

TEST(DisplaySettings, DrawLinesInTheCurrentState) {
  const struct {
    const char *setting;
    COLORREF color;
    std::int32_t weight;
  } rows[] = {{"", 0, 102},          {"Color=255,2,3", 0x0302FF, 102}, {"color=1,2,300", 0x2C0201, 102},
              {"Color=1,2", 0, 102}, {"COLOR=1,2,3", 0, 102},          {"Line=bold", 0, 102},
              {"line=thin", 0, 101}, {"Color=x,,-1", 0xFF0000, 102}};
  for (const auto &row : rows) {
    const auto settings = parse(std::string("SuppLine:\n") + row.setting + "\nx[Pog(R)longer]y[N]z\n");
    ASSERT_EQ(settings.segments.size(), 1U) << row.setting;
    EXPECT_EQ(settings.segments[0].color, row.color) << row.setting;
    EXPECT_EQ(settings.segments[0].weight, row.weight) << row.setting;
    EXPECT_STREQ(settings.segments[0].from, "Pog(R");
  }
}

TEST(DisplaySettings, PackLabels) {
  const struct {
    const char *lines, *label;
  } rows[] = {{"Color=255,0,0\nDecimal=1\nPos=Top\n=len([S],[N])\n", "2550000001TopSIZE=15CALC=len([S],[N])"},
              {"=x\n", "0000000000SIZE=15CALC=x"},
              {"decimal=0.5\nsize=9\n=x\n", "0000000009SIZE=9CALC=x"},
              {"Decimal=0.50\n=x\n", "0000000002SIZE=15CALC=x"}};
  for (const auto &row : rows) {
    EXPECT_EQ(parse(std::string("SuppLine:\n") + row.lines).labels, std::vector<std::string>{row.label});
  }
}

TEST(DisplaySettings, StopAtTheThirtiethSegment) {
  std::string text = "SuppLine:\n";
  for (int i = 0; i < 31; ++i) text += "[S][N]\n";
  const auto settings = parse(text + "Point:\nA\n");
  EXPECT_EQ(settings.segments.size(), 30U);
  EXPECT_TRUE(settings.points.empty());
}

TEST(DisplaySettings, AreListedAndReadThroughTheExportedFace) {
  const support::AnalysisItemFolder folder;
  folder.write("CalcMode/list.txt", "no comma\n7,gone.txt\n3,a.txt\n4,untitled.txt\n9,b.txt\n");
  folder.write("CalcMode/a.txt", "title:\nAll\nPoint:\nS\nSuppLine:\n[S][N]\n");
  folder.write("CalcMode/untitled.txt", "Point:\n");
  folder.write("CalcMode/b.txt", "title:\nFew\n");
  EXPECT_EQ(CCephCalc::CalcModeFile(0, 1), (folder.path() + "CalcMode/untitled.txt").c_str());
  EXPECT_TRUE(CCephCalc::CalcModeFile(0, 3).IsEmpty());
  EXPECT_TRUE(CCephCalc::CalcModeFile(1, 0).IsEmpty());

  CComboBox combo;
  CCephCalc::SetCalcMode(0, &combo);
  ASSERT_EQ(combo.GetCount(), 2);
  EXPECT_EQ(combo.GetItemData(0), 3U);
  EXPECT_EQ(combo.GetItemData(1), 9U);
  EXPECT_EQ(combo.GetCurSel(), 0);
  EXPECT_TRUE(combo.IsWindowEnabled());
  CComboBox single;
  CCephCalc::SetCalcMode(1, &single);
  EXPECT_FALSE(single.IsWindowEnabled());

  analysis::DisplaySegment segments[30] = {};
  segments[1].weight = 55;
  CStringArray points;
  CCephCalc::ReadCalcMode((folder.path() + "CalcMode/a.txt").c_str(), segments, &points, nullptr, nullptr);
  EXPECT_STREQ(segments[0].to, "N");
  EXPECT_EQ(segments[1].weight, 55) << "records that are not written keep their content";
  EXPECT_EQ(CCephCalc::CheckCalcModePoint(&points, "S"), 1);
  EXPECT_EQ(CCephCalc::CheckCalcModePoint(&points, "s"), 0);
  points.RemoveAll();
  EXPECT_EQ(CCephCalc::CheckCalcModePoint(&points, "s"), 1);
}
