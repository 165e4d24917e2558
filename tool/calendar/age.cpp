#include "tool/calendar/age.h"

#include <algorithm>
#include <cstdint>
#include <tuple>

#include "tool/framework/text/cp932.h"

namespace calendar {
namespace {

using framework::cp932;

constexpr auto years_unit = cp932("歳");
constexpr auto months_unit_small_ke = cp932("ヶ月");
constexpr auto months_unit_hiragana = cp932("か月");

Date limited(Date date) {
  return {date.year, std::min(date.month, 12), std::min(date.day, 31)};
}

bool is_before(Date a, Date b) {
  return std::tie(a.year, a.month, a.day) < std::tie(b.year, b.month, b.day);
}

/// What is unknown in either date leaves both, so that only known parts are compared.
void drop_unknown_parts(Date &a, Date &b) {
  if (a.month == 0 || b.month == 0) {
    a.month = b.month = 1;
    a.day = b.day = 0;
  } else if (a.day == 0 || b.day == 0) {
    a.day = b.day = 0;
  }
}

}  // namespace

Age age(Date birth, Date reference) {
  birth = limited(birth);
  reference = limited(reference);
  const int years = std::max(reference.year - birth.year, 0);
  if (birth.month == 0 || reference.month == 0) return {years, 0};
  if (is_before(reference, birth)) return {0, 0};
  constexpr int units_in_month = 365;  // of 1/365 month: a day has 12 of them
  constexpr int units_in_day = 12;
  const int difference =
      (reference.month - birth.month) * units_in_month + (reference.day - birth.day) * units_in_day;
  if (difference >= 0) return {years, std::min(difference / units_in_month, 12)};
  return {std::max(years - 1, 0), std::clamp((difference + 12 * units_in_month) / units_in_month, 0, 12)};
}

short age_in_months(Date birth, Date reference) {
  birth = limited(birth);
  reference = limited(reference);
  if (birth.year == 0 || reference.year == 0) return 0;
  drop_unknown_parts(birth, reference);
  constexpr int units_in_month = 30400;  // of 1/30400 month: a day of 1/30.4 month has 1000 of them
  constexpr int units_in_day = 1000;
  constexpr int hundredth = 304;
  const std::int64_t months =
      (std::int64_t{reference.year} - birth.year) * 12 + reference.month - birth.month;
  const std::int64_t units =
      months * units_in_month + std::int64_t{reference.day - birth.day} * units_in_day + hundredth;
  return static_cast<short>(units / units_in_month);
}

std::string age_text(Age age, AgeStyle style) {
  const std::string years = std::to_string(age.years);
  const std::string months = std::to_string(age.months);
  const std::string tenths = years + '.' + std::to_string(std::int64_t{age.months} * 10 / 12);
  switch (style) {
    case AgeStyle::tenths:
      return tenths + 'y';
    case AgeStyle::japanese_months:
      return years + years_unit.c_str() + months + months_unit_small_ke.c_str();
    case AgeStyle::japanese_tenths:
      return tenths + years_unit.c_str();
    case AgeStyle::japanese_years:
      return years + years_unit.c_str();
    case AgeStyle::japanese_months_hiragana:
      return years + years_unit.c_str() + months + months_unit_hiragana.c_str();
    case AgeStyle::years_months:
      break;
  }
  return years + 'y' + months + 'm';
}

}  // namespace calendar
