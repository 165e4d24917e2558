#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/analysis_item_folder.h"
#include "tests/support/exported_calls.h"
#include "tests/support/tracings.h"
#include "tool/analysis/evaluation.h"

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

double calc(std::string text) {
  tagPOINTLAT record = scene();
  double values[100] = {};
  int count = 0;
  return support::formula_of(&record, text, values, &count);
}

struct Row {
  const char *text;
  double expected;
};

}  // namespace

// One table, three ways in: the exported evaluator, the core, and an item of a file.
TEST(Formula, GivesTheSameNumberOnEveryRoute) {
  // Operands are unsigned, groups do not nest inside one operand (the nearest '(' to the left opens it), and
  // a name in brackets ends an operand. d01 is the first entry of the table: the length itself.
  const struct {
    double expected;
    std::vector<const char *> formulas;
  } rows[] = {{10,
               {"len([S],[N])", "lenR([S],[N])", "lenD([N],[A])", "len([S],[N])+d99", "foo(len([S],[N]))",
                "(1+2)+(3+4)"}},
              {-10, {"lenR([N],[S])", "lenD([A],[N])", "0-lenR([S],[N])"}},
              {20, {"d01+len([S],[N])"}},
              {-20, {"-lenR([S],[N])*2"}},
              {5, {"len(mid([S],[N]),[N])", "(len([S],[N])+len([N],[A]))/4", "5-"}},
              {90, {"angle1([S],[N],[A])", "angle2([S],[N],[N],[A])", "angle3(9,[S],[N],[A])"}},
              {-90, {"angle2([N],[A],[S],[N])", "angle4(0,[N],[A],[S],[N])"}},
              {180, {"angle1([S],[N],[Me])", "angle2([S],[N],[A],[B])", "angle2([S],[N],[Me],[S])"}},
              {0,
               {"angle1([N],[S],[Me])", "angle1([S],[S],[N])", "angle2([S],[N],[B],[A])",
                "len([S],[N])-len([S],[Me])/2"}},
              {14, {"2+3*4", "2*(3+4)"}},
              {3, {"10-4-3", "(10-4)-3"}},
              {21, {"(1+2)*(3+4)"}},
              {12, {"((1+2)+3)*4"}},
              {2.5, {"100/8/5"}},
              {-2, {"-5+3"}},
              {-3, {"2*-3"}},
              {7, {"1 + 2 * 3"}},
              {0.75, {"1.5*.5"}},
              {1,
               {"3>2", "2>=2", "2==2", "1+1=2", "switch(0.9,1)", "switch(1+1>3,(1+1)*2>3,1)",
                "switch(len([S],[N])>50,len([S],[N])>5)"}},
              {2, {"switch(0,0,7)", "switch(0,0)"}},
              {0,
               {"3<=2", "2=3", "42", "(42)", "", "len([S])", "len[S],[N]", "nonsense", "Model([UATW])",
                "case(x)", "2*[N]len([S],[N])"}}};
  std::vector<Row> all;
  std::string file = "Calc:\n";
  for (const auto &row : rows) {
    for (const char *formula : row.formulas) {
      file += "r" + std::to_string(all.size()) + "=" + formula + "\n";
      all.push_back({formula, row.expected});
    }
  }
  const support::AnalysisItemFolder folder;
  folder.write_lateral(file);
  tagPOINTLAT record = scene();
  const analysis::Tracing tracing(analysis::Mode::lateral, &record, nullptr, nullptr, nullptr, nullptr);
  for (std::size_t i = 0; i < all.size(); ++i) {
    SCOPED_TRACE(all[i].text);
    EXPECT_NEAR(calc(all[i].text), all[i].expected, near);
    EXPECT_NEAR(analysis::evaluate_formula(all[i].text, tracing, {}).value, all[i].expected, near);
    EXPECT_NEAR(support::item_of(&record, "r" + std::to_string(i)), all[i].expected, near);
  }
}

TEST(Formula, ConvertsAnglesWithTenDigitsOfPi) {
  EXPECT_DOUBLE_EQ(calc("angle2([S],[N],[N],[A])"), std::acos(0.0) / 3.141592654 * 180.0);
  EXPECT_DOUBLE_EQ(calc("angle1([S],[N],[A])"), 180.0 - std::acos(0.0) * 180.0 / 3.141592654);
  EXPECT_TRUE(std::isnan(calc("angle2([S],[S],[N],[A])")));
  EXPECT_TRUE(std::isinf(calc("1/0")));
}

