#include "tool/analysis/definition_file.h"

#include <gtest/gtest.h>

#include "tests/support/analysis_item_folder.h"
#include "tool/tool.h"

using namespace analysis;

TEST(DefinitionFile, ClassifiesKeywordsThatStandAlone) {
  const struct {
    const char *line;
    int line_class;
  } rows[] = {{"title:", 1},
              {"Calc:", 2},
              {"CALC:", 2},
              {"calc1:", 2},
              {"Stage:", 3},
              {"Stage_M1:", 4},
              {"Stage_F:", 5},
              {"Mean:", 6},
              {"Mean_M1:", 7},
              {"mean_f:", 8},
              {"SD1:", 9},
              {"SD_M:", 10},
              {"SD_F1:", 11},
              {"Stage_Type:", 12},
              {"STAGE_TYPE1:", 12},
              {"Comment:", 13},
              {"Diag:", 14},
              {"Param:", 15},
              {"Calc2:", 102},
              {"Stage2:", 103},
              {"Stage_M2:", 104},
              {"Stage_F2:", 105},
              {"Mean2:", 106},
              {"Mean_M2:", 107},
              {"Mean_F2:", 108},
              {"SD2:", 109},
              {"SD_M2:", 110},
              {"SD_F2:", 111},
              {"Stage_Type2:", 112},
              {"Calc: ", 0},
              {" Calc:", 0},
              {"Calc", 0},
              {"", 0},
              {"Calc3:", 0},
              {"SNA=angle1([S],[N],[A]):", 0}};
  for (const auto &row : rows) EXPECT_EQ(CCephCalc::Str_Check(row.line), row.line_class) << row.line;
}

TEST(DefinitionFile, ReadsKindSuffixes) {
  const struct {
    const char *formula;
    const char *rest;
    int kind;
    int flag;
  } rows[] = {{"len([S],[N]):4", "len([S],[N])", 1, 0},
              {"len([S],[N])", "len([S],[N])", 0, 1},
              {"x:0", "x", 0, 1},
              {"x:2", "x", 2, 1},
              {"x:3", "x", 0, 0},
              {"x:9", "x", 0, 0},
              {"x:10", "x", 0, 3},
              {"x:12", "x", 2, 3},
              {"x:13", "x", 0, 2},
              {"x:14", "x", 1, 2},
              {"x:", "x", 0, 1},
              // every character after the first ':' but the ':' themselves counts, and the last ':' cuts
              {"x:1:1", "x:1", 1, 3}};
  for (const auto &row : rows) {
    char text[64] = {};
    std::string(row.formula).copy(text, sizeof text - 1);
    int kind = -1;
    int flag = -1;
    CCephCalc::GetType(text, &kind, &flag);
    EXPECT_STREQ(text, row.rest) << row.formula;
    EXPECT_EQ(kind, row.kind) << row.formula;
    EXPECT_EQ(flag, row.flag) << row.formula;
  }
}

TEST(DefinitionFile, TakesListFields) {
  char list[] = "10,20,30";
  EXPECT_STREQ(CCephCalc::Get_NumStr(list, 1), "20");
  EXPECT_STREQ(CCephCalc::Get_NumStr(list, 5), "30");
  EXPECT_STREQ(CCephCalc::Get_NumStr(list, -3), "10");
  std::string long_field(150, '7');
  EXPECT_EQ(CCephCalc::Get_NumStr(long_field.data(), 0).GetLength(), 99);
}

TEST(DefinitionFile, EndsLinesAtEveryKindOfLineEnd) {
  for (const std::string &text :
       {std::string("title:\r\nA\r\nCalc:\r\nx=1"), std::string("title:\nA\nCalc:\nx=1\n"),
        std::string("title:\r\nA\nCalc:\r\nx=1\r\n"), std::string("title:\r\nA\rCalc:\r\nx=1\r"),
        std::string("title:\0A\0Calc:\0x=1", 18)}) {
    const DefinitionFile file(text);
    ASSERT_EQ(file.lines().size(), 4U);
    EXPECT_EQ(file.title(), "A");
    EXPECT_EQ(file.lines()[3].text, "x=1");
    EXPECT_EQ(file.lines()[3].block, LineClass::calc);
  }
}

TEST(DefinitionFile, CutsLongLinesAtAWholeCharacter) {
  const std::string text = std::string(510, 'a') + "\x83\x5C" + "rest\r\nnext\r\n";
  const DefinitionFile file(text);
  ASSERT_EQ(file.lines().size(), 2U);
  EXPECT_TRUE(file.lines()[0].cut);
  EXPECT_EQ(file.lines()[0].text, std::string(510, 'a'));
  EXPECT_EQ(file.lines()[1].text, "next");
  EXPECT_EQ(split_key_value(std::string(48, 'k') + "\x83\x5C=1").key, std::string(48, 'k'));
}

TEST(DefinitionFile, FindsTitleAndComment) {
  EXPECT_EQ(DefinitionFile(support::crlf("stray\ntitle:\n\n\nNorth\nCalc:\n")).title(), "North");
  EXPECT_EQ(DefinitionFile(support::crlf("title:\n\nCalc:\nx=1\n")).title(), "");
  EXPECT_EQ(DefinitionFile(support::crlf("Comment:\n\nsecond\n")).comment(), "");
  EXPECT_EQ(DefinitionFile(support::crlf("Comment:\nfirst\nsecond\n")).comment(), "first");
}

TEST(DefinitionFolder, NamesTheFileOfEveryMode) {
  const support::AnalysisItemFolder folder;
  for (const char *name : {"CalcForm", "CalcForm_PA", "CalcForm_Model", "CalcForm_Diag", "."}) {
    folder.write(std::string(name) + "/list.txt", "\nfirst.txt\n\n\nsecond.txt\n");
  }
  struct Row {
    int mode;
    int index;
    std::string expected;
  };
  for (const Row &row :
       {Row{0, 0, folder.path() + "CalcForm/first.txt"}, Row{0, 1, folder.path() + "CalcForm/second.txt"},
        Row{0, 2, ""}, Row{0, -1, folder.path() + "CalcForm\\Ricketts.txt"},
        Row{1, 1, folder.path() + "CalcForm_PA/second.txt"}, Row{1, -1, ""},
        Row{2, 0, folder.path() + "CalcForm_Model/first.txt"},
        Row{10, 0, folder.path() + "CalcForm_Diag/first.txt"}, Row{11, 0, folder.path() + "first.txt"},
        Row{20, 7, folder.path() + "CalcForm_Surg\\Surgery.txt"}})
    EXPECT_EQ(CCephCalc::FormFile(row.mode, row.index), row.expected.c_str());
}

TEST(DefinitionFolder, AnswersEmptyWithoutAList) {
  const support::AnalysisItemFolder folder;
  EXPECT_TRUE(CCephCalc::FormFile(0, 0).IsEmpty());
  EXPECT_TRUE(CCephCalc::GetComment(0, 0).IsEmpty());
  EXPECT_TRUE(CCephCalc::Get_Title((folder.path() + "none.txt").c_str()).IsEmpty());
}

TEST(DefinitionFolder, SeesAnEditedFileAtTheNextCall) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral("Comment:\nfirst\n");
  EXPECT_STREQ(CCephCalc::GetComment(0, 0), "first");
  folder.write_lateral("Comment:\nsecond\n");
  EXPECT_STREQ(CCephCalc::GetComment(0, 0), "second");
}
