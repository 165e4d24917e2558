#include "tool/analysis/definition_file.h"

#include <gtest/gtest.h>

#include "tests/support/analysis_item_folder.h"
#include "tool/tool.h"

using namespace analysis;

TEST(DefinitionFile, ClassifiesKeywordsThatStandAlone) {
  // Every keyword has a first and a second set; three stand without one.
  const char *const keywords[] = {"Calc",   "Stage", "Stage_M", "Stage_F", "Mean",      "Mean_M",
                                  "Mean_F", "SD",    "SD_M",    "SD_F",    "Stage_Type"};
  int line_class = 2;
  for (const std::string keyword : keywords) {
    for (const char *first_set : {":", "1:"})
      EXPECT_EQ(CCephCalc::Str_Check((keyword + first_set).c_str()), line_class) << keyword;
    EXPECT_EQ(CCephCalc::Str_Check((keyword + "2:").c_str()), 100 + line_class) << keyword;
    ++line_class;
  }
  struct Row {
    const char *line;
    int line_class;
  };
  for (const Row &row :
       {Row{"title:", 1}, Row{"CALC:", 2}, Row{"mean_f:", 8}, Row{"STAGE_TYPE1:", 12}, Row{"Comment:", 13},
        Row{"Diag:", 14}, Row{"Param:", 15}, Row{"Calc: ", 0}, Row{" Calc:", 0}, Row{"Calc", 0}, Row{"", 0},
        Row{"Calc3:", 0}, Row{"SNA=angle1([S],[N],[A]):", 0}})
    EXPECT_EQ(CCephCalc::Str_Check(row.line), row.line_class) << row.line;
}

TEST(DefinitionFile, ReadsKindSuffixes) {
  struct Row {
    const char *formula, *rest;
    int kind, flag;
  };
  // every character after the first ':' but the ':' themselves counts, and the last ':' cuts
  for (const Row &row :
       {Row{"len([S],[N]):4", "len([S],[N])", 1, 0}, Row{"len([S],[N])", "len([S],[N])", 0, 1},
        Row{"x:0", "x", 0, 1}, Row{"x:2", "x", 2, 1}, Row{"x:3", "x", 0, 0}, Row{"x:9", "x", 0, 0},
        Row{"x:10", "x", 0, 3}, Row{"x:12", "x", 2, 3}, Row{"x:13", "x", 0, 2}, Row{"x:14", "x", 1, 2},
        Row{"x:", "x", 0, 1}, Row{"x:1:1", "x:1", 1, 3}}) {
    std::string text = row.formula;
    int kind = -1;
    int flag = -1;
    CCephCalc::GetType(text.data(), &kind, &flag);
    EXPECT_STREQ(text.c_str(), row.rest) << row.formula;
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
  const auto file = [](const char *text) { return DefinitionFile(support::crlf(text)); };
  EXPECT_EQ(file("stray\ntitle:\n\n\nNorth\nCalc:\n").title(), "North");
  EXPECT_EQ(file("title:\n\nCalc:\nx=1\n").title(), "");
  EXPECT_EQ(file("Comment:\n\nsecond\n").comment(), "");
  EXPECT_EQ(file("Comment:\nfirst\nsecond\n").comment(), "first");
}

TEST(DefinitionFolder, NamesTheFileOfEveryMode) {
  const support::AnalysisItemFolder folder;
  EXPECT_TRUE(CCephCalc::FormFile(0, 0).IsEmpty());
  EXPECT_TRUE(CCephCalc::GetComment(0, 0).IsEmpty());
  for (const std::string name : {"CalcForm", "CalcForm_PA", "CalcForm_Model", "CalcForm_Diag", "."})
    folder.write(name + "/list.txt", "\nfirst.txt\n\n\nsecond.txt\n");
  struct Row {
    int mode, index;
    const char *file;
  };
  for (const Row &row :
       {Row{0, 0, "CalcForm/first.txt"}, Row{0, 1, "CalcForm/second.txt"}, Row{0, 2, ""},
        Row{0, -1, "CalcForm\\Ricketts.txt"}, Row{1, 1, "CalcForm_PA/second.txt"}, Row{1, -1, ""},
        Row{2, 0, "CalcForm_Model/first.txt"}, Row{10, 0, "CalcForm_Diag/first.txt"}, Row{11, 0, "first.txt"},
        Row{20, 7, "CalcForm_Surg\\Surgery.txt"}})
    EXPECT_EQ(CCephCalc::FormFile(row.mode, row.index), (*row.file ? folder.path() + row.file : "").c_str())
        << row.file;
}

TEST(DefinitionFolder, SeesAnEditedFileAtTheNextCall) {
  const support::AnalysisItemFolder folder;
  for (const std::string comment : {"first", "second"}) {
    folder.write_lateral("Comment:\n" + comment + "\n");
    EXPECT_EQ(CCephCalc::GetComment(0, 0), comment.c_str());
  }
}
