// The strict reader of the formula language: every fault with its position, and no fault in what the engine
// evaluates as written.

#include <gtest/gtest.h>

#include "apps/ceph/check_formula.h"

namespace {

using analysis::RecordKind;
using app::check::check_formula;
using app::check::FormulaPlace;
using app::check::FormulaReport;
using app::check::Severity;

std::string all_messages(const FormulaReport &report) {
  std::string text;
  for (const auto &problem : report.problems)
    text += std::to_string(problem.position) + ": " + problem.message + "\n";
  return text;
}

struct GoodRow {
  const char *formula;
  RecordKind kind = RecordKind::lateral;
  FormulaPlace place = FormulaPlace::item;
};

TEST(CheckFormula, AcceptsWhatTheLanguageHolds) {
  const GoodRow rows[] = {
      {""},
      {"len([S],[N])"},
      {" lenR( [S] , mid([N],[A]) ) :4"},
      {"angle4(9,[S],[N],cross([A],[B],[Po],[Or]),[Me]):10"},
      {"len(vertical([A],[B],[N]),AngleBisector([A],[N],[B]))"},
      {"len(AngleBisector([A],[N],[B],40),extension([A],[N],-2.5))"},
      {"lenR(EffectiveA(),[A])"},
      {"-len([S],[N])*2+(3-d01)/4"},
      {"(-len([S],[N]))*2"},
      {"case(\"mean (len) [x]\")+sdu(\"switch\")"},
      {"len([S],[N])>=3"},
      {"switch(len([S],[N])>1,(d01+2)*3==9);\"I, (a)\";d01+1;\"\":1"},
      {"Model([UCAW]):2", RecordKind::model},
      {"ModelRL([L6])", RecordKind::model},
      {"case(\"A\")*2|1", RecordKind::lateral, FormulaPlace::norm},
      {"sdu(\"A\")", RecordKind::lateral, FormulaPlace::diagnosis},
  };
  for (const GoodRow &row : rows)
    EXPECT_EQ(all_messages(check_formula(row.formula, row.kind, row.place)), "") << row.formula;
}

struct BadRow {
  const char *formula;
  std::size_t position;
  Severity severity;
  const char *message;  // a part of it
  RecordKind kind = RecordKind::lateral;
  FormulaPlace place = FormulaPlace::item;
};

constexpr auto error = Severity::error;
constexpr auto warning = Severity::warning;

const BadRow bad_rows[] = {
    // Brackets, parentheses, quotes
    {"len([S],[N]", 3, error, "never closed"},
    {"len([S],[N))", 8, error, "never closed"},
    {"len([S,[N],[A])", 5, error, "']' seems to be missing"},
    {"len([S],[N]))", 12, error, "closes nothing"},
    {"case(\"SNA)", 5, error, "never closed"},
    {"case(SNA)", 5, error, "double quotes"},
    {"len([],[N])", 5, error, "no name"},
    // Words
    {"lenn([S],[N])+1", 0, error, "did you mean \"len\"?"},
    {"len(midd([A],[B]),[C])", 4, error, "did you mean \"mid\"?"},
    {"mid([S],[N])", 0, error, "not a measurement"},
    {"len(len([S],[N]),[A])", 4, error, "not a point"},
    // Arguments
    {"1+len([S],[N],[A])", 2, error, "takes 2 points, not 3"},
    {"angle1([S],[N])", 0, error, "takes 3 points, not 2"},
    {"angle3([S],[N],[A])", 7, error, "one digit"},
    {"angle3(5,[S],[N],[A])", 7, warning, "two decimals"},
    {"len(mid([A]),[B])", 4, error, "takes 2 points, not 1"},
    {"len(mid([A],[B],3),[S])", 4, error, "takes no number"},
    {"len(extension([A],[N]),[S])", 4, error, "distance"},
    {"len(extension([A],[N],2.5.1),[S])", 22, error, "not a number"},
    {"len(extension([A],[N],1.23456789012345678901),[S])", 22, error, "19 characters"},
    {"len(AngleBisector([A],[N],[B],2.5),[S])", 30, warning, "fractional"},
    {"Model([UCAW])", 0, error, "casts"},
    // Arithmetic
    {"len([S],[N]) len([A],[B])", 13, error, "ends before"},
    {"len([S],[N])?", 12, error, "ends before"},
    {"len([S],[N]),2", 12, error, "comma"},
    {"2*-len([S],[N])", 2, error, "sign"},
    {"len([S],[N])*", 13, error, "operand is missing"},
    {"[S]+1", 0, error, "a point stands"},
    {"\"SNA\"+1", 0, error, "a text stands"},
    {"d00+1", 0, error, "from d01"},
    {"d05+len([S],[N])", 0, warning, "never set"},
    {"((len([S],[N])+1)*2)/3", 1, warning, "inside a group"},
    // Kind suffix
    {"len([S],[N]):x", 13, error, "not a whole number"},
    {"len([S],[N]):-1", 13, error, "not a whole number"},
    {"len([S],[N]):", 12, warning, "empty"},
    {"len([S],[N]):1:2", 14, error, "second ':'"},
    {"case(\"A:B\")", 7, error, "inside quotes"},
    {"case(\"A;B\")", 7, error, "inside quotes"},
    // Choices
    {"switch(1>2);1+1", 11, warning, "need 2 alternatives"},
    {"switch(1>2);1+1;2+2;3+3", 20, warning, "never chosen"},
    {"switch(1>2)*2;1+1;2+2", 11, error, "whole formula"},
    {"1+switch(1>2)", 2, error, "whole formula"},
    {"switch(1>2);\"a\";case(\"X\")", 16, error, "shown as text"},
    {"switch(1>2);\"a;\"b\"", 12, error, "never closed"},
    {"switch(1>2);1+1;lenn(", 16, error, "did you mean \"len\"?"},
    {"len([S],[N]);3", 12, warning, "only a switch"},
    // Endings by place
    {"case(\"A\")*2", 9, error, "separator", RecordKind::lateral, FormulaPlace::norm},
    {"x", 0, error, "neither", RecordKind::lateral, FormulaPlace::norm},
    {"case(\"A\"):1", 9, error, "ends before", RecordKind::lateral, FormulaPlace::diagnosis},
};

TEST(CheckFormula, ReportsTheFirstFaultAtItsPosition) {
  for (const BadRow &row : bad_rows) {
    const FormulaReport report = check_formula(row.formula, row.kind, row.place);
    ASSERT_FALSE(report.problems.empty()) << row.formula;
    EXPECT_EQ(report.problems.front().position, row.position) << row.formula << "\n" << all_messages(report);
    EXPECT_EQ(report.problems.front().severity, row.severity) << row.formula << "\n" << all_messages(report);
    EXPECT_NE(report.problems.front().message.find(row.message), std::string::npos) << row.formula << "\n"
                                                                                    << all_messages(report);
  }
}

TEST(CheckFormula, CountsTermsAndOperationsTogether) {
  const auto chain = [](int terms) {
    std::string formula = "len([S],[N])";
    for (int i = 1; i < terms; ++i) formula += "+len([S],[N])";
    return check_formula(formula, RecordKind::lateral, FormulaPlace::item);
  };
  EXPECT_TRUE(chain(50).problems.empty());  // 50 terms and 49 sums fill the table
  ASSERT_EQ(chain(51).problems.size(), 1U);
  EXPECT_EQ(chain(51).problems.front().severity, error);
}

TEST(CheckFormula, FindsPointsAndItemsOutsideQuotesOnly) {
  const std::string formula = "case(\"len([Q])\")+len([S],mid([N],[A]))-mean(\"SNA\")";
  const FormulaReport report = check_formula(formula, RecordKind::lateral, FormulaPlace::item);
  std::string found;
  for (const auto &use : report.points) found += formula.substr(use.position, use.name.size()) + " ";
  for (const auto &use : report.items)
    found += formula.substr(use.position, use.item.size()) + (use.wants_mean ? "+mean " : " ");
  EXPECT_EQ(found, "S N A len([Q]) SNA+mean ");
}

TEST(CheckFormula, DeepNestingEndsInAMessage) {
  for (const char *piece : {"(", "mid(", "switch(", "len(", "lenn("}) {
    std::string formula = "len(";
    for (int i = 0; i < 100000; ++i) formula += piece;
    const FormulaReport report = check_formula(formula, RecordKind::lateral, FormulaPlace::item);
    ASSERT_FALSE(report.problems.empty()) << piece;
    EXPECT_EQ(report.problems.back().severity, error) << piece;
  }
}

}  // namespace
