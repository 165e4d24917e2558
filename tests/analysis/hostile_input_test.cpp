// Files, lists, records and counts as they should not be: every call ends, nothing is touched that is not
// there, and what is documented as the answer to missing things is the answer.

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "tests/support/analysis_item_folder.h"
#include "tests/support/faulty_file_system.h"
#include "tests/support/tracings.h"
#include "tool/analysis/display_settings.h"
#include "tool/analysis/evaluation.h"
#include "tool/analysis/result_table.h"
#include "tool/analysis/stages.h"
#include "tool/framework/text/CUIntArray.h"
#include "tool/tool.h"

namespace {

using namespace std::string_literals;

constexpr int modes[] = {0, 1, 2, 10, 11, 20, -1, INT_MAX};

/// Records of every kind with a few points of hostile coordinates, and point tables that refer to each other.
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
    std::memset(virtual_points, 'V', sizeof virtual_points);  // no field has an end
    std::memset(user_points, 'U', sizeof user_points);
    std::memset(lateral.userName, 'U', sizeof lateral.userName);
    std::memset(frontal.userName, 'U', sizeof frontal.userName);
  }

  void *record(int mode) {
    switch (analysis::record_kind(static_cast<analysis::Mode>(mode))) {
      case analysis::RecordKind::lateral:
        return &lateral;
      case analysis::RecordKind::frontal:
        return &frontal;
      default:
        return &cast;
    }
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
    CCephCalc::CheckCalcModePoint(&points, "S");
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

constexpr const char *files[] = {"CalcForm/F.txt",
                                 "CalcForm/Ricketts.txt",
                                 "CalcForm_PA/F.txt",
                                 "CalcForm_Model/F.txt",
                                 "CalcForm_Diag/F.txt",
                                 "CalcForm_Surg/Surgery.txt",
                                 "CalcMode/F.txt",
                                 "CalcMode_PA/F.txt",
                                 "CalcMode_Model/F.txt",
                                 "F.txt",
                                 "cvba.dat"};
constexpr const char *lists[] = {"CalcForm/list.txt", "CalcForm_PA/list.txt", "CalcForm_Model/list.txt",
                                 "CalcForm_Diag/list.txt", "list.txt"};
constexpr const char *display_lists[] = {"CalcMode/list.txt", "CalcMode_PA/list.txt",
                                         "CalcMode_Model/list.txt"};

void write_everywhere(const support::AnalysisItemFolder &folder, const std::string &bytes) {
  for (const char *list : lists) folder.write_bytes(list, "F.txt\r\n");
  for (const char *list : display_lists) folder.write_bytes(list, "1,F.txt\r\n");
  for (const char *file : files) folder.write_bytes(file, bytes);
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
      "\"big\";"
      "len([S],mid([N],[A]))*2-1;3+4:10\nBi=len(AngleBisector([S],[N],[A],40),extension([S],[N],-2.5))\n"
      "E=angle4(9,[S],[N],EffectiveA(),cross([S],[N],[A],[B]))\nModel [PLTU]=Model([PLTU])\nT=ModelRL([U1])\n"
      "Calc2:\nI0=mean(\"SNA\")+sdv(\"SNA\")\nMean:\nSNA=80,81,82\nMean_F2:\nSNA=case(\"I0\")*2|1\nSD:\nSNA="
      "2,3\n"
      "Stage_Type:\nAge\nStage:\nChild=6-12\nTeen=12-\nStage_Type2:\nTeeth\nStage2:\nMixed=IIA-IIIB\nComment:"
      "\nnote\n"
      "Param:\n1;2;3;4;5;6:a;b;c;d;e;f;[BOTTOM]g\nDiag:\nplain[NEXT]\ncase(\"SNA\")=n;low;mid[ENTER]dle;high;"
      "tail\n"
      "Point:\nS\nSuppLine:\nColor=1,2,3\n[S][N]\n=len([S],[N])\nPointSetting:\nx\n[End]\n");
}

struct HostileFile {
  const char *name;
  std::string bytes;
};

