#include "tool/env/text.h"

#include <algorithm>
#include <cmath>

#include "tool/framework/text/ascii.h"
#include "tool/framework/text/decimal.h"

namespace env {
namespace {

constexpr std::string_view flags = "-+ #0";
constexpr std::string_view size_prefixes = "hlLIw";
constexpr std::string_view conversions = "diouxXeEfFgGaAcCsSpn";

/// Length of the conversion after a '%' (flags, width, precision, size, letter); 0 when it is none.
std::size_t conversion_length(std::string_view text) {
  std::size_t i = 0;
  const auto skip = [&](auto belongs) {
    while (i < text.size() && belongs(text[i])) ++i;
  };
  const auto one_of = [](std::string_view set) {
    return [set](char c) { return set.find(c) != std::string_view::npos; };
  };
  skip(one_of(flags));
  skip([](char c) { return framework::is_digit(c) || c == '*' || c == '.'; });
  skip(one_of(size_prefixes));
  return i < text.size() && one_of(conversions)(text[i]) ? i + 1 : 0;
}

}  // namespace

std::string_view without_trailing_blanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string doubled_ampersands(std::string_view text) {
  std::string result;
  for (const char c : text) result.append(c == '&' ? 2 : 1, c);
  return result;
}

std::string printed_without_arguments(std::string_view format) {
  std::string result;
  for (std::size_t i = 0; i < format.size(); ++i) {
    if (format[i] != '%') {
      result += format[i];
    } else if (i + 1 < format.size() && format[i + 1] == '%') {
      result += '%';
      ++i;
    } else {
      i += conversion_length(format.substr(i + 1));
    }
  }
  return result;
}

TextLine read_line(std::string_view text, std::size_t most) {
  const std::string_view window = text.substr(0, std::min(most, longest_line));
  const std::size_t length = std::min(window.find_first_of(std::string_view("\r\0", 2)), window.size());
  const bool at_return = length < window.size() && window[length] == '\r';
  return {window.substr(0, length), length + (at_return ? 2 : 1)};
}

bool is_plainly_printed(std::string_view text) {
  constexpr std::ptrdiff_t most_digits = 9;
  constexpr std::ptrdiff_t printed_decimals = 6;
  const char *at = text.data();
  const char *const end = at + text.size();
  const auto skip_digits = [&] {
    const char *const begin = at;
    while (at != end && framework::is_digit(*at)) ++at;
    return at - begin;
  };
  if (at != end && *at == '-') ++at;
  const char first = at != end ? *at : '\0';
  const std::ptrdiff_t digits = skip_digits();
  if (digits == 0 || digits > most_digits || (first == '0' && digits > 1)) return false;
  if (at == end) return true;
  if (*at++ != '.') return false;
  return skip_digits() <= printed_decimals && at == end;
}

bool is_number(std::string_view text) {
  while (!text.empty() && framework::is_space(text.back())) text.remove_suffix(1);
  if (text.empty() || is_plainly_printed(text)) return true;
  const std::string printed = framework::fixed(framework::decimal_value(text), 6);
  return text <= std::string_view(printed).substr(0, text.size());  // compares as unsigned bytes
}

std::string number_text(double value, int digits) {
  if (!std::isfinite(value)) return framework::fixed(value, 0);
  double whole = std::trunc(std::fabs(value));
  std::string fraction = framework::fixed(std::fabs(value) - whole, 6);
  if (fraction.front() == '1') {  // rounded up to one
    whole += 1.0;
    fraction.front() = '0';
  }
  const std::size_t shortest = static_cast<std::size_t>(std::clamp(digits, -2, 6) + 2);
  while (fraction.size() > shortest && fraction.back() == '0') fraction.pop_back();
  return (value < 0 ? "-" : "") + framework::fixed(whole, 0) + fraction.substr(1);
}

}  // namespace env
