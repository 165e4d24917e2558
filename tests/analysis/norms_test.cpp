#include "tool/analysis/norms.h"

#include <gtest/gtest.h>

#include "tests/support/analysis_item_folder.h"
#include "tests/support/tracings.h"
#include "tool/tool.h"

namespace {

struct Lookup {
  std::string file;
  tagPOINTLAT record = support::lateral_record(0.1, {{"S", {100, 100}}, {"N", {200, 100}}});

  CString text(const char *item, int kind, int sex = 1, int age_code = 0, double magnification = 1.1,
               int which = 0) {
    return CCephCalc::Get_MeanSD(0, 0, which, sex, file.data(), &record, nullptr, nullptr, nullptr, nullptr,
                                 static_cast<int>(file.size()), item, age_code, magnification, kind);
  }
  int number(double *out, const char *item, int kind) {
    return CCephCalc::Get_MeanSD(0, 0, out, 0, 1, file.data(), &record, nullptr, nullptr, nullptr, nullptr,
                                 static_cast<int>(file.size()), item, 0, 1.0, kind);
  }
};

}  // namespace

TEST(Norms, PickBlockSexAndColumn) {
  Lookup lookup{
      support::crlf("x=99\nMean_M:\nm=1,2,3,4\nMean_F:\nm=11,12,13,14\nboth=7\nMean2:\ns=21,22,23\n"
                    "Mean_M2:\nm=31\nSD:\nm=5\nMean:\nm=41\nboth=8,9\nTitle:\nlost=1\n")};
  const struct {
    const char *item;
    int sex, age_code, which;
    const char *expected;
  } rows[] = {{"m", 1, 0, 0, "1"},    {"m", 1, 203, 0, "4"},  {"m", 1, 99, 0, "4"}, {"m", 2, 1, 0, "12"},
              {"m", 0, 1, 0, "12"},   {"s", 1, 203, 0, "23"}, {"s", 1, 3, 0, "21"}, {"m", 1, 0, 1, "5"},
              {"both", 1, 0, 0, "8"}, {"both", 2, 0, 0, "7"}, {"x", 1, 0, 0, ""},   {"lost", 1, 0, 0, ""},
              {"M", 1, 0, 0, ""}};
  for (const auto &row : rows)
    EXPECT_STREQ(lookup.text(row.item, 1, row.sex, row.age_code, 1.1, row.which), row.expected)
        << row.item << row.sex;
}

TEST(Norms, AreScaledAndCutToTheirDecimals) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral("Calc:\nref=len([S],[N])\nMean:\nref=11.0\n");
  // Formulas keep the decimals behind '|'; the list is cut at every comma, also inside a formula (k); inside
  // a norm formula the magnification is that of the norms (n: 11.0, not 10.0).
  Lookup lookup{support::crlf(
      "Mean:\na=110.0\nb=110\nc=82.0\nd=10.55\ne=-39.6\nf=0.1234567\ng=7.\nh=case(\"ref\")*0.5|1\n"
      "i=case(\"ref\")/3|0\nk=len([S],[N])*2|1\nm=case(\"ref\")+1|2\nn=mean(\"ref\")+1|1\no=case(\"ref\")x\n"
      "p=(1+9)/4|1\nq=3*2.5/3|1\n")};
  const struct {
    const char *item;
    int kind;
    double magnification;
    const char *expected;
  } rows[] = {{"a", 0, 1.0, "100.0"}, {"b", 0, 1.0, "100.0"}, {"c", 1, 1.0, "82.0"},
              {"c", 2, 1.0, "82.0"},  {"a", 0, 1.1, "110.0"}, {"d", 0, 1.0, "9.59"},  // 9.590909 cut
              {"e", 0, 1.0, "-36.0"}, {"e", 0, 1.2, "-43.2"}, {"f", 0, 1.1, "0.123457"},
              {"g", 0, 1.1, "7.0"},   {"b", 1, 1.0, "110"},   {"h", 1, 1.0, "5.0"},
              {"h", 0, 1.0, "4.5"},  // 5.0 x 1.0 / 1.1 = 4.545
              {"i", 1, 1.0, "3"},     {"k", 1, 1.0, "0"},     {"m", 1, 1.0, "11.00"},
              {"n", 1, 1.0, "12.0"},  {"o", 1, 1.0, "10"}};
  for (const auto &row : rows)
    EXPECT_STREQ(lookup.text(row.item, row.kind, 1, 0, row.magnification), row.expected) << row.item;
  // "(1+9)..." and "3*2.5..." do not come after "0.0..." and "3.0..." in byte order: they count as numbers.
  const struct {
    const char *item;
    int found;
    double value;
  } numbers[] = {{"a", 1, 100.0}, {"p", 1, 0.0}, {"q", 1, 2.7}, {"gone", 0, 0.0}};
  for (const auto &row : numbers) {
    double out = -1;
    EXPECT_EQ(lookup.number(&out, row.item, 0), row.found) << row.item;
    EXPECT_DOUBLE_EQ(out, row.value) << row.item;
  }
}

