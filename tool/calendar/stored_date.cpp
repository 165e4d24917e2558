#include "tool/calendar/stored_date.h"

#include <algorithm>

#include "tool/calendar/padding.h"
#include "tool/framework/clock.h"
#include "tool/framework/text/decimal.h"

namespace calendar {
namespace {

constexpr int months_in_year = 12;

int number_at(std::string_view text, std::size_t position, std::size_t length) {
  return position < text.size() ? framework::whole_number(text.substr(position, length)) : 0;
}

}  // namespace

Date read_date(std::string_view text) {
  return {number_at(text, 0, 4), number_at(text, 4, 2), number_at(text, 6, 2)};
}

Date read_padded_date(std::string_view text, std::size_t length) {
  std::string padded(text);
  if (padded.size() < length) padded.resize(length, '0');
  return read_date(padded);
}

std::string stored_text(Date date) {
  return stored_month_text(date) + zero_padded(date.day, 2);
}

std::string stored_month_text(Date date) {
  return zero_padded(date.year, 4) + zero_padded(date.month, 2);
}

Date today() {
  const std::string text = framework::current_date_text();  // MM/DD/YY
  return {full_year(number_at(text, 6, 2)), number_at(text, 0, 2), number_at(text, 3, 2)};
}

int full_year(int two_digit_year) {
  return two_digit_year < 80 ? 2000 + two_digit_year : 1900 + two_digit_year;
}

bool is_in_period(std::string_view date, std::string_view from, std::string_view to) {
  // 13 places a year: month 0 of the period's start comes before January.
  const auto place = [](int year, int month) { return year * 13 + std::min(month, months_in_year); };
  const Date tested = read_padded_date(date, 8);
  const Date first = read_padded_date(from, 6);
  Date last = read_padded_date(to, 6);
  if (last.year == 0) last.year = 9999;
  if (last.month == 0) last.month = months_in_year;
  if (tested.month == 0) return first.year <= tested.year && tested.year <= last.year;
  const int month = place(tested.year, tested.month);
  return place(first.year, first.month) <= month && month <= place(last.year, last.month);
}

}  // namespace calendar
