#pragma once
// Japanese eras as an ini file lists them: numbers, names, codes and the days that each lasts. Texts are code
// page 932. docs/formats.md describes the file.

#include <optional>
#include <string>
#include <string_view>

#include "tool/calendar/stored_date.h"
#include "tool/framework/text/CStringArray.h"

namespace calendar {

inline constexpr std::string_view era_file_name = "Era.dat";
/// Keys of the file have at most four characters; a larger count is cut to this one.
inline constexpr int most_eras = 10000;

/// Elements of the arrays are reached by signed positions; one that does not exist raises
/// CInvalidArgException.
struct EraTable {
  int count = 0;        ///< as the file states it, at most `most_eras`; a negative one means no range either
  CStringArray names;   ///< by era number
  CStringArray codes;   ///< by era number
  CStringArray ranges;  ///< element 0: the time before the first era; k + 1: that of era k
};

EraTable parse_era_table(std::string_view text);
/// Empty when there is no such file; one that cannot be read counts as empty text.
std::optional<EraTable> read_era_table(const std::string &path);
/// The table's place: beside the running program, cut to what a buffer of 260 bytes holds.
std::string era_file_path();

/// The days of a range, both ends included, as "YYYY.MM.DD" text that is compared byte by byte. A range value
/// of no known shape has empty ends and holds no day.
struct EraRange {
  std::string_view start;
  std::string_view end;

  /// "YYYY.MM.DD-YYYY.MM.DD", "-YYYY.MM.DD" or "YYYY.MM.DD-"; the text must outlive the range.
  static EraRange of(std::string_view text);
  bool holds(std::string_view day) const { return start <= day && day <= end; }
  int first_year() const;  ///< 0 without a start
};

/// "YYYY.MM.DD"; an unknown month or day counts as 1.
std::string era_day_text(Date date);

struct EraYear {
  int era;   ///< -1: none, or the time before the first era
  int year;  ///< from 1; 0 where years are not counted
};
/// The first range that holds a day; year 0 when it begins with the year 1 (an open start) or there is none.
EraYear find_era(const CStringArray &ranges, Date date);
/// The year within the range at a position (position k + 1 is that of era k), whatever its end; 0 when it has
/// no start or an open one.
int year_in_range(const CStringArray &ranges, int position, int year);
/// At most 2500, whatever the era's end. Era -1 is the time before the first era.
int christian_year(const CStringArray &ranges, int era, int era_year);
/// Whether the day belongs to the era; `date.year` is the era year. Era -1 is the time before the first era.
bool is_in_era(const CStringArray &ranges, int era, Date date);

}  // namespace calendar
