// The CSV form of tracings: one film a row.

#include <array>
#include <charconv>
#include <cmath>

#include "apps/common/csv.h"
#include "apps/common/names.h"
#include "apps/common/tracing_parts.h"
#include "tool/analysis/landmarks.h"

namespace app {
namespace {

constexpr std::array<std::string_view, 11> plain_titles{
    "film", "kind", "scale", "magnification", "name", "sex", "age", "birth", "date", "dental_stage", "id"};
constexpr std::string_view user_prefix = "user:";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

double parse_number(std::string_view text, const std::string &where, const char *right) {
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) throw InputError("the number is too large", where, right);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
    throw InputError(in_quotes(text) + " is not a number", where, right);
  return value;
}

bool known_to(analysis::RecordKind kind, std::string_view name) {
  return analysis::find_landmark(kind, name).has_value();
}

std::string header_place(std::size_t index) {
  return "line 1, column " + std::to_string(index + 1);
}

}  // namespace

struct CsvTracings::Row {
  std::vector<std::string> fields;
  const std::vector<Column> *columns;
  std::size_t line_number;

  std::string where(std::size_t index) const {
    return "line " + std::to_string(line_number) + ", column " + std::to_string(index + 1) + " (" +
           printable((*columns)[index].title) + ")";
  }
  std::string_view text(std::size_t index) const { return trimmed(fields[index]); }
};

CsvTracings::CsvTracings(std::string_view header, ReadOptions options) : options_(options) {
  if (header.starts_with("\xEF\xBB\xBF")) header.remove_prefix(3);
  const std::vector<std::string> titles = split_csv(header, 1);
  if (titles.size() == 1 && header.find_first_of(";\t") != std::string_view::npos)
    throw InputError("the header has a single column", "line 1", "columns separated by commas");
  constexpr std::size_t most_columns = 1000;
  if (titles.size() > most_columns)
    throw InputError("the header has too many columns", "line 1", "at most 1000");
  for (std::size_t i = 0; i < titles.size(); ++i) columns_.push_back(understand(trimmed(titles[i]), i));
  pair_columns();
  kind_ = guess_kind();
}

CsvTracings::Column CsvTracings::understand(std::string_view title, std::size_t index) const {
  for (std::size_t i = 0; i < plain_titles.size(); ++i)
    if (title == plain_titles[i]) {
      const auto meaning = title == "id" ? Meaning::id : static_cast<Meaning>(i);
      return {meaning, std::string(title), {}, false, 0};
    }
  if (!title.ends_with("_x") && !title.ends_with("_y"))
    throw InputError("unknown column " + in_quotes(title), header_place(index),
                     "NAME_x and NAME_y of a landmark, or " + suggest(title, plain_titles));
  Column column{title.back() == 'x' ? Meaning::x : Meaning::y, std::string(title), {}, false, 0};
  std::string_view point = title.substr(0, title.size() - 2);
  column.user = point.starts_with(user_prefix);
  if (column.user) {
    point.remove_prefix(user_prefix.size());
    checked_point_name(point, header_place(index));
  } else if (!known_to(analysis::RecordKind::lateral, point) &&
             !known_to(analysis::RecordKind::frontal, point)) {
    throw InputError("unknown landmark " + in_quotes(point), header_place(index),
                     suggest(point, analysis::vocabulary(analysis::RecordKind::lateral)) +
                         " (a user point is written user:NAME_x, user:NAME_y)");
  }
  column.point = point;
  return column;
}

/// Finds the partner of every coordinate and refuses doubled columns.
void CsvTracings::pair_columns() {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    Column &column = columns_[i];
    const bool coordinate = column.meaning == Meaning::x || column.meaning == Meaning::y;
    bool paired = !coordinate;
    for (std::size_t j = 0; j < columns_.size(); ++j) {
      const Column &other = columns_[j];
      if (i == j || other.point != column.point || other.user != column.user) continue;
      if (other.meaning == column.meaning && j < i)
        throw InputError("the column " + in_quotes(column.title) + " is given twice", header_place(i),
                         "one of the two");
      if (!coordinate || other.meaning == column.meaning) continue;
      column.partner = j;
      paired = true;
    }
    if (paired) continue;
    const char missing = column.meaning == Meaning::x ? 'y' : 'x';
    throw InputError("the column " + in_quotes(column.title) + " has no partner", header_place(i),
                     "a column " + in_quotes(column.title.substr(0, column.title.size() - 1) + missing));
  }
}