std::vector<HostileFile> hostile_files() {
  const std::string head = "Calc:\r\nSNA=";
  std::string many_lines = "Calc:\r\n";
  for (int i = 0; i < 100000; ++i) many_lines += "I" + std::to_string(i) + "=1+" + std::to_string(i) + "\r\n";
  return {
      {"empty", ""},
      {"one byte", "C"},
      {"one line end", "\r"},
      {"only separators", "===,,,;;;:::"},
      {"keywords alone",
       "Calc:\r\nMean:\r\nSD:\r\nStage:\r\nStage_Type:\r\nDiag:\r\nParam:\r\nComment:\r\ntitle:"},
      {"keyword at the end", "title:\r\nx\r\nComment:"},
      {"no line ends", head + repeated("len([S],[N])+", 50000)},
      {"one long item text",
       "Calc:\r\n" + std::string(100000, 'x') + "=1+1\r\nMean:\r\n" + std::string(600, 'x') + "=1"},
      {"NUL bytes", "Calc:\0\0\r\n\0SNA=len([S]\0,[N])\r\n"s},
      {"half characters", "Calc:\r\nSNA\x81=len([S\x81],[N])\x81\r\n\x81"},
      {"deep points", head + repeated("mid(", 120) + "\r\n"},
      {"deep groups", head + repeated("(", 240) + "1" + repeated(")", 240) + "\r\n"},
      {"many operators", head + repeated("1+", 249) + "1\r\n"},
      {"operators alone", head + "+-*/<>=<=>===" + repeated("-", 400) + "\r\n"},
      {"open ends", head + "len([S\r\nA=len(\r\nB=case(\"\r\nC=switch(\r\nD=angle3(\r\nE=Model(\r\nF=:\r\nG=;"
                           "\r\nH=ModelRL\r\n"},
      {"huge numbers",
       head + "1e999*9" + repeated("9", 400) + ":99999999999999\r\nMean:\r\nSNA=" + repeated("9", 450)},
      {"variables", head + "d00+d99+d1+d+d100*d55\r\n"},
      {"choices",
       head + "switch(" + repeated("0,", 200) + ")" + repeated(";", 50) + "\r\nA=switch()\r\nB=switch;;\r\n"},
      {"division by nothing", head + "1/0\r\nA=0/0\r\nB=switch(0/0);\"a\";\"b\"\r\nC=switch(1/0);\"a\"\r\n"},
      {"norm columns", "Calc:\r\nSNA=1+1\r\nMean:\r\nSNA=" + repeated(",", 480) + "\r\nSD:\r\nSNA=(|9"},
      {"norm formulas", "Calc:\r\nSNA=1+1\r\nMean:\r\nSNA=x\r\nSD:\r\nSNA=mean(\"SNA\")|1\r\n"},
      {"formats",
       "Param:\r\n1;2;3;4;5;6:a;b;c;d;e;f;g\r\nDiag:\r\n1+1=%n;%s%s%s;%n%n;%999999999d%*d;%s\r\n%s%n[NEXT]"
       "\r\n"},
      {"parameters", "Param:\r\n;;;;;;;;;;:;;;;;;;;;;;;\r\nDiag:\r\n1+1=;;;;;;;;\r\n=;\r\nParam:"},
      {"markers", "Diag:\r\n[NEXT][NEXT]\r\n[ENTER][ENTER][ENTER]\r\n1+1=a;[BOTTOM];[ENTER]\r\n[NEXT]"},
      {"stages",
       "Stage_Type:\r\nStage:\r\n=\r\na=-\r\nb=--\r\nc=1-2-3\r\nd=1e400-nan\r\ne=VA-" + repeated("I", 400)},
      {"settings", "SuppLine:\r\nColor=,,,,\r\nColor=99999999999,-1,x\r\nSize=" + repeated("9", 300) +
                       "\r\nPos=" + repeated("p", 480) + "\r\n=" + repeated("x", 500) +
                       "\r\n[][]\r\n[[[]]]\r\n][\r\n" + repeated("[S][N]\r\n", 100)},
      {"100000 lines", many_lines},
  };
}

}  // namespace

