#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "tests/support/analysis_item_folder.h"
#include "tests/support/tracings.h"
#include "tool/analysis/evaluation.h"
#include "tool/tool.h"

namespace {

constexpr double near = 1e-7;  // angles come from a pi of ten digits

tagPOINTLAT scene() {
  return support::lateral_record(0.1, {{"S", {100, 100}},
                                       {"N", {200, 100}},
                                       {"A", {200, 200}},
                                       {"B", {100, 200}},
                                       {"Me", {300, 100}},
                                       {"Gn", {1000, 1000}}});
}

double calc(const char *formula, double *values = nullptr, int *count = nullptr, int whole = 1,
            int mode = 0) {
  static double spare[100];
  int used = 0;
  std::memset(spare, 0, sizeof spare);
  std::string text = formula;
  tagPOINTLAT record = scene();
  return CCephCalc::Calc(mode, 0, text.data(), values ? values : spare, count ? count : &used, &record,
                         nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, whole);
}

double angle_in_degrees_with_ten_digit_pi(double radians) {
  return radians / 3.141592654 * 180.0;
}

}  // namespace

// One table, three ways in: the exported evaluator, the core, and an item of a file.
TEST(Formula, GivesTheSameNumberOnEveryRoute) {
  const support::AnalysisItemFolder folder;
  const double quarter = 90.0;
  const struct {
    const char *formula;
    double expected;
  } rows[] = {
      {"len([S],[N])", 10.0},
      {"lenR([S],[N])", 10.0},
      {"lenR([N],[S])", -10.0},
      {"lenD([A],[N])", -10.0},
      {"lenD([N],[A])", 10.0},
      {"len(mid([S],[N]),[N])", 5.0},
      {"angle1([S],[N],[A])", quarter},
      {"angle1([S],[N],[Me])", 180.0},
      {"angle1([N],[S],[Me])", 0.0},
      {"angle1([S],[S],[N])", 0.0},
      {"angle2([S],[N],[N],[A])", quarter},
      {"angle2([N],[A],[S],[N])", -quarter},
      {"angle2([S],[N],[B],[A])", 0.0},
      {"angle2([S],[N],[A],[B])", 180.0},
      {"angle2([S],[N],[Me],[S])", 180.0},
      {"angle3(9,[S],[N],[A])", 90.0},
      {"angle4(0,[N],[A],[S],[N])", -90.0},
      {"2+3*4", 14.0},
      {"10-4-3", 3.0},
      {"(10-4)-3", 3.0},
      {"(1+2)+(3+4)", 10.0},
      {"(1+2)*(3+4)", 21.0},
      {"2*(3+4)", 14.0},
      {"100/8/5", 2.5},
      {"-5+3", -2.0},
      {"0-lenR([S],[N])", -10.0},
      {"-lenR([S],[N])*2", -20.0},
      {"2*-3", -3.0},  // operands are unsigned: 2 x nothing, then minus 3
      {"5-", 5.0},
      {"1 + 2 * 3", 7.0},
      {"1.5*.5", 0.75},
      {"len([S],[N])-len([S],[Me])/2", 0.0},
      {"(len([S],[N])+len([N],[A]))/4", 5.0},
      {"d01+len([S],[N])", 20.0},  // d01 is the first entry: the length itself
      {"len([S],[N])+d99", 10.0},
      {"3>2", 1.0},
      {"3<=2", 0.0},
      {"2>=2", 1.0},
      {"2==2", 1.0},
      {"2=3", 0.0},
      {"1+1=2", 1.0},
      {"switch(0,0,7)", 2.0},
      {"switch(0,0)", 2.0},
      {"switch(0.9,1)", 1.0},
      {"switch(len([S],[N])>50,len([S],[N])>5)", 1.0},
      {"switch(1+1>3,(1+1)*2>3,1)", 1.0},
      {"42", 0.0},
      {"(42)", 0.0},
      {"", 0.0},
      {"len([S])", 0.0},
      {"len[S],[N]", 0.0},
      {"nonsense", 0.0},
      {"foo(len([S],[N]))", 10.0},
      // groups do not nest inside one operand: the nearest '(' to the left opens it
      {"((1+2)+3)*4", 12.0},
      {"Model([UATW])", 0.0},
      {"case(x)", 0.0},
      {"2*[N]len([S],[N])", 20.0 * 0 + 0.0},  // a name in brackets ends the operand: 2 x nothing
  };
  std::string file = "Calc:\n";
  for (std::size_t i = 0; i < std::size(rows); ++i)
    file += "r" + std::to_string(i) + "=" + rows[i].formula + "\n";
  folder.write_lateral(file);
  tagPOINTLAT record = scene();
  const analysis::Tracing tracing(analysis::Mode::lateral, &record, nullptr, nullptr, nullptr, nullptr);
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const auto &row = rows[i];
    EXPECT_NEAR(calc(row.formula), row.expected, near) << row.formula;
    EXPECT_NEAR(analysis::evaluate_formula(row.formula, tracing, {}).value, row.expected, near)
        << row.formula;
    const double by_item = CCephCalc::Calc_1(0, 0, 0, ("r" + std::to_string(i)).c_str(), &record, nullptr,
                                             nullptr, nullptr, nullptr, 1, 0, 1.1, nullptr, nullptr);
    EXPECT_NEAR(by_item, row.expected, near) << row.formula;
  }
}

