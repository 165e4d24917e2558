#include "apps/ceph/date_argument.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <vector>

#include "apps/ceph/exit_code.h"
#include "apps/common/names.h"
#include "tool/framework/text/ascii.h"
#include "tool/framework/text/cp932.h"
#include "tool/framework/text/decimal.h"

namespace app {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(const std::string &text, const std::string &why, const std::string &right) {
  throw CommandError(ExitCode::usage, in_quotes(text) + ' ' + why + "; a date; " + right);
}

void replace_all(std::string &text, std::string_view from, std::string_view to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
}

/// Every way to part the fields becomes '-'.
std::string with_plain_separators(std::string text) {
  constexpr std::array<std::array<std::string_view, 2>, 8> spellings{
      {{"元", "1"}, {"年", "-"}, {"月", "-"}, {"日", ""}, {"　", "-"}, {"/", "-"}, {".", "-"}, {" ", "-"}}};
  for (const auto &[from, to] : spellings) replace_all(text, from, to);
  return text;
}

/// Empty where something else than digits stands between two separators.
std::vector<int> numbers_of(std::string_view text) {
  std::vector<int> numbers;
  for (bool more = true; more;) {
    const std::size_t end = std::min(text.find('-'), text.size());
    const std::string_view field = text.substr(0, end);
    if (field.empty() || field.size() > 8 || !std::all_of(field.begin(), field.end(), framework::is_digit))
      return {};
    numbers.push_back(framework::whole_number(field));
    more = end < text.size();
    text.remove_prefix(more ? end + 1 : end);
  }
  return numbers;
}

bool exists(calendar::Date date) {
  using namespace std::chrono;
  const int month = date.month == 0 ? 1 : date.month;
  const int day = date.day == 0 ? 1 : date.day;
  return date.year >= 1 && date.year <= 9999 && !(date.month == 0 && date.day != 0) &&
         year_month_day(std::chrono::year(date.year), std::chrono::month(static_cast<unsigned>(month)),
                        std::chrono::day(static_cast<unsigned>(day)))
             .ok();
}

calendar::Date christian_date(const std::string &text, const std::string &plain) {
  const std::vector<int> numbers = numbers_of(plain);
  if (numbers.empty() || numbers.size() > 3) refuse(text, "cannot be read", "2020-01-05 or R2.1.5");
  const bool is_stored = numbers.size() == 1 && (plain.size() == 6 || plain.size() == 8);
  calendar::Date date = calendar::read_date(plain);
  if (!is_stored) {
    date = {numbers[0], 0, 0};
    if (numbers.size() > 1) date.month = numbers[1];
    if (numbers.size() > 2) date.day = numbers[2];
  }
  if (!exists(date)) refuse(text, "does not exist", "a day of the calendar, years 1 to 9999");
  return date;
}

int era_number(const std::string &text, const std::string &name, const calendar::EraTable &eras) {
  std::vector<std::string> known;
  for (int era = 0; era < eras.names.GetSize(); ++era) {
    const std::string era_name = framework::utf8_for_display(eras.names[era].view());
    const std::string code = framework::utf8_for_display(eras.codes[era].view());
    if (!name.empty() && (name == era_name || lower_case(name) == lower_case(code))) return era;
    known.push_back(code + " (" + era_name + ')');
  }
  std::string right;
  for (const std::string &one : known) right += (right.empty() ? "" : ", ") + one;
  refuse(text, "names no era of the table", right);
}

calendar::Date era_date(const std::string &text, const std::string &name, const std::string &plain,
                        const calendar::EraTable &eras) {
  const int era = era_number(text, name, eras);
  const std::vector<int> numbers = numbers_of(plain);
  if (numbers.size() != 3) refuse(text, "is not whole", "era, year, month and day, as in R2.1.5");
  if (numbers[0] < 1 || !calendar::is_in_era(eras.ranges, era, {numbers[0], numbers[1], numbers[2]}))
    refuse(text, "lies outside the era", framework::utf8_for_display(eras.ranges[era + 1].view()));
  const calendar::Date date{calendar::christian_year(eras.ranges, era, numbers[0]), numbers[1], numbers[2]};
  if (numbers[1] == 0 || numbers[2] == 0 || !exists(date))
    refuse(text, "does not exist", "a day of the calendar");
  return date;
}

std::vector<fs::path> era_files() {
  std::error_code ignored;
  const fs::path program = fs::read_symlink("/proc/self/exe", ignored).parent_path();
  const fs::path name(calendar::era_file_name);
  return {program / name, program / ".." / "share" / "tool" / name,
          fs::path(CEPH_INSTALLED_DATA_DIR).parent_path() / name,
          fs::path(CEPH_SOURCE_DATA_DIR).parent_path() / name};
}

std::string path_of_eras(const std::string &path) {
  if (!path.empty()) return path;
  for (const fs::path &candidate : era_files())
    if (std::error_code ignored; fs::is_regular_file(candidate, ignored)) return candidate.string();
  throw CommandError(ExitCode::bad_data, "no Era.dat was found; name one with --eras FILE");
}

}  // namespace

calendar::Date date_argument(const std::string &text, const calendar::EraTable &eras) {
  if (text == "today") return calendar::today();
  const std::string plain = with_plain_separators(text);
  const std::size_t first_digit = plain.find_first_of("0123456789");
  if (first_digit == std::string::npos) refuse(text, "holds no number", "2020-01-05 or R2.1.5");
  if (first_digit == 0) {
    const bool open_end = plain.size() > 1 && plain.back() == '-';
    return christian_date(text, open_end ? plain.substr(0, plain.size() - 1) : plain);
  }
  const std::string name = plain.substr(0, plain.find_last_not_of('-', first_digit - 1) + 1);
  return era_date(text, name, plain.substr(first_digit), eras);
}

calendar::EraTable load_eras(const std::string &path) {
  const std::string file = path_of_eras(path);
  const auto table = calendar::read_era_table(framework::cp932_from_utf8(file).value_or(file));
  if (!table || table->names.IsEmpty())
    throw CommandError(ExitCode::bad_data, file + ": names no era; [MAIN] n; an era table such as Era.dat");
  return *table;
}

}  // namespace app
