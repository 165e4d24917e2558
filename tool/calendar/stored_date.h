#pragma once
// Dates as they are stored: digits YYYYMMDD (YYYYMM where the day is not kept), an unknown month or day as
// "00". A field that is missing or no number reads as 0; digits count up to the first other character.

#include <string>
#include <string_view>

namespace calendar {

struct Date {
  int year;
  int month;  ///< 0: unknown
  int day;    ///< 0: unknown
};

/// The fields as they stand.
Date read_date(std::string_view text);

/// The fields of a text that is first filled up with "0" on the right to `length` characters: "2010" is 2010
/// without month and day, "20201" October 2020.
Date read_padded_date(std::string_view text, std::size_t length);

/// "YYYYMMDD".
std::string stored_text(Date date);
/// "YYYYMM".
std::string stored_month_text(Date date);

/// Today by the clock in use, from its two-digit year: 80 to 99 are 1980 to 1999, 00 to 79 are 2000 to 2079.
Date today();

/// A two-digit year below 80 belongs to the years from 2000 on, any other to those from 1900 on.
int full_year(int two_digit_year);

/// Whether the month of a date lies in a period of months, both ends included. An empty end of the period is
/// open; a period end without a month stands for the whole year; a date without a month is compared by its
/// year alone.
bool is_in_period(std::string_view date, std::string_view from, std::string_view to);

}  // namespace calendar
