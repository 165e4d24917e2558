// Files, lists, records and counts as they should not be: every call ends, nothing is touched that is not
// there, and what is documented as the answer to missing things is the answer.

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "tests/support/analysis_item_folder.h"
#include "tests/support/exported_calls.h"
#include "tests/support/faulty_file_system.h"
#include "tool/analysis/display_settings.h"
#include "tool/analysis/evaluation.h"
#include "tool/analysis/result_table.h"
#include "tool/analysis/stages.h"
#include "tool/framework/text/CUIntArray.h"

namespace {

using namespace std::string_literals;

constexpr int modes[] = {0, 1, 2, 10, 11, 20, -1, INT_MAX};

/// Records of every kind with hostile coordinates, and point tables whose fields have no end.
struct HostileScene {
  tagPOINTLAT lateral{};
  tagPOINTPA frontal{};
  tagPOINTMO cast{};
  tagKPOINT virtual_points[4]{};
  tagUPOINT user_points[2]{};
  unsigned short virtual_count = 4;
  unsigned short user_count = 2;

  explicit HostileScene(double scale = 0.1) {
    lateral.scale = frontal.scale = cast.scale = scale;
    int value = 1;
    for (POINT &point : lateral.pt) point = {value += 37, 5 * value % 400};
    for (POINT &point : frontal.pt) point = {INT_MAX - value++, INT_MIN + value};
    std::memset(&cast.present, 0xFF, sizeof cast.present);
    std::memset(virtual_points, 'V', sizeof virtual_points);
    std::memset(user_points, 'U', sizeof user_points);
    std::memset(lateral.userName, 'U', sizeof lateral.userName);
    std::memset(frontal.userName, 'U', sizeof frontal.userName);
  }