TEST(Formula, BringsAnglesToThePrecisionOfTheirDigit) {
  // tan 81.3 degrees = 6.53503, tan 81.2 = 6.45961: the angle at N of an arm leaning so
  const struct {
    int rise;
    char digit;
    double expected;
  } rows[] = {{65350, '9', 81.5}, {64596, '9', 81.0}, {65350, '0', 81.0},
              {65350, '1', 81.3}, {65350, '2', 81.3}, {65350, 'x', 81.0}};
  for (const auto &row : rows) {
    tagPOINTLAT record = scene();
    record.pt[8 + analysis::lateral::A] = {200 - 10000, 100 + row.rise};
    std::string text = std::string("(") + row.digit + ",[S],[N],[A])+1";
    EXPECT_DOUBLE_EQ(support::term_of(0, 109, &record, text), row.expected) << row.digit;
    EXPECT_EQ(text, std::string(15, ' ') + "+1");
  }
}

TEST(Formula, AppendsToTheCallersTableAndBlanksTheText) {
  double values[100] = {0, 3};
  int count = 2;
  std::string text = "switch(d02>5,d02>2);\"low\";\"high\"";
  EXPECT_EQ(support::formula_of(nullptr, text, values, &count), 1.0);
  EXPECT_EQ(count, 5);
  EXPECT_EQ(std::vector<double>(values + 2, values + 5), (std::vector<double>{0, 1, 1}));
  EXPECT_EQ(text, std::string(20, ' ') + "\"low\";\"high\"");
}

TEST(Formula, EvaluatesAGroupAlone) {
  const struct {
    const char *text;
    double expected;
    const char *left;
  } rows[] = {{"(1+2)*3", 3, "     *3"}, {"(d01)", 8, "     "}, {"(7)", 7, "   "}, {"1+2;3", 3, "    3"}};
  for (const auto &row : rows) {
    double values[100] = {8};
    int count = 1;
    std::string text = row.text;
    EXPECT_EQ(support::formula_of(nullptr, text, values, &count, 0), row.expected) << row.text;
    EXPECT_EQ(text, row.left);
  }
}

TEST(Formula, NeverWritesPastTheTable) {
  std::string sum = "1";
  for (int i = 0; i < 300; ++i) sum += "+1";
  double values[101] = {};
  values[100] = 77;
  int count = 0;
  EXPECT_EQ(support::formula_of(nullptr, sum, values, &count), 100.0) << "99 additions fit: 1 + 99";
  EXPECT_EQ(count, 99);
  EXPECT_EQ(values[99], 0);
  for (int lie : {-5, 1000}) {
    std::string text = "1+1";
    support::formula_of(nullptr, text, values, &lie);
  }
  EXPECT_EQ(values[100], 77);
}

TEST(Formula, ReadsTermsWithTheirKinds) {
  tagPOINTLAT record = scene();
  tagPOINTMO cast{};
  cast.scale = 0.1;
  cast.ex.upperExtra[0][0] = 31.5;  // typed length
  cast.ex.lowerExtra[2][0] = 30.25;
  const struct {
    unsigned kind;
    const char *text;
    double expected;
    int mode = 0;
  } rows[] = {{101, "([S],[N])", 10},
              {102, "([N],[S])", -10},
              {103, "([A],[N])", -10},
              {104, "([S],[N],[A])", 90},
              {105, "([N],[A],[S],[N])", -90},
              {110, "(1,[N],[A],[S],[N])", -90},
              {108, "([UATW])", 0},
              {106, "([S],[N])", 0},
              {101, "[S],[N]", 0},
              {101, "([nobody],[N])", std::hypot(20.0, 10.0)},  // an unresolved point is (0, 0)
              {108, "([UCAL])", 31.5, 2},
              {108, "([LBAL])", 30.25, 2},
              {108, "([PLTU])", -1, 2},
              {108, "([UCAW])", 999999999, 2},
              {108, "([XXXX])", 999999999, 2}};
  for (const auto &row : rows) {
    std::string text = row.text;
    void *chosen = row.mode == 2 ? static_cast<void *>(&cast) : &record;
    EXPECT_NEAR(support::term_of(row.mode, row.kind, chosen, text), row.expected, near) << row.text;
    const bool is_term = row.kind != 106 && row.text[0] == '(';
    EXPECT_EQ(text, is_term ? std::string(text.size(), ' ') : row.text);
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
  const Row rows[] = {{"twice", 21}, {"dev", 4},     {"m", 8},        {"s", 0.5},  {"h", 1},
                      {"no", 1},     {"second", 20}, {"t", 1},        {"text", 0}, {"head", 0},
                      {"gone", 0},   {"hidden", 20}, {"\x95\x5C", 10}};
  for (const Row &row : rows)
    EXPECT_NEAR(support::item_of(&record, row.text), row.expected, near) << row.text;
}

TEST(ItemReferences, FillTheOutputsOfASelector) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral("Calc:\nx=len([S],[N]):1\ny=len([S],[N]):1\nMean:\nx=9\nSD:\nx=2\ny=2\n");
  tagPOINTLAT record = scene();
  double mean = -7;
  double sd = -7;
  EXPECT_EQ(support::item_of(&record, "x", 2, &mean, &sd), 9);
  EXPECT_EQ(mean, 9);
  EXPECT_EQ(sd, -7);
  EXPECT_EQ(support::item_of(&record, "x", 3, &mean, &sd), 2);
  EXPECT_EQ(sd, 2);
  EXPECT_EQ(support::item_of(&record, "x", 1), 0.5);
  EXPECT_EQ(support::item_of(&record, "y", 1, &mean, &sd), 5) << "a missing mean counts 0";
  EXPECT_EQ(mean, 999999999.0) << "and is reported as missing";
}