TEST(Formula, ConvertsAnglesWithTenDigitsOfPi) {
  EXPECT_DOUBLE_EQ(calc("angle2([S],[N],[N],[A])"), angle_in_degrees_with_ten_digit_pi(std::acos(0.0)));
  EXPECT_DOUBLE_EQ(calc("angle1([S],[N],[A])"), 180.0 - std::acos(0.0) * 180.0 / 3.141592654);
  EXPECT_TRUE(std::isnan(calc("angle2([S],[S],[N],[A])")));
  EXPECT_TRUE(std::isinf(calc("1/0")));
}

TEST(Formula, BringsAnglesToThePrecisionOfTheirDigit) {
  // The arm from N leans so that the angle at N is atan2(y, -x) seen from S.
  const struct {
    POINT arm;
    char digit;
    double expected;
  } rows[] = {
      // tan 81.3 degrees = 6.53503, tan 81.2 = 6.45961
      {{200 - 10000, 100 + 65350}, '9', 81.5}, {{200 - 10000, 100 + 64596}, '9', 81.0},
      {{200 - 10000, 100 + 65350}, '0', 81.0}, {{200 - 10000, 100 + 65350}, '1', 81.3},
      {{200 - 10000, 100 + 65350}, '2', 81.3}, {{200 - 10000, 100 + 65350}, 'x', 81.0},
  };
  for (const auto &row : rows) {
    tagPOINTLAT record = scene();
    record.pt[8 + analysis::lateral::A] = row.arm;
    std::string text = std::string("(") + row.digit + ",[S],[N],[A])+1";
    const double angle =
        CCephCalc::Calc_Mult(0, 109, text.data(), &record, nullptr, nullptr, nullptr, nullptr, 1);
    EXPECT_DOUBLE_EQ(angle, row.expected) << row.digit;
    EXPECT_EQ(text, std::string(15, ' ') + "+1");
  }
}

TEST(Formula, AppendsToTheCallersTableAndBlanksTheText) {
  double values[100] = {0, 3};
  int count = 2;
  std::string text = "switch(d02>5,d02>2);\"low\";\"high\"";
  const double result = CCephCalc::Calc(0, 0, text.data(), values, &count, nullptr, nullptr, nullptr, nullptr,
                                        nullptr, 1, 0, 1.1, 1);
  EXPECT_EQ(result, 1.0);
  EXPECT_EQ(count, 5);
  EXPECT_EQ(values[2], 0.0);
  EXPECT_EQ(values[3], 1.0);
  EXPECT_EQ(values[4], 1.0);
  EXPECT_EQ(text, std::string(20, ' ') + "\"low\";\"high\"");
}

