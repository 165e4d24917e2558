#pragma once
// Ages between a birth date and a reference date. Months above 12 count as 12, days above 31 as 31. All
// divisions are done in whole numbers, so equal days of different months always give whole months.

#include <string>

#include "tool/calendar/stored_date.h"

namespace calendar {

struct Age {
  int years;   ///< whole years, never negative
  int months;  ///< 0 to 12
};

/// Whole years and whole months, a month being 365/12 days. Where either month is unknown, the difference of
/// the years alone. A reference date before the birth date gives 0 years 0 months.
Age age(Date birth, Date reference);

/// Whole months, truncated toward zero, a month being 30.4 days and a hundredth of a month being added;
/// negative before the birth date. Without either year 0; without either month whole years; without either
/// day whole months. Kept to 16 bits.
short age_in_months(Date birth, Date reference);

enum class AgeStyle {
  years_months,              ///< "9y11m"
  tenths,                    ///< "9.9y": years and truncated tenths of a year
  japanese_months,           ///< years and months with Japanese units, the months' written with small ke
  japanese_tenths,           ///< as tenths with the Japanese unit
  japanese_years,            ///< years only
  japanese_months_hiragana,  ///< years and months, the months' unit written with hiragana ka
};

/// Code page 932.
std::string age_text(Age age, AgeStyle style);

}  // namespace calendar
