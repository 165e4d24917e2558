#include "tool/calendar/era_table.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <map>

#include "tool/calendar/padding.h"
#include "tool/env/files.h"
#include "tool/env/settings.h"
#include "tool/framework/files/ini_document.h"
#include "tool/framework/files/read_file.h"
#include "tool/framework/text/copy_text.h"
#include "tool/framework/text/decimal.h"
#include "tool/framework/types.h"

namespace calendar {
namespace {

constexpr std::size_t longest_value = 100;
constexpr int latest_year = 2500;

constexpr std::size_t day_length = 10;  // YYYY.MM.DD
constexpr std::size_t open_length = day_length + 1;
constexpr std::size_t closed_length = 2 * day_length + 1;

int limited(std::int64_t value) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

int stated_count(const framework::IniDocument &document) {
  return std::min(framework::whole_number(document.find("MAIN", "n").value_or("")), most_eras);
}

/// The values of a section by key; each key is looked up once for every era that the file claims to have.
class Values {
 public:
  Values(const framework::IniDocument &document, std::string_view section) {
    for (const framework::IniEntry &entry : document.entries(section))
      values_.emplace(entry.key, entry.value);
  }
  /// Up to a zero character; empty when the key is missing.
  CString at(int key) const {
    const auto found = values_.find(std::to_string(key));
    if (found == values_.end()) return {};
    const std::string_view value = found->second.substr(0, longest_value);
    return CString(value.substr(0, value.find('\0')));
  }

 private:
  std::map<std::string_view, std::string_view> values_;
};

const CString &range_of_era(const CStringArray &ranges, int era) {
  return ranges.GetAt(std::ptrdiff_t{era} + 1);
}

std::int64_t christian_year_from(const EraRange &range, int era_year) {
  return std::int64_t{range.first_year()} + era_year - 1;
}

int year_from(const EraRange &range, int year) {
  const int first = range.first_year();
  return first < 2 ? 0 : limited(std::int64_t{year} - first + 1);
}

}  // namespace

EraTable parse_era_table(std::string_view text) {
  const framework::IniDocument document(text);
  const Values ranges(document, "ERA_RANGE"), names(document, "ERA_NAME"), codes(document, "ERA_CODE");
  EraTable table;
  table.count = stated_count(document);
  for (int era = -1; era < table.count; ++era) {
    table.ranges.Add(ranges.at(era));
    if (era < 0) continue;
    table.names.Add(names.at(era));
    table.codes.Add(codes.at(era));
  }
  return table;
}

std::optional<EraTable> read_era_table(const std::string &path) {
  if (!env::file_exists(path.c_str())) return std::nullopt;
  return parse_era_table(framework::read_whole_file(path.c_str()).value_or(std::string()));
}

std::string era_file_path() {
  std::array<char, MAX_PATH> path;
  framework::copy_text(env::application_folder(false) + std::string(era_file_name), path.data(), MAX_PATH);
  return path.data();
}

EraRange EraRange::of(std::string_view text) {
  if (text.size() == closed_length) return {text.substr(0, day_length), text.substr(day_length + 1)};
  if (text.size() != open_length) return {};
  if (text.front() == '-') return {"0001.01.01", text.substr(1)};
  return {text.substr(0, day_length), "9999.12.31"};
}

int EraRange::first_year() const {
  return framework::whole_number(start.substr(0, 4));
}

std::string era_day_text(Date date) {
  return zero_padded(date.year, 4) + '.' + zero_padded(date.month == 0 ? 1 : date.month, 2) + '.' +
         zero_padded(date.day == 0 ? 1 : date.day, 2);
}

EraYear find_era(const CStringArray &ranges, Date date) {
  const std::string day = era_day_text(date);
  for (int i = 0; i < ranges.GetSize(); ++i) {
    const EraRange range = EraRange::of(ranges.GetAt(i).view());
    if (range.holds(day)) return {i - 1, year_from(range, date.year)};
  }
  return {-1, 0};
}

int year_in_range(const CStringArray &ranges, int position, int year) {
  return year_from(EraRange::of(ranges.GetAt(position).view()), year);
}

int christian_year(const CStringArray &ranges, int era, int era_year) {
  const EraRange range = EraRange::of(range_of_era(ranges, era).view());
  return limited(std::min<std::int64_t>(christian_year_from(range, era_year), latest_year));
}

bool is_in_era(const CStringArray &ranges, int era, Date date) {
  const EraRange range = EraRange::of(range_of_era(ranges, era).view());
  date.year = limited(christian_year_from(range, date.year));
  return range.holds(era_day_text(date));
}

}  // namespace calendar
