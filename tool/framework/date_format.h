#pragma once
// The system's date formatter, in Japanese, with the Japanese era calendar as its alternative calendar.

#include "tool/framework/types.h"

using LCID = DWORD;

inline constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
inline constexpr DWORD DATE_USE_ALT_CALENDAR = 4;

/// A date as the system keeps it; the formatter reads year, month and day.
struct SYSTEMTIME {
  WORD wYear;
  WORD wMonth;
  WORD wDayOfWeek;
  WORD wDay;
  WORD wHour;
  WORD wMinute;
  WORD wSecond;
  WORD wMilliseconds;
};

/// Writes a date by a picture of code page 932: g or gg era name; y, yy the last two digits of the year
/// without and with a leading zero, yyyy the whole year; M, MM and d, dd month and day without and with a
/// leading zero; '...' text as it stands (a doubled quote is one quote), like every other character. With
/// DATE_USE_ALT_CALENDAR year and era are those of the Japanese calendar, whose first year is 1; otherwise
/// the era is the Christian one. The locale is Japanese whatever is asked for.
///
/// The bytes written, terminator included; with size 0 the bytes needed. 0, with nothing written, for a date
/// that does not exist, years outside 1601 to 30827, a day before the first era (23 October 1868), names of
/// months and days (MMM, ddd), an open quote and a buffer that is too small.
int GetDateFormatA(LCID locale, DWORD flags, const SYSTEMTIME *date, const char *picture, char *buffer,
                   int size);