TEST(Norms, ComeFromAFileByPath) {
  const support::AnalysisItemFolder folder;
  folder.write("n.txt", "Calc:\nv=len([S],[N])\nMean:\na=8.50\nb=case(\"v\")+1|1\nSD_F:\na=0.4\n");
  const std::string path = folder.path() + "n.txt";
  CString mean = "old";
  CString sd = "old";
  CCephCalc::GetMeanSD(path.c_str(), "a", 2, 0, mean, sd);
  EXPECT_STREQ(mean, "8.50");
  EXPECT_STREQ(sd, "0.4");
  CCephCalc::GetMeanSD(path.c_str(), "b", 1, 0, mean, sd);
  EXPECT_STREQ(mean, "1.0") << "point terms are 0 without a record";
  EXPECT_STREQ(sd, "");
  CCephCalc::GetMeanSD("", "a", 2, 0, mean, sd);
  EXPECT_STREQ(mean, "");
}

TEST(Norms, LinkTheCastToItsFile) {
  tagHINPUT links[3] = {};
  std::string("other").copy(links[0].key, 20);
  std::string("$[MeanSDLink]").copy(links[1].key, 20);
  std::string("Norm_A12.txt").copy(links[1].value, 12);  // fills its field without a terminator
  EXPECT_STREQ(CCephCalc::GetMeanSDFile(links, 3), "") << "no folder in the profile";
  AfxGetApp()->WriteProfileString("DB_DIR", "ANAITEMPATH", "C:\\ANA");
  EXPECT_STREQ(CCephCalc::GetMeanSDFile(links, 3), "C:\\ANA\\CalcForm_Model\\Norm_A12.txt");
  EXPECT_STREQ(CCephCalc::GetMeanSDFile(links, 1), "");
  AfxGetApp()->WriteProfileString("DB_DIR", "ANAITEMPATH", "");
}

TEST(Norms, GiveDeviationsInSdUnits) {
  EXPECT_EQ(CCephCalc::GetSDU(88, 82, 3), 2);
  EXPECT_EQ(CCephCalc::GetSDU(75, 82, 3), -2);
  EXPECT_EQ(CCephCalc::GetSDU(75, 82, 0), 0);
  EXPECT_DOUBLE_EQ(CCephCalc::GetDoubleSDU(75, 82, 2), -3.5);
  EXPECT_EQ(CCephCalc::GetDoubleSDU(75, 82, 0), 0);
}

TEST(Stages, CodeTheDentalStages) {
  const struct {
    const char *code;
    double stage;
  } rows[] = {{"I", 0},   {"IIA", 1}, {"IIC", 2}, {"IIIA", 3},    {"IIIB", 4}, {"IIIC", 5}, {"IVA", 6},
              {"IVC", 7}, {"VA", 8},  {"", 9},    {" IIIB  ", 4}, {"iiib", 9}, {"IIB", 9},  {"   ", 9}};
  for (const auto &row : rows) EXPECT_EQ(CCephCalc::GetDentalAge(row.code), row.stage) << row.code;
}

