#include "apps/common/tracing_file.h"

#include <chrono>
#include <fstream>
#include <iostream>
#include <iterator>

#include "apps/common/names.h"

namespace app {
namespace {

std::string joined(const std::string &what, const std::string &where, const std::string &right) {
  std::string text = what;
  if (!where.empty()) text += "; " + where;
  if (!right.empty()) text += "; " + right;
  return text;
}

/// The digits of text as a number; -1 when there is anything else.
int digits(std::string_view text) {
  int value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return -1;
    value = value * 10 + (c - '0');
  }
  return value;
}

std::chrono::sys_days day_number(const Date &date) {
  using namespace std::chrono;
  return sys_days(year(date.year) / month(static_cast<unsigned>(date.month)) / 1) + days(date.day - 1);
}

/// 29 February of another year counts on into 1 March.
std::chrono::sys_days birthday(const Date &birth, int year) {
  return day_number({year, birth.month, birth.day});
}

std::string read_stream(std::istream &stream) {
  std::string text(max_tracing_bytes + 1, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  if (stream.bad()) throw InputError("cannot be read to its end", "");
  return text;
}

std::string read_text(const std::string &path) {
  if (path == "-") return read_stream(std::cin);
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw InputError("cannot be opened", "", "a readable JSON or CSV tracing");
  std::string text = read_stream(stream);
  if (text.empty()) throw InputError("is empty or not a file", "", "a JSON or CSV tracing");
  return text;
}

bool is_json(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && (text[first] == '{' || text[first] == '[');
}

std::string_view without_byte_order_mark(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  return text;
}

std::vector<TracingFile> read_csv(std::string_view text, const ReadOptions &options) {
  std::vector<TracingFile> files;
  std::optional<CsvTracings> reader;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.find_first_not_of(" \t\r") == std::string_view::npos) continue;
    if (reader)
      files.push_back(reader->read(line, number));
    else
      reader.emplace(line, options);
  }
  if (files.empty())
    throw InputError("holds no tracing", "", "a header of NAME_x,NAME_y columns and one film a row");
  return files;
}

std::string known_ids(const std::vector<TracingFile> &files) {
  constexpr std::size_t shown = 8;
  std::string list;
  for (std::size_t i = 0; i < files.size() && i < shown; ++i)
    list += (i > 0 ? ", " : "") + (files[i].id.empty() ? "(no id)" : printable(files[i].id));
  if (files.size() > shown) list += ", ...";
  return list;
}

}  // namespace

InputError::InputError(std::string what, std::string where, std::string right)
    : std::runtime_error(joined(what, where, right)),
      fault_(std::move(what)),
      where_(std::move(where)),
      right_(std::move(right)) {}

std::optional<Date> parse_date(std::string_view text) {
  std::string compact;
  if (text.size() == 10 && text[4] == '-' && text[7] == '-')
    compact.append(text.substr(0, 4)).append(text.substr(5, 2)).append(text.substr(8, 2));
  else if (text.size() == 8)
    compact = text;
  else
    return std::nullopt;
  const int number = digits(compact);
  if (number < 0) return std::nullopt;
  const Date date{number / 10000, number / 100 % 100, number % 100};
  using namespace std::chrono;
  const year_month_day day(year(date.year), month(static_cast<unsigned>(date.month)),
                           std::chrono::day(static_cast<unsigned>(date.day)));
  if (date.year < 1 || !day.ok()) return std::nullopt;
  return date;
}

double years_between(const Date &from, const Date &to) {
  const std::chrono::sys_days day = day_number(to);
  int years = to.year - from.year;
  if (birthday(from, to.year) > day) --years;
  const auto last = birthday(from, from.year + years);
  const auto next = birthday(from, from.year + years + 1);
  return years + static_cast<double>((day - last).count()) / static_cast<double>((next - last).count());
}

std::optional<double> PatientInfo::age() const {
  if (birth && date) return years_between(*birth, *date);
  return stated_age;
}

analysis::Mode TracingFile::mode() const {
  switch (kind()) {
    case analysis::RecordKind::lateral:
      return analysis::Mode::lateral;
    case analysis::RecordKind::frontal:
      return analysis::Mode::frontal;
    default:
      return analysis::Mode::model;
  }
}

double TracingFile::scale() const {
  return std::visit([](const auto &one) { return one.scale; }, record);
}

const void *TracingFile::record_address() const {
  return std::visit([](const auto &one) -> const void * { return &one; }, record);
}

void *TracingFile::record_address() {
  return std::visit([](auto &one) -> void * { return &one; }, record);
}

analysis::Tracing TracingFile::tracing(analysis::Mode mode) const {
  const unsigned short virtuals = virtual_count();
  const unsigned short users = user_count();
  return {mode, record_address(), &virtuals, virtual_points.data(), &users, user_points.data()};
}

std::vector<TracingFile> read_tracings(std::string_view text, const ReadOptions &options) {
  if (text.size() > max_tracing_bytes) throw InputError("is too long", "", "at most 16 MiB");
  text = without_byte_order_mark(text);
  if (!is_json(text)) return read_csv(text, options);
  std::vector<TracingFile> one;
  one.push_back(read_json_tracing(text, options));
  return one;
}

TracingFile read_tracing_file(const std::string &path, std::string_view id, const ReadOptions &options) {
  std::vector<TracingFile> files = read_tracings(read_text(path), options);
  if (id.empty()) {
    if (files.size() > 1)
      throw InputError("holds " + std::to_string(files.size()) + " films", "",
                       "choose one with --film: " + known_ids(files));
    return std::move(files.front());
  }
  for (TracingFile &file : files)
    if (file.id == id) return std::move(file);
  throw InputError("holds no film " + in_quotes(id), "", "one of " + known_ids(files));
}

}  // namespace app