  void *record(int mode) {
    const auto kind = analysis::record_kind(static_cast<analysis::Mode>(mode));
    if (kind == analysis::RecordKind::lateral) return &lateral;
    return kind == analysis::RecordKind::frontal ? static_cast<void *>(&frontal) : &cast;
  }
};

/// Every exported call that reads definition files.
void call_everything(HostileScene &scene, int age_code = 203, double magnification = 1.1) {
  auto *kc = &scene.virtual_count;
  auto *kp = scene.virtual_points;
  auto *uc = &scene.user_count;
  auto *up = scene.user_points;
  for (const int mode : modes) {
    void *record = scene.record(mode);
    for (const int index : {0, -1}) {
      CListCtrl table, sentences;
      CComboBox stages;
      CCephCalc::User_Calc(mode, &table, record, index, kc, kp, uc, up, 1, age_code, magnification, 9);
      CCephCalc::User_Diag(mode, &sentences, record, index, kc, kp, uc, up, 2, 0, 1, magnification, 0);
      CCephCalc::SetStageList(mode, &stages, index, 1, 8.5, 4.0, 1 + index % 2, "Child");
      const CString path = CCephCalc::FormFile(mode, index);
      CCephCalc::Get_Title(path);
      CCephCalc::GetComment(mode, index);
      CString name, mean, sd;
      CCephCalc::GetStage(path, 2, 8.5, 4.0, name);
      CCephCalc::GetMeanSD(path, "SNA", 1, age_code, mean, sd);
      for (int selector = 0; selector < 4; ++selector)
        for (const char *item : {"SNA", "I0"})
          CCephCalc::Calc_1(selector, mode, index, item, record, kc, kp, uc, up, 1, age_code, magnification,
                            nullptr, nullptr);
    }
    CComboBox settings;
    CCephCalc::SetCalcMode(mode, &settings);
    analysis::DisplaySegment segments[30]{};
    CStringArray points, labels, point_settings;
    CCephCalc::ReadCalcMode(CCephCalc::CalcModeFile(mode, 0), segments, &points, &labels, &point_settings);
    CCephCalc::Use_Point(mode, "S");
  }
  CListCtrl surgery;
  CCephCalc::User_CalcSurg(&surgery, &scene.lateral, &scene.lateral, kc, kp, uc, up, 1, age_code,
                           magnification, 2);
  CCephCalc::Get_RickettsStage(1, 8.5, 4.0);
  char item[256];
  double value, sd, mean;
  CCephCalc::Get_RickettsParam(&scene.lateral, 0, 1, age_code, magnification, 0, item, &value, &sd, &mean);
}

constexpr const char *lists[] = {"CalcForm/list.txt", "CalcForm_PA/list.txt", "CalcForm_Model/list.txt",
                                 "CalcForm_Diag/list.txt", "list.txt"};

void write_everywhere(const support::AnalysisItemFolder &folder, const std::string &bytes) {
  for (const char *list : lists) folder.write_bytes(list, "F.txt\r\n");
  for (const char *list : {"CalcMode/list.txt", "CalcMode_PA/list.txt", "CalcMode_Model/list.txt"})
    folder.write_bytes(list, "1,F.txt\r\n");
  for (const char *file :
       {"CalcForm/F.txt", "CalcForm/Ricketts.txt", "CalcForm_PA/F.txt", "CalcForm_Model/F.txt",
        "CalcForm_Diag/F.txt", "CalcForm_Surg/Surgery.txt", "CalcMode/F.txt", "CalcMode_PA/F.txt",
        "CalcMode_Model/F.txt", "F.txt", "cvba.dat"})
    folder.write_bytes(file, bytes);
}

std::string repeated(const std::string &piece, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += piece;
  return text;
}

/// A file that uses everything the language holds.
std::string full_file() {
  return support::crlf(
      "title:\nFull\nCalc:\nHead\nSNA=angle1([S],[N],[A]):1\nPick=switch(case(\"SNA\")>90,sdu(\"SNA\")<0);"
      "\"big\";len([S],mid([N],[A]))*2-1;3+4:10\nBi=len(AngleBisector([S],[N],[A],40),extension([S],[N],"
      "-2.5))\nE=angle4(9,[S],[N],EffectiveA(),cross([S],[N],[A],[B]))\nModel [PLTU]=Model([PLTU])\n"
      "T=ModelRL([U1])\nCalc2:\nI0=mean(\"SNA\")+sdv(\"SNA\")\nMean:\nSNA=80,81,82\nMean_F2:\n"
      "SNA=case(\"I0\")*2|1\nSD:\nSNA=2,3\nStage_Type:\nAge\nStage:\nChild=6-12\nTeen=12-\nStage_Type2:\n"
      "Teeth\nStage2:\nMixed=IIA-IIIB\nComment:\nnote\nParam:\n1;2;3;4;5;6:a;b;c;d;e;f;[BOTTOM]g\nDiag:\n"
      "plain[NEXT]\ncase(\"SNA\")=n;low;mid[ENTER]dle;high;tail\nPoint:\nS\nSuppLine:\nColor=1,2,3\n[S][N]\n"
      "=len([S],[N])\nPointSetting:\nx\n[End]\n");
}

std::vector<std::string> hostile_formulas() {
  std::vector<std::string> formulas;
  for (const char *text : {"len([S", "len(", "case(\"", "switch(", "angle3(", "Model(", ":", ";", "ModelRL",
                           "d00+d99+d1+d+d100*d55", "switch()", "switch;;", "1/0", "0/0",
                           "switch(0/0);\"a\";\"b\"", "switch(1/0);\"a\"", "len([S\x81],[N])\x81"})
    formulas.emplace_back(text);
  formulas.push_back("len([S]\0,[N])"s);
  formulas.push_back(repeated("mid(", 120));
  formulas.push_back(repeated("(", 240) + "1" + repeated(")", 240));
  formulas.push_back(repeated("1+", 249) + "1");
  formulas.push_back("+-*/<>=<=>===" + repeated("-", 400));
  formulas.push_back("1e999*9" + repeated("9", 400) + ":99999999999999");
  formulas.push_back("switch(" + repeated("0,", 200) + ")" + repeated(";", 50));
  return formulas;
}

std::vector<std::string> hostile_files() {
  std::string formulas = "Calc:\r\n";
  int number = 0;
  for (const std::string &formula : hostile_formulas())
    formulas += "I" + std::to_string(number++) + "=" + formula + "\r\n";
  return {
      formulas, "", "C", "\r", "===,,,;;;:::", "title:\r\nx\r\nComment:", "Calc:\0\0\r\n\0SNA=1+1\r\n"s,
      "Calc:\r\nMean:\r\nSD:\r\nStage:\r\nStage_Type:\r\nDiag:\r\nParam:\r\nComment:\r\ntitle:",
      "Calc:\r\nSNA=" + repeated("len([S],[N])+", 50000),
      "Calc:\r\n" + std::string(100000, 'x') + "=1+1\r\nMean:\r\n" + std::string(600, 'x') + "=1",
      // norms: very many columns, an open group, a formula that refers to its own norm, a number without end
      "Calc:\r\nSNA=1+1\r\nI0=1+1\r\nMean:\r\nSNA=" + repeated(",", 480) +
          "\r\nI0=x\r\nSD:\r\nSNA=(|9\r\nI0=mean(\"I0\")|1\r\n",
      "Calc:\r\nSNA=1+1\r\nMean:\r\nSNA=" + repeated("9", 450),
      // sentences: format directives, empty parameters, markers alone
      "Param:\r\n1;2;3;4;5;6:a;b;c;d;e;f;g\r\nDiag:\r\n1+1=%n;%s%s%s;%n%n;%999999999d%*d;%s\r\n%s%n\r\n",
      "Param:\r\n;;;;;;;;;;:;;;;;;;;;;;;\r\nDiag:\r\n1+1=;;;;;;;;\r\n=;\r\nParam:",
      "Diag:\r\n[NEXT][NEXT]\r\n[ENTER][ENTER][ENTER]\r\n1+1=a;[BOTTOM];[ENTER]\r\n[NEXT]",
      "Stage_Type:\r\nStage:\r\n=\r\na=-\r\nb=--\r\nc=1-2-3\r\nd=1e400-nan\r\ne=VA-" + repeated("I", 400),
      "SuppLine:\r\nColor=,,,,\r\nColor=99999999999,-1,x\r\nSize=" + repeated("9", 300) +
          "\r\nPos=" + repeated("p", 480) + "\r\n=" + repeated("x", 500) + "\r\n[][]\r\n[[[]]]\r\n][\r\n" +
          repeated("[S][N]\r\n", 100)};
}

}  // namespace