TEST(Formula, EvaluatesAGroupAlone) {
  const struct {
    const char *text;
    double expected;
    const char *left;
  } rows[] = {
      {"(1+2)*3", 3.0, "     *3"},
      {"(d01)", 8.0, "     "},
      {"(7)", 7.0, "   "},
      {"1+2;3", 3.0, "    3"},
  };
  for (const auto &row : rows) {
    double values[100] = {8};
    int count = 1;
    std::string text = row.text;
    EXPECT_EQ(CCephCalc::Calc(0, 0, text.data(), values, &count, nullptr, nullptr, nullptr, nullptr, nullptr,
                              1, 0, 1.1, 0),
              row.expected)
        << row.text;
    EXPECT_EQ(text, row.left);
  }
}

TEST(Formula, NeverWritesPastTheTable) {
  std::string sum = "1";
  for (int i = 0; i < 300; ++i) sum += "+1";
  double values[101] = {};
  values[100] = 77;
  int count = 0;
  // 99 additions fit: 1 + 99
  EXPECT_EQ(CCephCalc::Calc(0, 0, sum.data(), values, &count, nullptr, nullptr, nullptr, nullptr, nullptr, 1,
                            0, 1.1, 1),
            100.0);
  EXPECT_EQ(count, 99);
  EXPECT_EQ(values[99], 0);
  EXPECT_EQ(values[100], 77);
  for (int lie : {-5, 1000}) {
    std::string text = "1+1";
    CCephCalc::Calc(0, 0, text.data(), values, &lie, nullptr, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1,
                    1);
    EXPECT_EQ(values[100], 77);
  }
}

TEST(Formula, ReadsTermsWithTheirKinds) {
  tagPOINTLAT record = scene();
  const struct {
    unsigned int kind;
    const char *text;
    double expected;
  } rows[] = {
      {101, "([S],[N])", 10},
      {102, "([N],[S])", -10},
      {103, "([A],[N])", -10},
      {104, "([S],[N],[A])", 90},
      {105, "([N],[A],[S],[N])", -90},
      {110, "(1,[N],[A],[S],[N])", -90},
      {108, "([UATW])", 0},
      {106, "([S],[N])", 0},
      {101, "[S],[N]", 0},
      {101, "([nobody],[N])", std::hypot(20.0, 10.0)},  // an unresolved point is (0, 0)
  };
  for (const auto &row : rows) {
    std::string text = row.text;
    EXPECT_NEAR(
        CCephCalc::Calc_Mult(0, row.kind, text.data(), &record, nullptr, nullptr, nullptr, nullptr, 1),
        row.expected, near)
        << row.kind << row.text;
  }
}

TEST(Formula, ReadsModelTokens) {
  tagPOINTMO cast{};
  cast.scale = 0.1;
  cast.ex.upperExtra[0][0] = 31.5;  // typed length
  cast.ex.lowerExtra[2][0] = 30.25;
  const struct {
    const char *text;
    double expected;
  } rows[] = {
      {"([UCAL])", 31.5},        {"([LBAL])", 30.25}, {"([UCAW])", analysis::missing_value},
      {"([XXXX])", 999999999.0}, {"([PLTU])", -1.0},
  };
  for (const auto &row : rows) {
    std::string text = row.text;
    EXPECT_EQ(CCephCalc::Calc_Mult(2, 108, text.data(), &cast, nullptr, nullptr, nullptr, nullptr, 1),
              row.expected)
        << row.text;
    EXPECT_EQ(text, std::string(text.size(), ' '));
  }
}

