#include "tool/framework/text/decimal.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

#include "tool/framework/text/numbers.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

std::string printed(double value, int decimals) {
  std::array<char, 800> buffer;
  std::snprintf(buffer.data(), buffer.size(), "%.*f", decimals, value);
  return buffer.data();
}

TEST(DecimalValue, readsDecimalNumbersOnly) {
  struct Row {
    const char *text;
    double value = 0.0;
  };
  const Row rows[] = {
      {"", 0},
      {"abc", 0},
      {"1.5", 1.5},
      {"  \t\n-1.5x", -1.5},
      {"+2", 2},
      {"+-2", 0},
      {"- 2", 0},
      {".5", 0.5},
      {"5.", 5},
      {".", 0},
      {"-.5", -0.5},
      {"1e3", 1000},
      {"1E-2z", 0.01},
      {"1e", 1},
      {"1e+", 1},
      {"1.2.3", 1.2},
      {"0x10", 0},
      {"inf", 0},
      {"-infinity", 0},
      {"nan", 0},
      {"1,5", 1},
      {"1e999", infinity},
      {"-1e999", -infinity},
      {"0.00001e400", infinity},
      {"1e-999", 0},
      {"0e999", 0},
      {"\x82\x50", 0},  // a full-width digit
  };
  for (const Row &row : rows) EXPECT_EQ(framework::decimal_value(row.text), row.value) << row.text;
  EXPECT_TRUE(std::signbit(framework::decimal_value("-0")));
}

TEST(DecimalValue, agreesWithTheCLibraryOnPrintedNumbers) {
  std::mt19937_64 random(20240601);
  for (int i = 0; i < 20000; ++i) {
    const std::uint64_t bits = random();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value)) continue;
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), i % 2 ? "%.17g" : "%.6e", value);
    ASSERT_EQ(framework::decimal_value(text.data()), std::strtod(text.data(), nullptr)) << text.data();
  }
}

TEST(DecimalValue, readsAHundredThousandDigits) {
  EXPECT_EQ(framework::decimal_value("0." + std::string(100000, '0') + "1e100001"), 1.0);
  EXPECT_EQ(framework::decimal_value(std::string(100000, '1')), infinity);
}

TEST(WholeNumber, readsAndSaturates) {
  struct Row {
    const char *text;
    int value;
  };
  const Row rows[] = {
      {"", 0},
      {"x1", 0},
      {" 12", 12},
      {"-7abc", -7},
      {"+7", 7},
      {"--7", 0},
      {"1.9", 1},
      {"2147483647", 2147483647},
      {"2147483648", 2147483647},
      {"-2147483648", std::numeric_limits<int>::min()},
      {"-2147483649", std::numeric_limits<int>::min()},
      {"99999999999999999999999", 2147483647},
      {"-99999999999999999999999", std::numeric_limits<int>::min()},
  };
  for (const Row &row : rows) EXPECT_EQ(framework::whole_number(row.text), row.value) << row.text;
}

TEST(Fixed, isThePrintfTextOfChosenValues) {
  const double values[] = {0.0,         -0.0,     0.5,
                           -0.5,        1.5,      2.5,
                           0.05,        0.15,     0.25,
                           0.125,       0.375,    1.005,
                           2.675,       -2.675,   1e-7,
                           -1e-7,       4e-7,     5e-7,
                           0.9999,      0.99995,  9.9999999,
                           999.5,       123456.5, 999999.5,
                           0.999999,    1e11,     1e12,
                           1e15,        1e22,     1e300,
                           -1e300,      5e-324,   1.7976931348623157e308,
                           999999999.0, infinity, -infinity,
                           std::nan("")};
  for (const double value : values)
    for (int decimals = -1; decimals <= 12; ++decimals)
      EXPECT_EQ(framework::fixed(value, decimals), printed(value, decimals)) << value << " " << decimals;
  EXPECT_EQ(framework::fixed(5e-324, 340), printed(5e-324, 340));
}

TEST(Fixed, isThePrintfTextOfRandomAndTiedValues) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> measurement(-500.0, 500.0);
  std::uniform_real_distribution<double> exponent(-30.0, 30.0);
  for (int i = 0; i < 100000; ++i) {
    const int decimals = i % 8;
    const double plain = measurement(random);
    const double wide = std::ldexp(plain, static_cast<int>(exponent(random)));
    const double near_tie =
        (std::floor(plain) + 0.5) / std::pow(10.0, decimals) * (i % 3 == 0 ? 1.0 : 1.0 + 1e-15);
    for (const double value : {plain, wide, near_tie})
      ASSERT_EQ(framework::fixed(value, decimals), printed(value, decimals)) << value << " " << decimals;
  }
}

TEST(ToInt, truncatesTowardZeroAndSaturates) {
  struct Row {
    double value = 0.0;
    int expected;
  };
  const Row rows[] = {
      {0.0, 0},
      {0.999999, 0},
      {-0.999999, 0},
      {2.5, 2},
      {-2.5, -2},
      {2147483646.9, 2147483646},
      {2147483647.0, 2147483647},
      {2147483648.0, 2147483647},
      {-2147483648.9, std::numeric_limits<int>::min()},
      {-2147483647.9, -2147483647},
      {1e300, 2147483647},
      {-infinity, std::numeric_limits<int>::min()},
      {std::nan(""), 0},
  };
  for (const Row &row : rows) EXPECT_EQ(framework::to_int(row.value), row.expected) << row.value;
}

}  // namespace
