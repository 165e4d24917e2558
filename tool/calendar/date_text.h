#pragma once
// Stored dates as text for people, and back. Texts are code page 932.

#include <string>
#include <string_view>

namespace calendar {

enum class DateStyle {
  slashes,        ///< "2020/ 1/ 5"
  japanese,       ///< year, month and day with their Japanese units, "2020" and " 1" and " 5"
  era,            ///< by the system's Japanese calendar: era name, two-digit year, month, day
  month_first,    ///< " 1/ 5/2020"
  english_month,  ///< "January  5, 2020"
};

/// A stored date, filled up with "0" to 8 characters. Unknown months and days are shown as 0, in English as
/// no month name. The era style is empty for a date that does not exist or comes before the first era.
std::string date_text(std::string_view stored, DateStyle style);

/// "YYYYMMDD" of year, month and day between slashes. What is missing or no number is 0. In a text of fewer
/// than 10 characters a year below 100 has two digits: below 80 it is counted from 2000, else from 1900.
std::string stored_from_text(std::string_view text);

}  // namespace calendar
