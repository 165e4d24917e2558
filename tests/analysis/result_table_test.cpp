#include "tool/analysis/result_table.h"

#include <gtest/gtest.h>

#include "tests/support/analysis_item_folder.h"
#include "tests/support/exported_calls.h"
#include "tests/support/tracings.h"

using support::Rows;

namespace {

tagPOINTLAT scene() {
  return support::lateral_record(
      0.1, {{"S", {100, 100}}, {"N", {200, 100}}, {"A", {200, 200}}, {"B", {100, 200}}, {"Me", {220, 1200}}});
}

}  // namespace

TEST(ValueFormat, BringsToTheNearestHalf) {
  const struct {
    double value;
    int precision;
    const char *text;
  } rows[] = {{-2.3, 9, "-2.5"},  {-2.2, 9, "-2.0"},  {2.25, 9, "2.5"},        {2.75, 9, "3.0"},
              {2.7, 9, "2.5"},    {0.1, 9, "0.0"},    {1.005, 2, "1.00"},      {-1.26, 1, "-1.3"},
              {-1.26, 0, "-1.3"}, {81.25, 1, "81.2"}, {1e9, 1, "1000000000.0"}};
  for (const auto &row : rows)
    EXPECT_EQ(analysis::format_value(row.value, row.precision), row.text) << row.value;
}

TEST(ResultTable, ShowsTheWorkedExample) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral(
      "title:\nSample analysis\nCalc:\nSkeletal\nSNA=angle1([S],[N],[A]):1\nSNB=angle1([S],[N],[B]):4\n"
      "ANB=case(\"SNA\")-case(\"SNB\")\nN-Me=len([N],[Me])\nMean_M:\nSNA=82.0,82.5,83.0\nN-Me=110.0,118.0,"
      "125.0\n"
      "Mean_F:\nSNA=81.5,82.0,82.5\nSD:\nSNA=3.0,3.0,3.2\nComment:\nAngles in degrees, lengths in mm\n");
  tagPOINTLAT record = scene();
  CListCtrl list;
  support::add_table(list, &record, 0, 1, 1.0);
  // N-Me: 118 / 1.1 = 107.27, cut; 1100.18 pixels
  EXPECT_EQ(support::texts_of(list), (Rows{{"Skeletal", "", "", "", ""},
                                           {"SNA", "82.5", "3.0", "90.0", ""},
                                           {"SNB", "", "", "45.0", ""},
                                           {"ANB", "", "", "45.0", ""},
                                           {"N-Me", "107.2", "", "110.0", ""}}));
  EXPECT_EQ(list.GetItemData(1), 1U);
  EXPECT_EQ(list.GetItemData(2), 0U);
  support::add_table(list, &record);
  EXPECT_EQ(list.GetItemCount(), 10) << "the list is not cleared";
  EXPECT_EQ(list.GetItemText(1, 0), "SNA") << "new rows come first";
}

TEST(ResultTable, CarriesOutChoices) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral(
      "Calc:\ntext=switch(len([S],[N])>50,len([S],[N])>5);\"short\";\"a \"\"long\"\" one\":10\n"
      "=switch(1>0);\"alone\"\nnumber=switch(0>1,1>0);1+1;len([S],[N]):13\nnone=switch(0,0);1+1\nbare=switch("
      "0,1)\n"
      "calc=switch(1>0);;\nMean:\ntext=4\nbare=5\nSD:\ntext=2\n");
  tagPOINTLAT record = scene();
  CListCtrl list;
  support::add_table(list, &record);
  EXPECT_EQ(support::texts_of(list, 4), (Rows{{"text", "4.0", "2.0", "a long one"},
                                              {"alone", "", "", ""},
                                              {"number", "", "", "10.0"},
                                              {"none", "", "", "0.0"},
                                              {"bare", "5.0", "", ""},
                                              {"calc", "", "", "0.0"}}));
  EXPECT_EQ(list.GetItemData(0), 0U) << "a chosen text gets no item data";
  EXPECT_EQ(list.GetItemData(2), 2U);
}

TEST(ResultTable, ShowsCastRows) {
  const support::AnalysisItemFolder folder;
  folder.write("CalcForm_Model/list.txt", "cast.txt\n");
  folder.write("CalcForm_Model/cast.txt",
               "Calc:\nU1=ModelRL([U1])\nL6=ModelRL([L6])\nUnknown=ModelRL([U9])\nWidth=Model([UCAW])\n"
               "Sum=Model([UATW]):4\nModel([PLTU])=Model([PLTU])\nLength=Model([UCAL])\n"
               "Mean:\nU1=8.6\nLength=36.00\n");
  tagPOINTMO cast{};
  cast.scale = 0.1;
  for (unsigned char &flag : cast.present) flag = 1;
  cast.present[23] = 0;  // lower position 5, first side
  for (auto &width : cast.ex.upperFirst) width = 8.5;
  for (auto &width : cast.ex.upperSecond) width = 8.0;
  for (auto &width : cast.ex.lowerFirst) width = 11;
  for (auto &width : cast.ex.lowerSecond) width = 11.5;
  cast.ex.upperExtra[0][0] = 33.25;
  CListCtrl list;
  support::add_table(list, &cast, 2, 2, 1.0);
  // the prediction that cannot be formed has no row
  EXPECT_EQ(support::texts_of(list), (Rows{{"U1", "8.6", "", "8.00", "8.50"},
                                           {"L6", "", "", "11.50", ""},
                                           {"Unknown", "", "", "", ""},
                                           {"Width", "", "", "", ""},
                                           {"Sum", "", "", "49.50", ""},
                                           {"Length", "36.00", "", "33.25", ""}}));
  EXPECT_EQ(list.GetItemData(0), 1U);
}

