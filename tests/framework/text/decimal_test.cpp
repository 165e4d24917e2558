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
    double value;
  };
  for (const Row &row : {Row{"", 0},
                         Row{"abc", 0},
                         Row{"1.5", 1.5},
                         Row{"  \t\n-1.5x", -1.5},
                         Row{"+2", 2},
                         Row{"+-2", 0},
                         Row{"- 2", 0},
                         Row{".5", 0.5},
                         Row{"5.", 5},
                         Row{".", 0},
                         Row{"-.5", -0.5},
                         Row{"1e3", 1000},
                         Row{"1E-2z", 0.01},
                         Row{"1e", 1},
                         Row{"1e+", 1},
                         Row{"1.2.3", 1.2},
                         Row{"0x10", 0},
                         Row{"inf", 0},
                         Row{"-infinity", 0},
                         Row{"nan", 0},
                         Row{"1,5", 1},
                         Row{"1e999", infinity},
                         Row{"-1e999", -infinity},
                         Row{"0.00001e400", infinity},
                         Row{"1e-999", 0},
                         Row{"0e999", 0},
                         Row{"\x82\x50", 0}})  // the last a full-width digit
    EXPECT_EQ(framework::decimal_value(row.text), row.value) << row.text;
  EXPECT_TRUE(std::signbit(framework::decimal_value("-0")));
  EXPECT_EQ(framework::decimal_value("0." + std::string(100000, '0') + "1e100001"), 1.0);
  EXPECT_EQ(framework::decimal_value(std::string(100000, '1')), infinity);
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

TEST(WholeNumber, readsAndSaturates) {
  struct Row {
    const char *text;
    int value;
  };
  for (const Row &row :
       {Row{"", 0}, Row{"x1", 0}, Row{" 12", 12}, Row{"-7abc", -7}, Row{"+7", 7}, Row{"--7", 0},
        Row{"1.9", 1}, Row{"2147483647", 2147483647}, Row{"2147483648", 2147483647},
        Row{"-2147483648", std::numeric_limits<int>::min()},
        Row{"-2147483649", std::numeric_limits<int>::min()}, Row{"99999999999999999999999", 2147483647},
        Row{"-99999999999999999999999", std::numeric_limits<int>::min()}})
    EXPECT_EQ(framework::whole_number(row.text), row.value) << row.text;
}

TEST(Fixed, isThePrintfText) {
  for (const double value : {0.0,         -0.0,
                             0.5,         -0.5,
                             1.5,         2.5,
                             0.05,        0.15,
                             0.125,       1.005,
                             -2.675,      1e-7,
                             4e-7,        5e-7,
                             0.9999,      0.99995,
                             9.9999999,   999.5,
                             999999.5,    1e11,
                             1e12,        1e15,
                             1e22,        -1e300,
                             5e-324,      1.7976931348623157e308,
                             999999999.0, infinity,
                             -infinity,   std::nan("")})
    for (int decimals = -1; decimals <= 12; ++decimals)
      EXPECT_EQ(framework::fixed(value, decimals), printed(value, decimals)) << value << " " << decimals;
  EXPECT_EQ(framework::fixed(5e-324, 340), printed(5e-324, 340));
  SCOPED_TRACE("seed 7");
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
  for (const Row &row :
       {Row{0.0, 0}, Row{0.999999, 0}, Row{-0.999999, 0}, Row{2.5, 2}, Row{-2.5, -2},
        Row{2147483646.9, 2147483646}, Row{2147483647.0, 2147483647}, Row{2147483648.0, 2147483647},
        Row{-2147483648.9, std::numeric_limits<int>::min()}, Row{-2147483647.9, -2147483647},
        Row{1e300, 2147483647}, Row{-infinity, std::numeric_limits<int>::min()}, Row{std::nan(""), 0}})
    EXPECT_EQ(framework::to_int(row.value), row.expected) << row.value;
}

}  // namespace
