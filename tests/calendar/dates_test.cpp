#include <gtest/gtest.h>

#include "tests/support/fixed_clock.h"
#include "tool/api/CTools.h"
#include "tool/calendar/age.h"
#include "tool/framework/date_format.h"
#include "tool/framework/text/cp932.h"
#include "tool/framework/ui/CComboBox.h"

namespace {

std::string utf8(const CString &text) {
  return framework::utf8_from_cp932(text.view()).value_or("?");
}

TEST(Dates, todayHasATwoDigitYear) {
  struct Row {
    framework::CalendarDay day;
    int year;
  };
  const Row rows[] = {
      {{2079, 1, 5}, 2079}, {{2080, 1, 5}, 1980}, {{1999, 12, 31}, 1999}, {{2000, 2, 29}, 2000}};
  for (const Row &row : rows) {
    support::FixedClock clock(row.day);
    int year = 0, month = 0, day = 0;
    CTools::GetToday(&year, &month, &day);
    EXPECT_EQ(year, row.year);
    EXPECT_EQ(month, row.day.month);
    EXPECT_EQ(day, row.day.day);
  }
}

TEST(Dates, asText) {
  struct Row {
    const char *stored;
    unsigned mode;
    const char *text;
  };
  const Row rows[] = {{"20200105", 0, "2020/ 1/ 5"},
                      {"20200105", 1, "2020年 1月 5日"},
                      {"20200105", 2, "令和 02年1月5日"},
                      {"20200105", 3, " 1/ 5/2020"},
                      {"20200105", 4, "January  5, 2020"},
                      {"20200105", 5, "2020/ 1/ 5"},
                      {"20201231 and more", 4, "December 31, 2020"},
                      {"2020", 1, "2020年 0月 0日"},
                      {"2020", 4, "  0, 2020"},
                      {"20201", 0, "2020/10/ 0"},
                      {"2020ab05", 0, "2020/ 0/ 5"},
                      {"20201305", 4, "  5, 2020"},
                      {nullptr, 0, "   0/ 0/ 0"},
                      // the era calendar: each first day and the day before it
                      {"20190501", 2, "令和 01年5月1日"},
                      {"20190430", 2, "平成 31年4月30日"},
                      {"19890108", 2, "平成 01年1月8日"},
                      {"19890107", 2, "昭和 64年1月7日"},
                      {"19261225", 2, "昭和 01年12月25日"},
                      {"19261224", 2, "大正 15年12月24日"},
                      {"19120730", 2, "大正 01年7月30日"},
                      {"19120729", 2, "明治 45年7月29日"},
                      {"18681023", 2, "明治 01年10月23日"},
                      {"18681022", 2, ""},
                      {"20200229", 2, "令和 02年2月29日"},
                      {"20210229", 2, ""},
                      {"20210100", 2, ""},
                      {"-1200101", 2, ""}};
  for (const Row &row : rows)
    EXPECT_EQ(utf8(CTools::MakeDate(row.stored, row.mode, nullptr)), row.text) << row.mode;
}

TEST(Dates, backToStoredForm) {
  struct Row {
    const char *text;
    const char *stored;
  };
  const Row rows[] = {{"2020/01/05", "20200105"},
                      {"2020/ 1/ 5", "20200105"},
                      {"05/1/2", "20050102"},
                      {"85/1/2", "19850102"},
                      {"120/1/2", "01200102"},
                      {"99/12/31", "19991231"},
                      {"79/1/1", "20790101"},
                      {"0085/01/02", "00850102"},
                      {"2020", "20200000"},
                      {"2020-1-2", "20200000"},
                      {"2020/x/2", "20200000"},
                      {"2020 /1/2", "20200000"},
                      {"", "20000000"},
                      {"-5/1/2", "19950102"},
                      {"2020/1/2/3", "20200102"},
                      {nullptr, "20000000"},
                      {"99999999999/1/1", "21474836470101"}};
  for (const Row &row : rows) EXPECT_EQ(CTools::MakeDateR(row.text), row.stored) << row.stored;
}

TEST(Ages, inYearsAndMonths) {
  struct Row {
    const char *birth;
    const char *reference;
    int years, months;
  };
  const Row rows[] = {
      {"20000315", "20100314", 9, 11}, {"20000315", "20100315", 10, 0},   {"20000315", "19990101", 0, 0},
      {"20000115", "19991231", 0, 0},  {"20000315", "20000101", 0, 0},    {"20000315", "20000315", 0, 0},
      {"20000315", "20000414", 0, 0},  {"20000131", "20000201", 0, 0},    {"20000100", "20001231", 0, 12},
      {"20000015", "20100101", 10, 0}, {"20000315", "20100000", 10, 0},   {"20001399", "20011231", 1, 0},
      {"2000", "2010", 10, 0},         {"abcd0101", "20100101", 2010, 0}, {"", "", 0, 0}};
  for (const Row &row : rows) {
    int years = -7, months = -7;
    CTools::CaclAge(row.birth, row.reference, &years, &months);
    EXPECT_EQ(years, row.years) << row.birth << ' ' << row.reference;
    EXPECT_EQ(months, row.months) << row.birth << ' ' << row.reference;
  }
}

TEST(Ages, equalDaysGiveWholeMonths) {
  for (int birth = 1; birth <= 12; ++birth)
    for (int reference = 1; reference <= 12; ++reference)
      for (int day = 1; day <= 31; ++day) {
        const int months = 120 + reference - birth;
        const calendar::Age age = calendar::age({2000, birth, day}, {2010, reference, day});
        EXPECT_EQ(age.years * 12 + age.months, months);
        EXPECT_EQ(calendar::age_in_months({2000, birth, day}, {2010, reference, day}), months);
      }
}

TEST(Ages, inMonths) {
  struct Row {
    const char *birth;
    const char *reference;
    int months;
  };
  // By hand: 30 days are 0.98684 months, with the added hundredth 0.99684; 29 days back are -0.94395. From
  // 9999 to -999 are -131976 months, with the hundredth -131975, of which 16 bits keep -903.
  const Row rows[] = {{"20000315", "20100314", 119}, {"20000315", "20100315", 120},
                      {"20000315", "19990101", -14}, {"200003", "20100320", 120},
                      {"00000315", "20100315", 0},   {"20000315", "0000", 0},
                      {"20000001", "20101231", 120}, {"20000301", "20000331", 0},
                      {"20000330", "20000301", 0},   {"20000315", "20100300", 120},
                      {"20000315", "2010031", 119},  {"20001399", "20011231", 12},
                      {"9999", "-999", -903},        {"", "20100101", 0}};
  for (const Row &row : rows)
    EXPECT_EQ(CTools::CalcAge(row.birth, row.reference), row.months) << row.birth << ' ' << row.reference;
}

TEST(Ages, upToToday) {
  support::FixedClock clock({2010, 3, 14});
  int years = 0, months = 0;
  CTools::CaclAge("20000315", nullptr, &years, &months);
  EXPECT_EQ(years * 12 + months, 119);
  EXPECT_EQ(CTools::CalcAge("20000315", nullptr), 119);
  EXPECT_EQ(CTools::MakeAge("20000315", nullptr, 0), "9y11m");
}

TEST(Ages, asText) {
  struct Row {
    int years, months;
    unsigned short mode;
    const char *text;
  };
  const Row rows[] = {{9, 11, 0, "9y11m"},     {9, 11, 1, "9.9y"},
                      {9, 11, 2, "9歳11ヶ月"}, {9, 11, 3, "9.9歳"},
                      {9, 11, 4, "9歳"},       {9, 11, 5, "9歳11か月"},
                      {9, 11, 6, "9y11m"},     {5, 6, 1, "5.5y"},
                      {5, 12, 1, "5.10y"},     {0, 2147483647, 1, "0.1789569705y"}};
  for (const Row &row : rows) EXPECT_EQ(utf8(CTools::MakeAge(row.years, row.months, row.mode)), row.text);
}

TEST(Dates, inDialogBoxes) {
  struct Row {
    unsigned day_box;
    const char *stored;
    const char *year, *month, *day;
    const char *read;
  };
  const Row rows[] = {
      {3, "20200105", "2020", "1", "5", "20200105"},  {3, "20200000", "2020", "", "", "20200000"},
      {3, "202001", "was", "was", "was", "00000000"}, {3, "2020-1-5", "2020", "-1", "-5", "2020-1-5"},
      {0, "2020", "", "", "was", "000000"},           {0, "20200105", "2020", "1", "was", "202001"},
      {0, nullptr, "", "", "was", "000000"}};
  for (const Row &row : rows) {
    CWnd dialog;
    CComboBox year;
    ASSERT_TRUE(year.SubclassDlgItem(1, &dialog));
    for (const int box : {1, 2, 3}) dialog.SetDlgItemText(box, "was");
    CTools::SetNengappi(&dialog, 1, 2, row.day_box, row.stored);
    CString text[3];
    for (const int box : {1, 2, 3}) dialog.GetDlgItemText(box, text[box - 1]);
    EXPECT_EQ(text[0], row.year);
    EXPECT_EQ(text[1], row.month);
    EXPECT_EQ(text[2], row.day);
    EXPECT_EQ(CTools::GetNengappi(&dialog, 1, 2, row.day_box), row.read);
    year.GetWindowText(text[0]);
    EXPECT_EQ(text[0], row.year);
  }
  EXPECT_EQ(CTools::GetNengappi(nullptr, 1, 2, 3), "");
}

TEST(Dates, inAPeriod) {
  struct Row {
    const char *date, *from, *to;
    int inside;
  };
  const Row rows[] = {{"20050600", "200501", "200512", 1}, {"20050600", "200507", "", 0},
                      {"20050000", "2005", "2005", 1},     {"20050600", "", "", 1},
                      {"20050600", "200506", "200506", 1}, {"20050731", "200506", "200506", 0},
                      {"20050100", "2005", "200501", 1},   {"20051231", "2005", "2005", 1},
                      {"20060100", "2005", "2005", 0},     {"20041200", "2005", "2006", 0},
                      {"20059900", "200512", "200599", 1}, {"2006", "2005", "200512", 0},
                      {nullptr, nullptr, nullptr, 1}};
  for (const Row &row : rows)
    EXPECT_EQ(CTools::MakeCompYmd(row.date, row.from, row.to), row.inside) << row.date;
}

}  // namespace