TEST(HostileInput, FilesNeverHarm) {
  const support::AnalysisItemFolder folder;
  HostileScene scene;
  for (const HostileFile &file : hostile_files()) {
    SCOPED_TRACE(file.name);
    write_everywhere(folder, file.bytes);
    if (file.bytes.size() < 1000000) {
      call_everything(scene);
      continue;
    }
    CListCtrl table;
    CCephCalc::User_Calc(0, &table, &scene.lateral, 0, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, 1);
    EXPECT_EQ(table.GetItemCount(), 100000);
    EXPECT_EQ(table.GetItemText(99999, 3), "100000.0");
  }
}

TEST(HostileInput, EveryBeginningOfAFileIsRead) {
  const support::AnalysisItemFolder folder;
  HostileScene scene;
  const std::string whole = full_file();
  for (std::size_t length = 0; length <= whole.size(); length += 1 + length % 43) {
    write_everywhere(folder, whole.substr(0, length));
    call_everything(scene);
  }
}

TEST(HostileInput, RandomBytesAndRandomDamage) {
  const support::AnalysisItemFolder folder;
  HostileScene scene;
  const unsigned seed = 20231;
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  for (int round = 0; round < 30; ++round) {
    std::string bytes = full_file();
    if (round % 3 == 0) {
      for (char &c : bytes) c = static_cast<char>(random());
    } else {
      for (int i = 0; i < 1 + round; ++i) bytes[random() % bytes.size()] = static_cast<char>(random());
    }
    write_everywhere(folder, bytes);
    call_everything(scene, static_cast<int>(random()), 0.0);
  }
}

TEST(HostileInput, ListsThatLie) {
  const support::AnalysisItemFolder folder;
  folder.write("CalcForm/F.txt", "title:\nF\nCalc:\nA=1+1\n");
  HostileScene scene;
  for (const std::string &list :
       {std::string("Gone.txt\r\nF.txt\r\n"), std::string("\r\n\r\n"),
        std::string("..\\..\\..\\etc\\passwd\r\n"), std::string("CalcForm\r\n.\r\n..\r\n\\\r\nC:\r\n"),
        std::string(100000, 'n'), repeated("F.txt\r\n", 500), "\0F.txt\r\n\x81"s}) {
    for (const char *name : lists) folder.write_bytes(name, list);
    call_everything(scene);
  }
  folder.write("CalcForm/list.txt", "Gone.txt\nF.txt\n");
  EXPECT_EQ(CCephCalc::Get_Title(CCephCalc::FormFile(0, 0)), "");
  EXPECT_EQ(CCephCalc::Get_Title(CCephCalc::FormFile(0, 1)), "F");
  EXPECT_EQ(CCephCalc::FormFile(0, 2), "");
  CListCtrl table;
  CCephCalc::User_Calc(0, &table, &scene.lateral, 0, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, 1);
  EXPECT_EQ(table.GetItemCount(), 0);
}

TEST(HostileInput, FoldersInPlaceOfFilesAndNoFolderAtAll) {
  HostileScene scene;
  {
    const support::AnalysisItemFolder folder;
    folder.write("CalcForm/list.txt/inner", "");
    folder.write("CalcForm/Ricketts.txt/inner", "");
    folder.write("CalcForm_Surg/Surgery.txt/inner", "");
    call_everything(scene);
    EXPECT_EQ(CCephCalc::FormFile(0, 0), "");
  }
  call_everything(scene);
  EXPECT_EQ(CCephCalc::Get_RickettsStage(1, 10.0, 3.0), 0);
}

// References
// ---------------------------------------------------------------------------------------------------
namespace {

double value_of(const char *item) {
  tagPOINTLAT record{};
  record.scale = 0.1;
  return CCephCalc::Calc_1(0, 0, 0, item, &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, nullptr,
                           nullptr);
}

std::string chain_of_items(int count, const std::string &last, int references = 1) {
  std::string text = "Calc:\n";
  for (int i = 0; i + 1 < count; ++i) {
    const std::string next = "case(\"I" + std::to_string(i + 1) + "\")";
    text += "I" + std::to_string(i) + "=" + next;
    for (int k = 1; k < references; ++k) text += "+" + next;
    text += references == 1 ? "+1\n" : "\n";
  }
  return text + "I" + std::to_string(count - 1) + "=" + last + "\n";
}

}  // namespace

