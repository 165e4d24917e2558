#include "apps/common/tracing_parts.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

#include "apps/common/names.h"
#include "tool/analysis/landmarks.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

std::string decimal(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%g", value);
  return text.data();
}

LONG whole_pixel(double value, const std::string &where) {
  if (!std::isfinite(value))
    throw InputError("a coordinate is not a number", where, "pixels, for instance 1024.5");
  const double rounded = std::round(value);
  if (rounded < std::numeric_limits<LONG>::min() || rounded > std::numeric_limits<LONG>::max())
    throw InputError("the coordinate " + decimal(value) + " is beyond 32 bits", where,
                     "pixels from -2147483648 to 2147483647");
  return static_cast<LONG>(rounded);
}

}  // namespace

analysis::RecordKind parse_kind(std::string_view text, const std::string &where) {
  static constexpr std::array<std::string_view, 3> kinds{"lateral", "frontal", "cast"};
  for (std::size_t i = 0; i < kinds.size(); ++i)
    if (kinds[i] == text) return static_cast<analysis::RecordKind>(i);
  throw InputError("unknown kind " + in_quotes(text), where, suggest(text, kinds));
}

int parse_sex(std::string_view text, const std::string &where) {
  static constexpr std::array<std::string_view, 4> male{"male", "m", "M", "1"};
  static constexpr std::array<std::string_view, 4> female{"female", "f", "F", "2"};
  for (const std::string_view word : male)
    if (word == text) return 1;
  for (const std::string_view word : female)
    if (word == text) return 2;
  throw InputError("unknown sex " + in_quotes(text), where, "\"male\" or \"female\"");
}

Date parse_date_field(std::string_view text, const std::string &where) {
  if (const auto date = parse_date(text)) return *date;
  throw InputError("unreadable date " + in_quotes(text), where, "year-month-day, for instance 2001-04-12");
}

double checked_scale(double value, const std::string &where) {
  if (std::isfinite(value) && value > 0.0) return value;
  throw InputError("the scale " + decimal(value) + " is not above 0", where,
                   "millimetres per pixel, for instance 0.1");
}

double checked_magnification(double value, const std::string &where) {
  if (std::isfinite(value) && value > 0.0 && value <= 10.0) return value;
  throw InputError("the magnification " + decimal(value) + " cannot be", where,
                   "the enlargement of the film, for instance 1.1 for 10 %");
}

double checked_age(double value, const std::string &where) {
  if (std::isfinite(value) && value >= 0.0 && value <= 150.0) return value;
  throw InputError("the age " + decimal(value) + " cannot be", where,
                   "years from 0 to 150, for instance 12.5");
}

std::string checked_dental_stage(std::string_view text, const std::string &where) {
  static constexpr std::array<std::string_view, 9> codes{"I",    "IIA", "IIC", "IIIA", "IIIB",
                                                         "IIIC", "IVA", "IVC", "VA"};
  for (const std::string_view code : codes)
    if (code == text) return std::string(text);
  throw InputError("unknown dental stage " + in_quotes(text), where, suggest(text, codes));
}

POINT whole_pixels(double x, double y, const std::string &where) {
  return {whole_pixel(x, where), whole_pixel(y, where)};
}

TracingFile empty_tracing(analysis::RecordKind kind, double scale) {
  TracingFile file;
  switch (kind) {
    case analysis::RecordKind::lateral:
      file.record.emplace<tagPOINTLAT>();
      break;
    case analysis::RecordKind::frontal:
      file.record.emplace<tagPOINTPA>();
      break;
    case analysis::RecordKind::model:
      file.record.emplace<tagPOINTMO>();
      break;
  }
  std::visit([&](auto &record) { record.scale = scale; }, file.record);
  return file;
}

void place_landmark(TracingFile &file, std::string_view name, POINT position, const std::string &where) {
  const auto index = analysis::find_landmark(file.kind(), name);
  if (!index)
    throw InputError("unknown landmark " + in_quotes(name), where,
                     suggest(name, analysis::vocabulary(file.kind())));
  const auto entry = static_cast<std::size_t>(analysis::first_landmark_entry + *index);
  if (tagPOINTLAT *lateral = file.lateral()) lateral->pt[entry] = position;
  if (tagPOINTPA *frontal = file.frontal()) frontal->pt[entry] = position;
}

std::string checked_point_name(std::string_view utf8, const std::string &where) {
  const auto name = framework::cp932_from_utf8(utf8);
  if (!name) throw InputError("the name " + in_quotes(utf8) + " has letters that code page 932 lacks", where);
  if (name->empty() || name->size() > max_point_name_bytes)
    throw InputError("the name " + in_quotes(utf8) + " has " + std::to_string(name->size()) + " bytes", where,
                     "1 to 5 bytes of code page 932");
  if (name->find_first_of(std::string_view("\0[]\"", 4)) != std::string::npos)
    throw InputError("the name " + in_quotes(utf8) + " holds a bracket, a quote or a NUL", where,
                     "letters, digits and parentheses");
  return *name;
}

void add_user_point(TracingFile &file, std::string_view name, POINT position, const std::string &where) {
  const std::string checked = checked_point_name(name, where);
  if (analysis::find_landmark(file.kind(), checked))
    throw InputError("the user point " + in_quotes(name) + " has the name of a landmark, which hides it",
                     where, "a name of its own, or the point among the landmarks");
  for (const tagUPOINT &other : file.user_points)
    if (checked == other.name)
      throw InputError("the user point " + in_quotes(name) + " is given twice", where);
  const std::size_t slot = file.user_points.size();
  if (slot >= analysis::Tracing::max_user_points)
    throw InputError("too many user points", where, "at most 100");
  tagUPOINT point{};
  write_field(point.name, checked);
  file.user_points.push_back(point);
  std::visit(
      [&](auto &record) {
        write_field(record.userName[slot], checked);
        record.userPoint[slot] = position;
      },
      file.record);
}

void check_dates(const PatientInfo &patient, const std::string &where) {
  if (!patient.birth || !patient.date) return;
  const double years = years_between(*patient.birth, *patient.date);
  if (years < 0.0 || years > 150.0)
    throw InputError(
        years < 0.0 ? "the film is older than the patient" : "the dates are over 150 years apart", where,
        "the birth date and, after it, the date of the film");
  if (patient.stated_age && std::abs(*patient.stated_age - years) > 1.0)
    throw InputError("the stated age " + decimal(*patient.stated_age) + " contradicts the dates", where,
                     decimal(std::floor(years * 10.0) / 10.0) + " years, or no age at all");
}

}  // namespace app