/// Lateral unless a name is known to the frontal vocabulary only; a column "kind" decides row by row.
analysis::RecordKind CsvTracings::guess_kind() const {
  auto kind = analysis::RecordKind::lateral;
  bool stated = false;
  for (const Column &column : columns_) {
    stated = stated || column.meaning == Meaning::kind;
    const bool landmark = !column.point.empty() && !column.user;
    if (landmark && !known_to(kind, column.point)) kind = analysis::RecordKind::frontal;
  }
  if (stated) return kind;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const Column &column = columns_[i];
    if (column.point.empty() || column.user || known_to(kind, column.point)) continue;
    throw InputError(
        "the landmark " + in_quotes(column.point) + " belongs to lateral films, others to frontal ones",
        header_place(i), "landmarks of one kind, or a column \"kind\"");
  }
  return kind;
}

TracingFile CsvTracings::read(std::string_view line, std::size_t line_number) const {
  const Row row{split_csv(line, line_number), &columns_, line_number};
  if (row.fields.size() != columns_.size())
    throw InputError("has " + std::to_string(row.fields.size()) + " fields",
                     "line " + std::to_string(line_number),
                     std::to_string(columns_.size()) + " as in the header");
  auto kind = kind_;
  std::optional<double> scale;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (row.text(i).empty()) continue;
    if (columns_[i].meaning == Meaning::kind) kind = parse_kind(row.text(i), row.where(i));
    if (columns_[i].meaning == Meaning::scale)
      scale = checked_scale(parse_number(row.text(i), row.where(i), "millimetres per pixel"), row.where(i));
  }
  if (kind == analysis::RecordKind::model)
    throw InputError("a cast cannot be written as CSV", "line " + std::to_string(line_number),
                     "a JSON tracing");
  if (!scale && !options_.scale)
    throw InputError("the scale is not stated", "line " + std::to_string(line_number),
                     "a column \"scale\" in millimetres per pixel, or the option --scale");
  TracingFile file = empty_tracing(kind, scale ? *scale : *options_.scale);
  for (std::size_t i = 0; i < columns_.size(); ++i) take_field(file, row, i);
  check_dates(file.patient, "line " + std::to_string(line_number));
  return file;
}

void CsvTracings::take_field(TracingFile &file, const Row &row, std::size_t index) const {
  const std::string_view text = row.text(index);
  const Column &column = columns_[index];
  if (column.meaning == Meaning::x) return take_point(file, row, index);
  if (text.empty() || column.meaning == Meaning::y) return;
  const std::string where = row.where(index);
  PatientInfo &patient = file.patient;
  switch (column.meaning) {
    case Meaning::id:
      file.id = text;
      break;
    case Meaning::magnification:
      file.magnification = checked_magnification(parse_number(text, where, "for instance 1.1"), where);
      break;
    case Meaning::name:
      patient.name = text;
      break;
    case Meaning::sex:
      patient.sex = parse_sex(text, where);
      break;
    case Meaning::age:
      patient.stated_age = checked_age(parse_number(text, where, "years"), where);
      break;
    case Meaning::birth:
      patient.birth = parse_date_field(text, where);
      break;
    case Meaning::date:
      patient.date = parse_date_field(text, where);
      break;
    case Meaning::dental_stage:
      patient.dental_stage = checked_dental_stage(text, where);
      break;
    default:
      break;
  }
}

void CsvTracings::take_point(TracingFile &file, const Row &row, std::size_t index) const {
  const Column &column = columns_[index];
  const std::string_view x = row.text(index);
  const std::string_view y = row.text(column.partner);
  POINT position{0, 0};
  if (x.empty() != y.empty())
    throw InputError("one coordinate is missing", row.where(x.empty() ? index : column.partner),
                     "both, or none when the point is not placed");
  if (!x.empty())
    position = whole_pixels(parse_number(x, row.where(index), "pixels"),
                            parse_number(y, row.where(column.partner), "pixels"), row.where(index));
  if (column.user) return add_user_point(file, column.point, position, row.where(index));
  if (x.empty() && !known_to(file.kind(), column.point)) return;
  place_landmark(file, column.point, position, row.where(index));
}

}  // namespace app