TEST(HostileInput, LongChainsOfReferencesEnd) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral(chain_of_items(90, "1+1"));
  EXPECT_EQ(value_of("I0"), 91.0);
  folder.write_lateral(chain_of_items(20000, "1+1"));
  const double deep = value_of("I0");
  EXPECT_TRUE(std::isfinite(deep));
  EXPECT_EQ(value_of("I19999"), 2.0);
}

TEST(HostileInput, ReferencesThatDoubleAtEveryStepEnd) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral(chain_of_items(50, "1+1", 2));
  EXPECT_EQ(value_of("I0"), std::ldexp(1.0, 50));
}

TEST(HostileInput, CyclesCountAsZero) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral(
      "Calc:\nI0=case(\"I0\")+5\nA=case(\"B\")+1\nB=case(\"A\")+10\nC=sdu(\"C\")+mean(\"C\")+7\nMean:\n"
      "C=mean(\"C\")+3|1\nSD:\nC=sdv(\"C\")+2|1\n");
  EXPECT_EQ(value_of("I0"), 5.0);
  EXPECT_EQ(value_of("A"), 11.0);
  EXPECT_EQ(value_of("B"), 11.0);
  EXPECT_TRUE(std::isfinite(value_of("C")));
}

TEST(HostileInput, ACycleOfThousandsOfItemsEnds) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral(chain_of_items(20000, "case(\"I0\")+1"));
  EXPECT_TRUE(std::isfinite(value_of("I0")));
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
  CListCtrl table;
  CCephCalc::User_Calc(0, &table, &scene.lateral, 0, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, 1);
  EXPECT_EQ(table.GetItemCount(), count);
}

// Points
// ---------------------------------------------------------------------------------------------------
namespace {

void set_text(char *field, std::size_t size, const std::string &text) {
  std::memset(field, 0, size);
  std::memcpy(field, text.data(), std::min(size - 1, text.size()));
}

/// Intersections of four other virtual points each: in every order there are far too many roads to walk.
std::vector<tagKPOINT> entangled_points(int count) {
  std::vector<tagKPOINT> points(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    tagKPOINT &point = points[static_cast<std::size_t>(i)];
    const auto name = [&](int step) { return "V" + std::to_string((i + step) % count); };
    set_text(point.name, sizeof point.name, name(0));
    set_text(point.type, sizeof point.type, "2");
    set_text(point.ref1, sizeof point.ref1, name(1));
    set_text(point.ref2, sizeof point.ref2, name(2));
    set_text(point.ref3, sizeof point.ref3, name(3));
    set_text(point.ref4, sizeof point.ref4, name(5));
  }
  return points;
}

}  // namespace

TEST(HostileInput, EntangledVirtualPointsAreNotFound) {
  std::vector<tagKPOINT> points = entangled_points(60);
  auto count = static_cast<unsigned short>(points.size());
  tagPOINTLAT record{};
  record.scale = 0.1;
  const CPointD found = CCephCalc::PointPos(0, "V0", &record, &count, points.data(), nullptr, nullptr);
  EXPECT_EQ(found.x, 0.0);
  EXPECT_EQ(found.y, 0.0);
}

namespace {

/// Each is the midpoint of the next one with itself; the last is the midpoint of two landmarks.
CPointD foot_of_ladder(int rungs) {
  std::vector<tagKPOINT> points(static_cast<std::size_t>(rungs));
  for (int i = 0; i < rungs; ++i) {
    tagKPOINT &point = points[static_cast<std::size_t>(i)];
    const std::string next = "V" + std::to_string(i + 1);
    set_text(point.name, sizeof point.name, "V" + std::to_string(i));
    set_text(point.type, sizeof point.type, "1");
    set_text(point.ref1, sizeof point.ref1, i + 1 == rungs ? "S" : next);
    set_text(point.ref2, sizeof point.ref2, i + 1 == rungs ? "N" : next);
  }
  tagPOINTLAT record = support::lateral_record(0.1, {{"S", {100, 100}}, {"N", {200, 300}}});
  auto count = static_cast<unsigned short>(points.size());
  return CCephCalc::PointPos(0, "V0", &record, &count, points.data(), nullptr, nullptr);
}

}  // namespace