TEST(ResultTable, ExplainsItsNumbers) {
  tagPOINTLAT record = scene();
  const analysis::Tracing tracing(analysis::Mode::lateral, &record, nullptr, nullptr, nullptr, nullptr);
  const analysis::Analysis file(
      analysis::DefinitionFile(
          "Calc:\r\na=len([S],[Xi])\r\nb=case(\"a\")*2\r\nc=len([S],[N])\r\nMean:\r\nc=9\r\n"),
      analysis::Mode::lateral);
  const std::vector<analysis::TableRow> rows = analysis::result_table(file, tracing, {}, 1);
  ASSERT_EQ(rows.size(), 3U);
  for (const int row : {0, 1}) {
    ASSERT_TRUE(rows[static_cast<std::size_t>(row)].reason);
    EXPECT_EQ(rows[static_cast<std::size_t>(row)].reason->subject, "Xi");
  }
  EXPECT_FALSE(rows[2].reason);
  EXPECT_EQ(rows[2].mean_number, 9.0);
  EXPECT_EQ(rows[2].number, 10.0);
  // the same file on another tracing
  record.pt[8 + analysis::lateral::Xi] = {100, 300};
  EXPECT_EQ(analysis::result_row(file, "b", tracing, {}, 1)->value, "40.0");
  EXPECT_FALSE(analysis::result_row(file, "zz", tracing, {}, 1));
}

TEST(SurgeryTable, MarksDeviationsOnBothRecords) {
  const struct {
    double units;
    const char *mark;
  } marks[] = {{3.01, "+++"}, {3, "++"}, {2.01, "++"}, {2, "+"},      {1.01, "+"}, {1, ""},    {0, ""},
               {-0.99, ""},   {-1, "-"}, {-2, "--"},   {-2.01, "--"}, {-3, "---"}, {-9, "---"}};
  for (const auto &row : marks) EXPECT_EQ(analysis::deviation_mark(row.units), row.mark) << row.units;

  const support::AnalysisItemFolder folder;
  folder.write(
      "CalcForm_Surg/Surgery.txt",
      "Calc:\nHead\nS-N=len([S],[N])\nclass=switch(len([S],[N])>15);\"long\";\"short\"\nbare=switch(0,1)\n"
      "Mean:\nS-N=8\nSD:\nS-N=1\n");
  tagPOINTLAT before = scene();
  tagPOINTLAT after = scene();
  after.pt[8 + analysis::lateral::N] = {275, 100};
  CListCtrl list;
  list.InsertItem(0, "old");
  const auto fill_table = [&] {
    CCephCalc::User_CalcSurg(&list, &before, &after, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, 2);
  };
  fill_table();
  EXPECT_EQ(support::texts_of(list), (Rows{{"Head", "", "", "", ""},
                                           {"S-N", "10.00", "+", "17.50", "+++"},
                                           {"class", "short", "", "long", ""},
                                           {"bare", "", "", "", ""}}));
  after.scale = 0;
  fill_table();
  EXPECT_EQ(support::texts_of(list)[1], (Rows::value_type{"S-N", "10.00", "+", "", ""}));
}

TEST(Diagnosis, FormsSentences) {
  const support::AnalysisItemFolder folder;
  const auto sentences = [&](const std::string &value, const std::string &lines) {
    folder.write("CalcForm_Diag/list.txt", "d.txt\n");
    folder.write("CalcForm_Diag/d.txt",
                 "Param:\n1;2;3;4;5;6:a ;b ;c ;d ;[BOTTOM] e;f ;g \nCalc:\nv=" + value + "\nDiag:\n" + lines);
    tagPOINTLAT record = scene();
    CListCtrl list;
    CCephCalc::User_Diag(10, &list, &record, 0, nullptr, nullptr, nullptr, nullptr, 1, 0, 0, 1.1, 0);
    std::string joined;
    for (const auto &row : support::texts_of(list, 1)) joined += "|" + row[0];
    return joined;
  };
  const std::string line = "case(\"v\")+0=name;low;middle;high;.\n";
  struct Row {
    const char *value;
    std::string lines;
    const char *expected;
  };
  for (const Row &row :
       {Row{"3+0.5", line, "|d middle."}, Row{"0+0.5", line, "|a low."}, Row{"1+0", line, "|b low."},
        Row{"4+0", line, "|high e."}, Row{"5+0", line, "|f high."}, Row{"6+0", line, "|high."},
        Row{"6+0.1", line, "|g high."}, Row{"3+0.5", "case(\"v\")+0=name;low;;high;.\n", ""},
        Row{"3+0.5", "first [NEXT]\nsecond\n", "|first second"}, Row{"3+0.5", "A[ENTER]B\nC\n", "|A|B|C"},
        Row{"3+0.5", "kept [NEXT]\n", "|kept "},
        Row{"3+0.5", std::string(60, 'x') + "\n", "|xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"},
        Row{"3+0.5", "case(\"v\")+0=n;l;100%%;h;\n", "|d 100%"},
        Row{"3+0.5", "case(\"v\")+0=n;l;m;h;[NEXT]\n" + line, "|d md middle."}, Row{"0/0", line, ""}})
    EXPECT_EQ(sentences(row.value, row.lines), row.expected) << row.value << row.lines;
}
