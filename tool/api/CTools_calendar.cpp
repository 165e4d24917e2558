#include <string_view>

#include "tool/api/CTools.h"
#include "tool/calendar/age.h"
#include "tool/calendar/date_boxes.h"
#include "tool/calendar/date_text.h"
#include "tool/calendar/stored_date.h"

namespace {

std::string_view view_of(const char *text) {
  return text ? text : "";
}

calendar::Date date_or_today(const char *text) {
  return text ? calendar::read_date(text) : calendar::today();
}

void put(int value, int *target) {
  if (target) *target = value;
}

calendar::DateStyle date_style(unsigned int mode) {
  switch (mode) {
    case 1:
      return calendar::DateStyle::japanese;
    case 2:
      return calendar::DateStyle::era;
    case 3:
      return calendar::DateStyle::month_first;
    case 4:
      return calendar::DateStyle::english_month;
    default:
      return calendar::DateStyle::slashes;
  }
}

calendar::AgeStyle age_style(unsigned short mode) {
  switch (mode) {
    case 1:
      return calendar::AgeStyle::tenths;
    case 2:
      return calendar::AgeStyle::japanese_months;
    case 3:
      return calendar::AgeStyle::japanese_tenths;
    case 4:
      return calendar::AgeStyle::japanese_years;
    case 5:
      return calendar::AgeStyle::japanese_months_hiragana;
    default:
      return calendar::AgeStyle::years_months;
  }
}

}  // namespace

void CTools::GetToday(int *year, int *month, int *day) {
  const calendar::Date today = calendar::today();
  put(today.year, year);
  put(today.month, month);
  put(today.day, day);
}

CString CTools::MakeDate(const char *ymd, unsigned int mode, CJapEra *) {
  return CString(calendar::date_text(view_of(ymd), date_style(mode)));
}

CString CTools::MakeDateR(const char *text) {
  return CString(calendar::stored_from_text(view_of(text)));
}

CString CTools::MakeAge(int years, int months, unsigned short mode) {
  return CString(calendar::age_text({years, months}, age_style(mode)));
}

CString CTools::MakeAge(const char *birth, const char *reference, unsigned short mode) {
  const calendar::Age age = calendar::age(calendar::read_date(view_of(birth)), date_or_today(reference));
  return CString(calendar::age_text(age, age_style(mode)));
}

void CTools::CaclAge(const char *birth, const char *reference, int *years, int *months) {
  const calendar::Age age = calendar::age(calendar::read_date(view_of(birth)), date_or_today(reference));
  put(age.years, years);
  put(age.months, months);
}

short CTools::CalcAge(const char *birth, const char *reference) {
  return calendar::age_in_months(calendar::read_padded_date(view_of(birth), 8), date_or_today(reference));
}

void CTools::SetNengappi(CWnd *dialog, unsigned int yearBox, unsigned int monthBox, unsigned int dayBox,
                         const char *ymd) {
  if (dialog) calendar::show_date(*dialog, {yearBox, monthBox, dayBox}, view_of(ymd));
}

CString CTools::GetNengappi(CWnd *dialog, unsigned int yearBox, unsigned int monthBox, unsigned int dayBox) {
  return dialog ? CString(calendar::stored_from_boxes(*dialog, {yearBox, monthBox, dayBox})) : CString();
}

int CTools::MakeCompYmd(const char *ymd, const char *from, const char *to) {
  return calendar::is_in_period(view_of(ymd), view_of(from), view_of(to)) ? 1 : 0;
}