TEST(ItemReferences, ConsumeTheirText) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral("Calc:\nx=len([S],[N])\n");
  tagPOINTLAT record = scene();
  const auto reference = [&](std::string &text) {
    return CCephCalc::Calc_SDU(0, 0, 0, text.data(), &record, nullptr, nullptr, nullptr, nullptr, 1, 0, 1.1);
  };
  std::string text = "(\"x\")+(1)";
  EXPECT_EQ(reference(text), 10);
  EXPECT_EQ(text, "     +(1)");
  std::string unquoted = "(x)";
  EXPECT_EQ(reference(unquoted), 0);
}

TEST(ItemReferences, CutCircles) {
  const support::AnalysisItemFolder folder;
  folder.write_lateral(
      "Calc:\nself=case(\"self\")+1\na=case(\"b\")+1\nb=case(\"a\")+2\nn=len([S],[N])\nm=mean(\"m\")+3\n"
      "Mean:\nn=case(\"n\")*2|1\nself=mean(\"self\")+5|0\nm=7\n");
  tagPOINTLAT record = scene();
  for (const Row &row : {Row{"self", 1}, {"a", 3}, {"b", 3}, {"m", 3}})
    EXPECT_EQ(support::item_of(&record, row.text), row.expected) << row.text;
  EXPECT_NEAR(support::item_of(&record, "n", 2), 20, near) << "an item's norm may rest on its value";
  EXPECT_EQ(support::item_of(&record, "self", 2), 5);
  // whatever row is shown first, every row gets the number it has on its own
  const support::Rows rows = support::table_of(&record);
  EXPECT_EQ(rows[1][3], "3.0");
  EXPECT_EQ(rows[2][3], "3.0");
}

TEST(FormulaReasons, NameWhatIsWrong) {
  tagPOINTLAT record = scene();
  const analysis::Tracing tracing(analysis::Mode::lateral, &record, nullptr, nullptr, nullptr, nullptr);
  const analysis::Analysis file(
      analysis::DefinitionFile("Calc:\r\nx=len([S],[Xi])\r\nself=case(\"self\")+0\r\n"),
      analysis::Mode::lateral);
  using Kind = analysis::Reason::Kind;
  struct Row {
    const char *formula;
    Kind kind;
    const char *subject;
    std::size_t position = 0;
  };
  for (const Row &row :
       {Row{"len([S],[Xi])", Kind::unplaced_point, "Xi"}, Row{"len([S],[Zz])", Kind::unknown_point, "Zz"},
        Row{"case(\"x\")+1", Kind::unplaced_point, "Xi"}, Row{"case(\"y\")+1", Kind::unknown_item, "y"},
        Row{"case(\"self\")+1", Kind::cycle, "self"}, Row{"mean(\"x\")+1", Kind::no_norm, "x"},
        Row{"len([S],[N])+foo", Kind::malformed_formula, "len([S],[N])+foo", 13},
        Row{"2+len([S])", Kind::malformed_formula, "2+len([S])", 2},
        Row{"(2+3", Kind::malformed_formula, "(2+3", 4}, Row{"5", Kind::malformed_formula, "5"}}) {
    const analysis::Measured measured = analysis::evaluate_formula(row.formula, tracing, {}, &file);
    ASSERT_TRUE(measured.reason) << row.formula;
    EXPECT_EQ(measured.reason->kind, row.kind) << row.formula;
    EXPECT_EQ(measured.reason->subject, row.subject) << row.formula;
    EXPECT_EQ(measured.reason->position, row.position) << row.formula;
  }
  for (const char *healthy :
       {"len([S],[N])", "switch(len([S],[N])>5,1)", "(angle1([S],[N],[A])-90)*2", "-len([S],[N])"})
    EXPECT_FALSE(analysis::evaluate_formula(healthy, tracing, {}, &file).reason) << healthy;
}
