#include "tool/calendar/date_text.h"

#include <algorithm>
#include <array>

#include "tool/calendar/padding.h"
#include "tool/calendar/stored_date.h"
#include "tool/framework/date_format.h"
#include "tool/framework/text/ascii.h"
#include "tool/framework/text/cp932.h"
#include "tool/framework/text/decimal.h"

namespace calendar {
namespace {

using framework::cp932;

constexpr auto year_unit = cp932("年");
constexpr auto month_unit = cp932("月");
constexpr auto day_unit = cp932("日");
constexpr auto era_picture = cp932("gg yy'年'M'月'd'日'");

std::string english_month_name(int month) {
  constexpr std::array<std::string_view, 12> names{"January",   "February", "March",    "April",
                                                   "May",       "June",     "July",     "August",
                                                   "September", "October",  "November", "December"};
  return month >= 1 && month <= 12 ? std::string(names[static_cast<std::size_t>(month - 1)]) : std::string();
}

std::string era_text(Date date) {
  SYSTEMTIME record{};
  record.wYear = static_cast<WORD>(date.year);
  record.wMonth = static_cast<WORD>(date.month);
  record.wDay = static_cast<WORD>(date.day);
  std::array<char, 32> text{};
  GetDateFormatA(LOCALE_USER_DEFAULT, DATE_USE_ALT_CALENDAR, &record, era_picture, text.data(),
                 static_cast<int>(text.size()));
  return text.data();
}

/// Takes a number with blanks and a sign before it off the text; 0, with `more` false, when there is none.
int take_number(std::string_view &text, bool &more) {
  std::size_t end = 0;
  while (end < text.size() && framework::is_space(text[end])) ++end;
  if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
  const std::size_t digits = end;
  while (end < text.size() && framework::is_digit(text[end])) ++end;
  more = end > digits;
  const int value = more ? framework::whole_number(text.substr(0, end)) : 0;
  text.remove_prefix(end);
  return value;
}

/// Reading stops where a number or a slash is missing.
Date slashed_date(std::string_view text) {
  std::array<int, 3> fields{};
  bool more = true;
  for (int &field : fields) {
    field = take_number(text, more);
    if (!more || text.empty() || text.front() != '/') break;
    text.remove_prefix(1);
  }
  return {fields[0], fields[1], fields[2]};
}

}  // namespace

std::string date_text(std::string_view stored, DateStyle style) {
  const Date date = read_padded_date(stored, 8);
  const std::string year = blank_padded(date.year, 4);
  const std::string month = blank_padded(date.month, 2);
  const std::string day = blank_padded(date.day, 2);
  switch (style) {
    case DateStyle::japanese:
      return year + year_unit.c_str() + month + month_unit.c_str() + day + day_unit.c_str();
    case DateStyle::era:
      return era_text(date);
    case DateStyle::month_first:
      return month + '/' + day + '/' + year;
    case DateStyle::english_month:
      return english_month_name(date.month) + ' ' + day + ", " + year;
    case DateStyle::slashes:
      break;
  }
  return year + '/' + month + '/' + day;
}

std::string stored_from_text(std::string_view text) {
  Date date = slashed_date(text);
  if (text.size() < 10 && date.year < 100) date.year = full_year(date.year);
  return stored_text(date);
}

}  // namespace calendar