TEST(ItemReferences, TakeValueNormAndDeviation) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral(
      "Calc:\nlen mean=len([S],[N])\ntwice=case(\"len mean\")*2+1\ndev=sdu(\"len mean\"):1\n"
      "m=mean(\"len mean\"):1\ns=sdv(\"len mean\"):1\nhead\nh=case(\"head\")+case(\"gone\")+1\n"
      "no=mean(\"twice\")+sdu(\"twice\")+1\nsecond=case(\"hidden\")+0\nt=case(\"text\")+1\n"
      "text=switch(1>0);\"only\"\n\x95\x5C=case(\"\x95\x5C\x83\x7C\x81\x5B[\xB1]\")+0\n"
      "\x95\x5C\x83\x7C\x81\x5B[\xB1]=len([S],[N])\n"
      "Calc2:\nhidden=len([S],[Me])\nMean:\nlen mean=8.0\nSD:\nlen mean=0.5\n");
  tagPOINTLAT record = scene();
  const auto value = [&](const char *item) {
    return CCephCalc::Calc_1(0, 0, 0, item, &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, nullptr,
                             nullptr);
  };
  const struct {
    const char *item;
    double expected;
  } rows[] = {
      {"twice", 21}, {"dev", 4},  {"m", 8},    {"s", 0.5},  {"h", 1},       {"no", 1},        {"second", 20},
      {"t", 1},      {"text", 0}, {"head", 0}, {"gone", 0}, {"hidden", 20}, {"\x95\x5C", 10},
  };
  for (const auto &row : rows) EXPECT_NEAR(value(row.item), row.expected, near) << row.item;
}

TEST(ItemReferences, FillTheOutputsOfASelector) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral("Calc:\nx=len([S],[N]):1\ny=len([S],[N]):1\nMean:\nx=9\nSD:\nx=2\ny=2\n");
  tagPOINTLAT record = scene();
  const auto call = [&](int selector, const char *item, double &mean, double &sd) {
    return CCephCalc::Calc_1(selector, 0, 0, item, &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1,
                             &mean, &sd);
  };
  double mean = -7;
  double sd = -7;
  EXPECT_EQ(call(2, "x", mean, sd), 9);
  EXPECT_EQ(mean, 9);
  EXPECT_EQ(sd, -7);
  EXPECT_EQ(call(3, "x", mean, sd), 2);
  EXPECT_EQ(sd, 2);
  EXPECT_EQ(call(1, "x", mean, sd), 0.5);
  EXPECT_EQ(call(1, "y", mean, sd), 5);  // a mean that is not found counts 0 and is reported as missing
  EXPECT_EQ(mean, 999999999.0);
  EXPECT_EQ(CCephCalc::Calc_1(1, 0, 0, "x", &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, nullptr,
                              nullptr),
            0.5);
}

TEST(ItemReferences, ConsumeTheirText) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral("Calc:\nx=len([S],[N])\n");
  tagPOINTLAT record = scene();
  std::string text = "(\"x\")+(1)";
  EXPECT_EQ(CCephCalc::Calc_SDU(0, 0, 0, text.data(), &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1),
            10);
  EXPECT_EQ(text, "     +(1)");
  std::string unquoted = "(x)";
  EXPECT_EQ(
      CCephCalc::Calc_SDU(0, 0, 0, unquoted.data(), &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1),
      0);
}

TEST(ItemReferences, CutCircles) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral(
      "Calc:\nself=case(\"self\")+1\na=case(\"b\")+1\nb=case(\"a\")+2\nn=len([S],[N])\nm=mean(\"m\")+3\n"
      "Mean:\nn=case(\"n\")*2|1\nself=mean(\"self\")+5|0\nm=7\n");
  tagPOINTLAT record = scene();
  const auto value = [&](const char *item, int selector = 0) {
    return CCephCalc::Calc_1(selector, 0, 0, item, &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1,
                             nullptr, nullptr);
  };
  EXPECT_EQ(value("self"), 1);
  EXPECT_EQ(value("a"), 3);
  EXPECT_EQ(value("b"), 3);
  EXPECT_EQ(value("m"), 3);
  EXPECT_NEAR(value("n", 2), 20, near) << "an item's norm may rest on its value";
  EXPECT_EQ(value("self", 2), 5);
  // whatever row is shown first, every row gets the number it has on its own
  CListCtrl list;
  CCephCalc::User_Calc(0, &list, &record, 0, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, 1);
  EXPECT_STREQ(list.GetItemText(1, 3), "3.0");
  EXPECT_STREQ(list.GetItemText(2, 3), "3.0");
}

