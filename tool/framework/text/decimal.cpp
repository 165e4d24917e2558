#include "tool/framework/text/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "tool/framework/text/ascii.h"

namespace framework {
namespace {

std::string_view without_leading_space(std::string_view text) {
  const auto first = std::find_if_not(text.begin(), text.end(), is_space);
  text.remove_prefix(static_cast<std::size_t>(first - text.begin()));
  return text;
}

/// Takes a sign off the front; true for '-'.
bool take_sign(std::string_view &text) {
  if (text.empty() || (text.front() != '+' && text.front() != '-')) return false;
  const bool negative = text.front() == '-';
  text.remove_prefix(1);
  return negative;
}

bool starts_with_decimal(std::string_view text) {
  if (text.empty()) return false;
  return is_digit(text[0]) || (text[0] == '.' && text.size() > 1 && is_digit(text[1]));
}

/// For a number that a double cannot hold: whether it is too large (not too small). The decimal place of its
/// first non-zero digit decides.
bool is_too_large(std::string_view number) {
  const std::size_t exponent_mark = number.find_first_of("eE");
  const std::string_view digits = number.substr(0, exponent_mark);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = digits.find_first_of("123456789");
  if (first == std::string_view::npos) return false;
  const auto place = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  const int exponent =
      exponent_mark == std::string_view::npos ? 0 : whole_number(number.substr(exponent_mark + 1));
  return place + exponent > 0;
}

/// The usual number: few digits and a point. Its digits and its power of ten are doubles without error, so
/// one division rounds it correctly. Empty for any other.
std::optional<double> short_decimal(std::string_view text) {
  constexpr std::size_t most_digits = 15;
  constexpr std::array<double, most_digits + 1> powers{1.0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                       1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  std::uint64_t digits = 0;
  std::size_t count = 0;
  std::size_t decimals = 0;
  bool after_point = false;
  for (const char c : text) {
    if (is_digit(c)) {
      digits = digits * 10 + static_cast<std::uint64_t>(c - '0');
      decimals += after_point ? 1 : 0;
      if (++count > most_digits) return std::nullopt;
    } else if (c == '.' && !after_point) {
      after_point = true;
    } else if (c == 'e' || c == 'E') {
      return std::nullopt;
    } else {
      break;
    }
  }
  return static_cast<double>(digits) / powers[decimals];
}

constexpr int most_decimals = 340;
constexpr std::array<double, 7> powers_of_ten{1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
constexpr double largest_scaled = 1e12;
/// Nearer to a tie than this the product's own rounding error could decide; far above it for scaled values
/// below 1e12, whose error stays under 1e-4.
constexpr double tie_margin = 1e-3;

/// The usual measurement: few digits, no tie in sight. Writes right to left; 0 when the case needs the exact
/// way.
std::size_t fixed_by_integer(double value, int decimals, std::array<char, 24> &buffer) {
  if (decimals >= static_cast<int>(powers_of_ten.size())) return 0;
  const double scaled = std::fabs(value) * powers_of_ten[static_cast<std::size_t>(decimals)];
  if (!(scaled < largest_scaled)) return 0;
  const auto whole = static_cast<std::uint64_t>(scaled);
  const double rest = scaled - static_cast<double>(whole);
  if (std::fabs(rest - 0.5) < tie_margin) return 0;

  std::uint64_t digits = whole + (rest > 0.5 ? 1U : 0U);
  std::size_t length = 0;
  auto put = [&](char c) { buffer[buffer.size() - ++length] = c; };
  const auto put_digit = [&] {
    put(static_cast<char>('0' + digits % 10));
    digits /= 10;
  };
  for (int i = 0; i < decimals; ++i) put_digit();
  if (decimals > 0) put('.');
  do put_digit();
  while (digits != 0);
  if (std::signbit(value)) put('-');
  return length;
}

}  // namespace

double decimal_value(std::string_view text) {
  text = without_leading_space(text);
  const bool negative = take_sign(text);
  if (!starts_with_decimal(text)) return 0.0;
  if (const std::optional<double> simple = short_decimal(text)) return negative ? -*simple : *simple;
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) {
    const std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.data()));
    value = is_too_large(number) ? std::numeric_limits<double>::infinity() : 0.0;
  }
  return negative ? -value : value;
}

int whole_number(std::string_view text) {
  text = without_leading_space(text);
  const bool negative = take_sign(text);
  const std::int64_t limit =
      std::int64_t{std::numeric_limits<int>::max()} + (negative ? 1 : 0);  // of the magnitude
  std::int64_t value = 0;
  for (const char c : text) {
    if (!is_digit(c)) break;
    value = std::min(value * 10 + (c - '0'), limit);
  }
  return static_cast<int>(negative ? -value : value);
}

std::string fixed(double value, int decimals) {
  decimals = decimals < 0 ? 6 : std::min(decimals, most_decimals);
  std::array<char, 24> small;
  if (const std::size_t length = fixed_by_integer(value, decimals, small))
    return {small.data() + small.size() - length, length};
  std::array<char, 312 + most_decimals> large;  // sign, 309 digits, point, decimals
  const auto written =
      std::to_chars(large.data(), large.data() + large.size(), value, std::chars_format::fixed, decimals);
  return {large.data(), written.ptr};
}

}  // namespace framework