TEST(HostileInput, FilesNeverHarm) {
  const support::AnalysisItemFolder folder;
  HostileScene scene;
  for (const std::string &file : hostile_files()) {
    SCOPED_TRACE(file.substr(0, 60));
    write_everywhere(folder, file);
    call_everything(scene);
    const analysis::Tracing tracing(analysis::Mode::lateral, &scene.lateral, &scene.virtual_count,
                                    scene.virtual_points, &scene.user_count, scene.user_points);
    const analysis::Analysis parsed(analysis::DefinitionFile(file), analysis::Mode::lateral);
    for (const analysis::TableRow &row : analysis::result_table(parsed, tracing, {}, 2)) {
      EXPECT_LE(row.item.size(), analysis::max_line_bytes);
      EXPECT_TRUE(!row.reason || !analysis::describe(*row.reason).empty());
    }
  }
  std::string many_lines = "Calc:\n";
  for (int i = 0; i < 100000; ++i) many_lines += "I" + std::to_string(i) + "=1+" + std::to_string(i) + "\n";
  folder.write_lateral(many_lines);
  const support::Rows rows = support::table_of(&scene.lateral);
  ASSERT_EQ(rows.size(), 100000U);
  EXPECT_EQ(rows.back()[3], "100000.0");
}

TEST(HostileInput, CutAndDamagedFilesAreRead) {
  const support::AnalysisItemFolder folder;
  HostileScene scene;
  const std::string whole = full_file();
  for (std::size_t length = 0; length <= whole.size(); length += 1 + length % 43) {
    write_everywhere(folder, whole.substr(0, length));
    call_everything(scene);
  }
  SCOPED_TRACE("seed 20231");
  std::mt19937 random(20231);
  for (int round = 0; round < 30; ++round) {
    std::string bytes = whole;
    const std::size_t damages = round % 3 == 0 ? bytes.size() : 1U + static_cast<unsigned>(round);
    for (std::size_t i = 0; i < damages; ++i) bytes[random() % bytes.size()] = static_cast<char>(random());
    write_everywhere(folder, bytes);
    call_everything(scene, static_cast<int>(random()), 0.0);
  }
}

