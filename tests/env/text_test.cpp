#include "tool/env/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(IsNumber, comparesTheTextWithItsOwnValue) {
  struct Row {
    const char *text;
    bool number;
  };
  const Row rows[] = {
      {"", true},
      {"   ", true},
      {"1.5", true},
      {"1.5 \t", true},
      {"-1", true},
      {"007", true},  // "7.0"
      {".", true},    // "0"
      {"-", true},
      {"+1", true},
      {" 1", true},
      {"1..", true},
      {"#", true},  // comes before every digit
      {"abc", false},
      {"12a", false},
      {"12:", false},
      {"1e5", false},   // "100"
      {"0x10", false},  // "0.00"
      {"inf", false},
      {"nan", false},
      {"1.23456789", true},             // before "1.234568"
      {"1.23456719", false},            // after "1.234567"
      {"0.0000001", false},             // after "0.000000"
      {"99999999999999999999", false},  // its double is 100000000000000000000
      {"\x82\x50", false},
  };
  for (const Row &row : rows) EXPECT_EQ(env::is_number(row.text), row.number) << row.text;
}

TEST(NumberText, keepsAtLeastTheDecimalsAskedFor) {
  struct Row {
    double value;
    int digits;
    const char *text;
  };
  const double infinity = std::numeric_limits<double>::infinity();
  const Row rows[] = {
      {3.14159, 2, "3.14159"},
      {2.5, 2, "2.50"},
      {-0.25, 1, "-0.25"},
      {-0.5, 1, "-0.5"},
      {2.0, 0, "2."},
      {2.0, 6, "2.000000"},
      {2.0, 99, "2.000000"},
      {2.0, -1, "2."},
      {2.0, std::numeric_limits<int>::min(), "2."},
      {2.0, std::numeric_limits<int>::max(), "2.000000"},
      {0.0, 1, "0.0"},
      {1.23456789, 0, "1.234568"},
      {1.9999999, 1, "2.0"},  // the fraction rounds up to one and carries
      {-9.9999999, 2, "-10.00"},
      {0.9999994, 0, "0.999999"},
      {5000000000.25, 1, "5000000000.25"},
      {infinity, 2, "inf"},
      {-infinity, 2, "-inf"},
      {std::numeric_limits<double>::quiet_NaN(), 2, "nan"},
  };
  for (const Row &row : rows)
    EXPECT_EQ(env::number_text(row.value, row.digits), row.text) << row.value << " " << row.digits;
}

TEST(PrintedWithoutArguments, interpretsPercentSigns) {
  struct Row {
    const char *format;
    const char *printed;
  };
  const Row rows[] = {
      {"", ""},       {"plain", "plain"},   {"50%% of", "50% of"}, {"100%", "100"}, {"%%%%", "%%"},
      {"a%db", "ab"}, {"a%-08.3lfb", "ab"}, {"%s%n%p", ""},        {"%", ""},       {"%z", "z"},
      {"%%d", "%d"},  {"%*.*f!", "!"},      {"%9999999d", ""},
  };
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
  const Row rows[] = {
      {"abc\r\ndef", 511, "abc", 5},
      {"def", 511, "def", 4},
      {"\r\nx", 511, "", 2},
      {"", 511, "", 1},
      {"abc\r\n", 2, "ab", 3},
      {"abc\r\n", 3, "abc", 4},
      {"ab\0cd"sv, 511, "ab", 3},
      {"a\nb\r\n", 511, "a\nb", 5},
      {"abc", 0, "", 1},
  };
  for (const Row &row : rows) {
    const env::TextLine line = env::read_line(row.text, row.most);
    EXPECT_EQ(line.text, row.line) << row.text;
    EXPECT_EQ(line.consumed, row.consumed) << row.text;
  }
  const std::string endless(10000, 'x');
  EXPECT_EQ(env::read_line(endless, 10000).text.size(), 511u);
}

}  // namespace