TEST(HostileInput, ALadderOfVirtualPointsEnds) {
  EXPECT_EQ(foot_of_ladder(12).x, 150.0);
  EXPECT_EQ(foot_of_ladder(12).y, 200.0);
  EXPECT_TRUE(std::isfinite(foot_of_ladder(300).x));
}

TEST(HostileInput, CountsThatLieAndNullPointers) {
  const support::AnalysisItemFolder folder;
  write_everywhere(folder, full_file());
  HostileScene scene;
  unsigned short all = 65535;
  for (const int mode : modes) {
    for (const char *name : {"S", "UUUUU", "VVVVV", "", "Q"}) {
      CCephCalc::PointPos(mode, name, nullptr, nullptr, nullptr, nullptr, nullptr);
      CCephCalc::PointPos(mode, name, scene.record(mode), &all, nullptr, &all, nullptr);
      CCephCalc::PointPos(mode, name, nullptr, &scene.virtual_count, scene.virtual_points, &all, nullptr);
    }
    CListCtrl table;
    CCephCalc::User_Calc(mode, &table, nullptr, 0, &all, nullptr, &all, nullptr, 1, -1, 1.1, 1);
    CCephCalc::User_Calc(mode, nullptr, nullptr, 0, nullptr, nullptr, nullptr, nullptr, 1, INT_MIN, 1.1, 1);
    CCephCalc::User_Diag(mode, &table, nullptr, 0, nullptr, nullptr, nullptr, nullptr, 1, INT_MAX, INT_MAX,
                         1.1, 1);
  }
  CListCtrl table;
  CCephCalc::User_CalcSurg(&table, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, 1);
}

TEST(HostileInput, ScalesAndMagnificationsOfAnyKind) {
  const support::AnalysisItemFolder folder;
  write_everywhere(folder, full_file());
  const double inf = std::numeric_limits<double>::infinity();
  for (const double number : {0.0, -1.0, 1e-300, 1e300, inf, -inf, std::nan("")}) {
    HostileScene scene(number);
    call_everything(scene, 0, number);
  }
}

TEST(HostileInput, FormulasInBuffersEndInsideThem) {
  tagPOINTLAT record{};
  for (const HostileFile &file : hostile_files()) {
    if (file.bytes.size() > 100000) continue;
    SCOPED_TRACE(file.name);
    for (const int start : {-5, 0, 98, 99, 100, 1000000}) {
      std::vector<char> text(file.bytes.begin(), file.bytes.end());
      text.push_back('\0');
      const std::size_t length = std::strlen(text.data());
      std::vector<double> values(100, 1.0);
      int count = start;
      CCephCalc::Calc(0, 0, text.data(), values.data(), &count, &record, nullptr, nullptr, nullptr, nullptr,
                      1, 0, 1.1, 1);
      EXPECT_EQ(std::strlen(text.data()), length) << "the text keeps its length";
    }
    std::vector<char> text(file.bytes.begin(), file.bytes.end());
    text.push_back('\0');
    CCephCalc::Calc_Point(0, text.data(), &record, nullptr, nullptr, nullptr, nullptr);
    CCephCalc::Calc_Mult(2, 108, text.data(), nullptr, nullptr, nullptr, nullptr, nullptr, 1);
    CCephCalc::Calc_SDU(0, 99, 0, text.data(), &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1);
    int kind = 0, flag = 0;
    CCephCalc::GetType(text.data(), &kind, &flag);
    CCephCalc::Get_NumStr(text.data(), INT_MAX);
    CCephCalc::Str_Check(text.data());
  }
}