TEST(HostileInput, ListsThatLie) {
  const support::AnalysisItemFolder folder;
  folder.write("CalcForm/F.txt", "title:\nF\nCalc:\nA=1+1\n");
  HostileScene scene;
  for (const std::string &list :
       {"\r\n\r\n"s, "..\\..\\..\\etc\\passwd\r\n"s, "CalcForm\r\n.\r\n..\r\n\\\r\nC:\r\n"s,
        std::string(100000, 'n'), repeated("F.txt\r\n", 500), "\0F.txt\r\n\x81"s}) {
    for (const char *name : lists) folder.write_bytes(name, list);
    call_everything(scene);
  }
  folder.write("CalcForm/list.txt", "Gone.txt\nF.txt\n");
  EXPECT_EQ(CCephCalc::Get_Title(CCephCalc::FormFile(0, 0)), "");
  EXPECT_EQ(CCephCalc::Get_Title(CCephCalc::FormFile(0, 1)), "F");
  EXPECT_TRUE(support::table_of(&scene.lateral).empty());
}

TEST(HostileInput, FoldersInPlaceOfFilesAndNoFolderAtAll) {
  HostileScene scene;
  call_everything(scene);
  EXPECT_EQ(CCephCalc::Get_RickettsStage(1, 10.0, 3.0), 0);
  const support::AnalysisItemFolder folder;
  for (const char *file : {"CalcForm/list.txt", "CalcForm/Ricketts.txt", "CalcForm_Surg/Surgery.txt"})
    folder.write(file + "/inner"s, "");
  call_everything(scene);
  EXPECT_EQ(CCephCalc::FormFile(0, 0), "");
}

// References
// ---------------------------------------------------------------------------------------------------
namespace {

std::string chain_of_items(int count, const std::string &last, bool doubling = false) {
  std::string text = "Calc:\n";
  for (int i = 0; i + 1 < count; ++i) {
    const std::string next = "case(\"I" + std::to_string(i + 1) + "\")";
    text += "I" + std::to_string(i) + "=" + next + "+" + (doubling ? next : "1") + "\n";
  }
  return text + "I" + std::to_string(count - 1) + "=" + last + "\n";
}

}  // namespace

TEST(HostileInput, ChainsAndCyclesOfReferencesEnd) {
  const support::AnalysisItemFolder folder;
  tagPOINTLAT record{};
  folder.write_lateral(chain_of_items(90, "1+1"));
  EXPECT_EQ(support::item_of(&record, "I0"), 91.0);
  folder.write_lateral(chain_of_items(20000, "1+1"));
  EXPECT_TRUE(std::isfinite(support::item_of(&record, "I0")));
  EXPECT_EQ(support::item_of(&record, "I19999"), 2.0);
  folder.write_lateral(chain_of_items(20000, "case(\"I0\")+1"));
  EXPECT_TRUE(std::isfinite(support::item_of(&record, "I0")));
  folder.write_lateral(chain_of_items(50, "1+1", true));
  EXPECT_EQ(support::item_of(&record, "I0"), std::ldexp(1.0, 50));
}

TEST(HostileInput, ItemsThatAllReferToEachOtherEnd) {
  const support::AnalysisItemFolder folder;
  constexpr int count = 25;
  std::string text = "Calc:\n";
  for (int i = 0; i < count; ++i) {
    text += "I" + std::to_string(i) + "=1";
    for (int j = 0; j < count; ++j) text += "+sdu(\"I" + std::to_string(j) + "\")";
    text += "\n";
  }
  text += "Mean:\n";
  for (int i = 0; i < count; ++i)
    text += "I" + std::to_string(i) + "=case(\"I" + std::to_string((i + 1) % count) + "\")*2|1\n";
  folder.write_lateral(text);
  HostileScene scene;
  EXPECT_EQ(support::table_of(&scene.lateral).size(), static_cast<std::size_t>(count));
}

