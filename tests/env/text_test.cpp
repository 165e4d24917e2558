#include "tool/env/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(IsNumber, comparesTheTextWithItsOwnValue) {
  // "007" comes before "7.0", "1.23456789" before "1.234568"; but "1e5" after "100", "0x10" after "0.00",
  // "1.23456719" after "1.234567", "0.0000001" after "0.000000". Twenty nines become a 1 with zeros.
  for (const char *number :
       {"", "   ", "1.5", "1.5 \t", "-1", "007", ".", "-", "+1", " 1", "1..", "#", "1.23456789"})
    EXPECT_TRUE(env::is_number(number)) << number;
  for (const char *other : {"abc", "12a", "12:", "1e5", "0x10", "inf", "nan", "1.23456719", "0.0000001",
                            "99999999999999999999", "\x82\x50"})
    EXPECT_FALSE(env::is_number(other)) << other;
}

TEST(NumberText, keepsAtLeastTheDecimalsAskedFor) {
  struct Row {
    double value;
    int digits;
    const char *text;
  };
  const double infinity = std::numeric_limits<double>::infinity();
  constexpr int lowest = std::numeric_limits<int>::min(), highest = std::numeric_limits<int>::max();
  // 1.9999999 and -9.9999999: the fraction rounds up to one and carries
  for (const Row &row :
       {Row{3.14159, 2, "3.14159"}, Row{2.5, 2, "2.50"}, Row{-0.25, 1, "-0.25"}, Row{2.0, 0, "2."},
        Row{2.0, 6, "2.000000"}, Row{2.0, highest, "2.000000"}, Row{2.0, -1, "2."}, Row{2.0, lowest, "2."},
        Row{0.0, 1, "0.0"}, Row{1.23456789, 0, "1.234568"}, Row{1.9999999, 1, "2.0"},
        Row{-9.9999999, 2, "-10.00"}, Row{0.9999994, 0, "0.999999"}, Row{5000000000.25, 1, "5000000000.25"},
        Row{infinity, 2, "inf"}, Row{-infinity, 2, "-inf"}, Row{std::nan(""), 2, "nan"}})
    EXPECT_EQ(env::number_text(row.value, row.digits), row.text) << row.value << " " << row.digits;
}

TEST(PrintedWithoutArguments, interpretsPercentSigns) {
  struct Row {
    const char *format, *printed;
  };
  const Row rows[] = {{"", ""},         {"plain", "plain"}, {"50%% of", "50% of"}, {"100%", "100"},
                      {"%%%%", "%%"},   {"a%db", "ab"},     {"a%-08.3lfb", "ab"},  {"%s%n%p", ""},
                      {"%", ""},        {"%z", "z"},        {"%%d", "%d"},         {"%*.*f!", "!"},
                      {"%9999999d", ""}};
  for (const Row &row : rows)
    EXPECT_EQ(env::printed_without_arguments(row.format), row.printed) << row.format;
}

TEST(ReadLine, endsAtReturnZeroOrLimit) {
  using namespace std::string_view_literals;
  struct Row {
    std::string_view text;
    std::size_t most;
    std::string_view line;
    std::size_t consumed;
  };
  for (const Row &row :
       {Row{"abc\r\ndef", 511, "abc", 5}, Row{"def", 511, "def", 4}, Row{"\r\nx", 511, "", 2},
        Row{"", 511, "", 1}, Row{"abc\r\n", 2, "ab", 3}, Row{"abc\r\n", 3, "abc", 4},
        Row{"ab\0cd"sv, 511, "ab", 3}, Row{"a\nb\r\n", 511, "a\nb", 5}, Row{"abc", 0, "", 1}}) {
    const env::TextLine line = env::read_line(row.text, row.most);
    EXPECT_EQ(line.text, row.line) << row.text;
    EXPECT_EQ(line.consumed, row.consumed) << row.text;
  }
  const std::string endless(10000, 'x');
  EXPECT_EQ(env::read_line(endless, 10000).text.size(), 511u);
}

}  // namespace