TEST(ItemReferences, EndTangledFilesInTime) {
  const support::AnalysisItemFolder folder;
  std::string chain = "Calc:\n";
  std::string clique = "Calc:\n";
  for (int i = 0; i < 60; ++i) {
    const auto item = [](int k) { return "case(\"x" + std::to_string(k) + "\")"; };
    chain += "x" + std::to_string(i) + "=" + item(i + 1) + "+" + item(i + 1) + "\n";
    clique += "x" + std::to_string(i) + "=0";
    for (int k = 0; k < 25; ++k) clique += "+" + item((i + k) % 60);
    clique += "\n";
  }
  tagPOINTLAT record = scene();
  for (const std::string &file : {chain + "x60=len([S],[N])\n", clique}) {
    folder.write_lateral(file);
    CListCtrl list;
    CCephCalc::User_Calc(0, &list, &record, 0, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, 1);
    EXPECT_GE(list.GetItemCount(), 60);
  }
  folder.write_lateral(chain + "x60=len([S],[N])\n");
  EXPECT_EQ(CCephCalc::Calc_1(0, 0, 0, "x50", &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1, nullptr,
                              nullptr),
            10.0 * 1024);
}

TEST(FormulaReasons, NameWhatIsWrong) {
  tagPOINTLAT record = scene();
  const analysis::Tracing tracing(analysis::Mode::lateral, &record, nullptr, nullptr, nullptr, nullptr);
  const analysis::Analysis file(
      analysis::DefinitionFile("Calc:\r\nx=len([S],[Xi])\r\nself=case(\"self\")+0\r\n"),
      analysis::Mode::lateral);
  using Kind = analysis::Reason::Kind;
  const struct {
    const char *formula;
    Kind kind;
    const char *subject;
    std::size_t position;
  } rows[] = {
      {"len([S],[Xi])", Kind::unplaced_point, "Xi", 0},
      {"len([S],[Zz])", Kind::unknown_point, "Zz", 0},
      {"case(\"x\")+1", Kind::unplaced_point, "Xi", 0},
      {"case(\"y\")+1", Kind::unknown_item, "y", 0},
      {"case(\"self\")+1", Kind::cycle, "self", 0},
      {"mean(\"x\")+1", Kind::no_norm, "x", 0},
      {"len([S],[N])+foo", Kind::malformed_formula, "len([S],[N])+foo", 13},
      {"2+len([S])", Kind::malformed_formula, "2+len([S])", 2},
      {"(2+3", Kind::malformed_formula, "(2+3", 4},
      {"5", Kind::malformed_formula, "5", 0},
  };
  for (const auto &row : rows) {
    const analysis::Measured measured = analysis::evaluate_formula(row.formula, tracing, {}, &file);
    ASSERT_TRUE(measured.reason) << row.formula;
    EXPECT_EQ(measured.reason->kind, row.kind) << row.formula;
    EXPECT_EQ(measured.reason->subject, row.subject) << row.formula;
    EXPECT_EQ(measured.reason->position, row.position) << row.formula;
  }
  for (const char *healthy :
       {"len([S],[N])", "switch(len([S],[N])>5,1)", "(angle1([S],[N],[A])-90)*2", "-len([S],[N])"}) {
    EXPECT_FALSE(analysis::evaluate_formula(healthy, tracing, {}, &file).reason) << healthy;
  }
}