// Records and buffers
// ---------------------------------------------------------------------------------------------------
TEST(HostileInput, CountsScalesAndNullPointersThatLie) {
  const support::AnalysisItemFolder folder;
  write_everywhere(folder, full_file());
  const double inf = std::numeric_limits<double>::infinity();
  for (const double number : {0.0, -1.0, 1e-300, 1e300, inf, -inf, std::nan("")}) {
    HostileScene scene(number);
    call_everything(scene, 0, number);
  }
  HostileScene scene;
  unsigned short all = 65535;
  CListCtrl table;
  for (const int mode : modes) {
    for (const char *name : {"S", "UUUUU", "VVVVV", "", "Q"}) {
      CCephCalc::PointPos(mode, name, nullptr, nullptr, nullptr, nullptr, nullptr);
      CCephCalc::PointPos(mode, name, scene.record(mode), &all, nullptr, &all, nullptr);
      CCephCalc::PointPos(mode, name, nullptr, &scene.virtual_count, scene.virtual_points, &all, nullptr);
    }
    CCephCalc::User_Calc(mode, &table, nullptr, 0, &all, nullptr, &all, nullptr, 1, -1, 1.1, 1);
    CCephCalc::User_Calc(mode, nullptr, nullptr, 0, nullptr, nullptr, nullptr, nullptr, 1, INT_MIN, 1.1, 1);
    CCephCalc::User_Diag(mode, &table, nullptr, 0, nullptr, nullptr, nullptr, nullptr, 1, INT_MAX, INT_MAX,
                         1.1, 1);
  }
  CCephCalc::User_CalcSurg(&table, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, 1);
}

TEST(HostileInput, FormulasInBuffersEndInsideThem) {
  tagPOINTLAT record{};
  std::vector<std::string> texts = hostile_formulas();
  for (const std::string &file : hostile_files()) texts.push_back(file.substr(0, 100000));
  for (const std::string &hostile : texts) {
    SCOPED_TRACE(hostile.substr(0, 60));
    const std::size_t length = std::strlen(hostile.c_str());
    for (const int start : {-5, 0, 98, 99, 100, 1000000}) {
      std::string text = hostile;
      std::vector<double> values(100, 1.0);
      int count = start;
      support::formula_of(&record, text, values.data(), &count);
      EXPECT_EQ(std::strlen(text.c_str()), length) << "the text keeps its length";
    }
    std::string text = hostile;
    CCephCalc::Calc_Point(0, text.data(), &record, nullptr, nullptr, nullptr, nullptr);
    support::term_of(2, 108, nullptr, text);
    CCephCalc::Calc_SDU(0, 99, 0, text.data(), &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1);
    int kind = 0, flag = 0;
    CCephCalc::GetType(text.data(), &kind, &flag);
    CCephCalc::Get_NumStr(text.data(), INT_MAX);
    CCephCalc::Str_Check(text.data());
  }
}

// The disk
// ---------------------------------------------------------------------------------------------------
TEST(HostileInput, UnreadableFilesGiveTheDocumentedFallback) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral("title:\nT\nCalc:\nA=1+1\nComment:\nnote\nStage:\nChild=0-200\n");
  HostileScene scene;
  const support::Rows expected{{"A", "", "", "2.0", ""}};
  ASSERT_EQ(support::table_of(&scene.lateral), expected);
  support::FaultyFileSystem disk;
  const framework::FileSystemScope scope(disk);
  for (std::uint64_t readable = 0; readable < 150; ++readable) {
    disk.readable = readable;
    const support::Rows rows = support::table_of(&scene.lateral);
    EXPECT_TRUE(rows.empty() || rows == expected) << "half a table at " << readable;
  }
  disk.readable = std::numeric_limits<std::uint64_t>::max();
  disk.unreadable = "Analysis.txt";
  EXPECT_TRUE(support::table_of(&scene.lateral).empty());
  EXPECT_EQ(CCephCalc::GetComment(0, 0), "");
  EXPECT_EQ(CCephCalc::Get_Title(CCephCalc::FormFile(0, 0)), "");
  EXPECT_EQ(support::item_of(&scene.lateral, "A"), 0.0);
  CString stage("before");
  EXPECT_EQ(CCephCalc::GetStage(CCephCalc::FormFile(0, 0), 1, 10.0, 3.0, stage), 0);
  EXPECT_EQ(stage, "");
  disk.unreadable = "list.txt";
  EXPECT_EQ(CCephCalc::FormFile(0, 0), "");
  call_everything(scene);
  EXPECT_EQ(disk.opened, disk.closed);
}
