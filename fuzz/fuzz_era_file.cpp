// Any bytes as an era file: every question about dates inside, between and beyond its ranges has an answer
// that agrees with the others.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string_view>

#include "tool/calendar/era_table.h"

namespace {

/// What holds for every file, whatever its bytes.
void require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

void check_shape(const calendar::EraTable &table) {
  const int eras = table.count > 0 ? table.count : 0;
  require(table.count <= calendar::most_eras);
  require(table.names.GetSize() == eras && table.codes.GetSize() == eras);
  require(table.ranges.GetSize() == (table.count < 0 ? 0 : eras + 1));
}

void check_date(const calendar::EraTable &table, calendar::Date date) {
  const calendar::EraYear found = calendar::find_era(table.ranges, date);
  require(found.era >= -1 && found.era < table.ranges.GetSize() - 1 + (table.ranges.IsEmpty() ? 1 : 0));
  if (found.year == 0) {
    return;
  }
  // The way back leads to the same day.
  require(calendar::year_in_range(table.ranges, found.era + 1, date.year) == found.year);
  require(calendar::is_in_era(table.ranges, found.era, {found.year, date.month, date.day}));
  const int year = calendar::christian_year(table.ranges, found.era, found.year);
  require(year == (date.year > 2500 ? 2500 : date.year));
}

void check_era(const calendar::EraTable &table, int position, int year) {
  static_cast<void>(calendar::year_in_range(table.ranges, position, year));
  static_cast<void>(calendar::christian_year(table.ranges, position - 1, year));
  static_cast<void>(calendar::is_in_era(table.ranges, position - 1, {year, 2, 30}));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  constexpr int largest = std::numeric_limits<int>::max();
  constexpr int smallest = std::numeric_limits<int>::min();
  const calendar::EraTable table = calendar::parse_era_table({reinterpret_cast<const char *>(data), size});
  check_shape(table);
  constexpr std::array<calendar::Date, 8> dates{{{1868, 10, 22},
                                                 {1912, 7, 30},
                                                 {1989, 1, 7},
                                                 {2019, 0, 0},
                                                 {9999, 12, 31},
                                                 {0, 0, 0},
                                                 {largest, largest, largest},
                                                 {smallest + 20000, smallest, smallest}}};
  for (const calendar::Date &date : dates) {
    check_date(table, date);
  }
  for (int position = 0; position < table.ranges.GetSize() && position < 20; ++position) {
    for (const int year : {smallest, 0, 1, largest}) {
      check_era(table, position, year);
    }
  }
  return 0;
}