TEST(Stages, MatchAgesAndDentalStages) {
  const support::AnalysisItemFolder folder;
  folder.write("s.txt",
               "Stage:\nbaby=0-6\nyoung=6-12\nold=12-\nnever=\nchild=5\nStage_F:\ngirl=30-40\n"
               "Stage_Type:\nDental\nStage1:\nmixed=IIC-IIIC\nlate=IVA\nlast=VA-\nany=\n");
  const std::string path = folder.path() + "s.txt";
  const struct {
    int sex;
    double age, dental;
    int index;
    const char *name;
  } rows[] = {
      {1, 3.0, -1, 0, "baby"}, {1, 6.0, -1, 4, "child"}, {1, 0.0, -1, 0, "baby"}, {1, -1, 2, 5, "mixed"},
      {1, -1, 5, 0, ""},       {1, -1, 4.9, 5, "mixed"}, {1, 30, -1, 4, "child"}, {2, 30, -1, 5, "girl"},
      {2, 30, 3, 6, "mixed"},  {1, -1, 6.0, 6, "late"},  {1, -1, 8.0, 7, "last"}, {1, -1, 9.0, 8, "any"},
      {1, 250, -1, 0, ""},
  };
  for (const auto &row : rows) {
    CString name = "old";
    EXPECT_EQ(CCephCalc::GetStage(path.c_str(), row.sex, row.age, row.dental, name), row.index)
        << row.age << row.dental;
    EXPECT_STREQ(name, row.name) << row.age << " " << row.dental;
  }
  CString name = "old";
  EXPECT_EQ(CCephCalc::GetStage("", 1, 3, 3, name), 0);
  EXPECT_STREQ(name, "");
}

TEST(Stages, FillTheStageList) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral(
      "Stage:\na=0-5\nb=5-\nStage2:\nc=0-3\nCalc:\nd=3-9\nStage_M2:\ne=9-\nStage_F2:\nf=0-1\n");
  CComboBox combo;
  combo.AddString("old");
  struct Row {
    int file, set;
    double age;
    const char *chosen;
    int count, selected;
    const char *second;
  };
  for (const Row &row : {Row{0, 1, 7, nullptr, 2, 1, "b"}, Row{0, 1, 7, "a", 2, 0, "b"},
                         Row{0, 2, 20, "zz", 4, 3, "Calc:"}, Row{5, 1, 20, nullptr, 0, -1, ""}}) {
    EXPECT_EQ(CCephCalc::SetStageList(0, &combo, row.file, 1, row.age, 0, row.set, row.chosen), row.count);
    EXPECT_EQ(combo.GetCount(), row.count);
    EXPECT_EQ(combo.GetCurSel(), row.selected);
    CString text;
    if (row.count > 1) combo.GetLBText(1, text);
    EXPECT_STREQ(text, row.second) << "in the second set \"Calc:\" is a stage line like others";
  }
}

TEST(LateralNormFile, GivesStageAndParameters) {
  const support::AnalysisItemFolder folder;
  folder.write("CalcForm/Ricketts.txt",
               "Stage:\na=0-5\nb=5-0\nStage_Type:\nx\nStage:\nc=40-50\nCalc:\nhead\nfirst=len([S],[N])\n"
               "second=case(\"first\")*2:1\nCalc2:\nhidden=1+1\nCalc1:\nthird=1+1\nMean:\nsecond=18,19\nSD:"
               "\nsecond=4\n");
  EXPECT_EQ(CCephCalc::Get_RickettsStage(1, 3, 0), 0);
  EXPECT_EQ(CCephCalc::Get_RickettsStage(1, 50, 0), 1);
  EXPECT_EQ(CCephCalc::Get_RickettsStage(1, 3, 45), 2);
  tagPOINTLAT record = support::lateral_record(0.1, {{"S", {100, 100}}, {"N", {200, 100}}});
  char name[64] = "";
  double value = -1;
  double sd = -1;
  double mean = -1;
  EXPECT_DOUBLE_EQ(CCephCalc::Get_RickettsParam(&record, 1, 1, 1, 1.1, 0, name, &value, &sd, &mean), 0.25);
  EXPECT_STREQ(name, "second");
  EXPECT_EQ(value, 20);
  EXPECT_EQ(mean, 19);
  EXPECT_EQ(sd, 4);
  EXPECT_EQ(CCephCalc::Get_RickettsParam(&record, 2, 1, 1, 1.1, 0, name, &value, nullptr, nullptr), 0);
  EXPECT_STREQ(name, "third");
  EXPECT_EQ(value, 2);
  EXPECT_EQ(CCephCalc::Get_RickettsParam(&record, 3, 1, 1, 1.1, 0, name, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(CCephCalc::Get_RickettsParam(&record, -1, 1, 1, 1.1, 0, name, nullptr, nullptr, nullptr), 0);
}