// The disk
// ---------------------------------------------------------------------------------------------------
namespace {

std::string table_text(HostileScene &scene) {
  CListCtrl table;
  CCephCalc::User_Calc(0, &table, &scene.lateral, 0, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, 1);
  std::string text;
  for (int row = 0; row < table.GetItemCount(); ++row)
    for (int column = 0; column < 4; ++column)
      text += std::string(table.GetItemText(row, column).GetString()) + "|";
  return text;
}

}  // namespace

TEST(HostileInput, UnreadableFilesGiveTheDocumentedFallback) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral("title:\nT\nCalc:\nA=1+1\nComment:\nnote\nStage:\nChild=0-200\n");
  HostileScene scene;
  ASSERT_EQ(table_text(scene), "A|||2.0|");
  support::FaultyFileSystem disk;
  const framework::FileSystemScope scope(disk);
  disk.unreadable = "Analysis.txt";
  EXPECT_EQ(table_text(scene), "");
  EXPECT_EQ(CCephCalc::GetComment(0, 0), "");
  EXPECT_EQ(CCephCalc::Get_Title(CCephCalc::FormFile(0, 0)), "");
  EXPECT_EQ(value_of("A"), 0.0);
  CString stage("before");
  EXPECT_EQ(CCephCalc::GetStage(CCephCalc::FormFile(0, 0), 1, 10.0, 3.0, stage), 0);
  EXPECT_EQ(stage, "");
  disk.unreadable = "list.txt";
  EXPECT_EQ(CCephCalc::FormFile(0, 0), "");
  EXPECT_EQ(table_text(scene), "");
  call_everything(scene);
  EXPECT_EQ(disk.opened, disk.closed);
}

TEST(HostileInput, ShortReadsChangeNothing) {
  const support::AnalysisItemFolder folder;
  folder.write("CalcForm/list.txt", "F.txt\n");
  folder.write_bytes("CalcForm/F.txt", full_file());
  HostileScene scene;
  const std::string expected = table_text(scene);
  ASSERT_NE(expected, "");
  support::FaultyFileSystem disk;
  disk.largest_read = 3;
  const framework::FileSystemScope scope(disk);
  EXPECT_EQ(table_text(scene), expected);
}

TEST(HostileInput, ReadsThatFailMidwayGiveNoHalfTables) {
  const support::AnalysisItemFolder folder;
  folder.write("CalcForm/list.txt", "F.txt\n");
  folder.write_bytes("CalcForm/F.txt", full_file());
  HostileScene scene;
  const std::string expected = table_text(scene);
  support::FaultyFileSystem disk;
  const framework::FileSystemScope scope(disk);
  for (std::uint64_t readable = 0; readable < 1200; readable += 7) {
    disk.readable = readable;
    const std::string text = table_text(scene);
    EXPECT_TRUE(text.empty() || text == expected) << readable;
  }
  EXPECT_EQ(disk.opened, disk.closed);
}

// The core
// ---------------------------------------------------------------------------------------------------
TEST(HostileInput, TheCoreTakesTheSameFiles) {
  HostileScene scene;
  const analysis::Patient patient;
  for (const HostileFile &file : hostile_files()) {
    if (file.bytes.size() > 1000000) continue;
    SCOPED_TRACE(file.name);
    for (const auto mode : {analysis::Mode::lateral, analysis::Mode::model}) {
      const analysis::Tracing tracing(mode, scene.record(static_cast<int>(mode)), &scene.virtual_count,
                                      scene.virtual_points, &scene.user_count, scene.user_points);
      const analysis::Analysis parsed(analysis::DefinitionFile(file.bytes), mode);
      const auto rows = analysis::result_table(parsed, tracing, patient, 2);
      for (const analysis::TableRow &row : rows) {
        EXPECT_LE(row.item.size(), analysis::max_line_bytes);
        EXPECT_TRUE(!row.reason || !analysis::describe(*row.reason).empty());
      }
      analysis::diagnosis(parsed, tracing, patient);
      analysis::stages(parsed.file(), 1, analysis::StageSet::second);
    }
    const analysis::DisplaySettings settings = analysis::parse_display_settings(file.bytes);
    EXPECT_LE(settings.segments.size(), analysis::DisplaySettings::max_segments);
  }
}
