#pragma once
// What the JSON and the CSV reader share: checked steps that put one value into a tracing. `where` is the
// place in the input, for messages. All of them throw InputError.

#include <string>
#include <string_view>

#include "apps/common/tracing_file.h"

namespace app {

analysis::RecordKind parse_kind(std::string_view text, const std::string &where);
int parse_sex(std::string_view text, const std::string &where);
Date parse_date_field(std::string_view text, const std::string &where);
double checked_scale(double value, const std::string &where);
double checked_magnification(double value, const std::string &where);
double checked_age(double value, const std::string &where);
std::string checked_dental_stage(std::string_view text, const std::string &where);

/// Rounds to whole pixels; a coordinate that is not a number or beyond 32 bits is a fault.
POINT whole_pixels(double x, double y, const std::string &where);

/// An empty tracing of a kind with its scale.
TracingFile empty_tracing(analysis::RecordKind kind, double scale);

/// A landmark of the built-in vocabulary of a film.
void place_landmark(TracingFile &file, std::string_view name, POINT position, const std::string &where);

/// A user point: its name in UTF-8, at most 5 bytes of code page 932, not the name of a landmark.
void add_user_point(TracingFile &file, std::string_view name, POINT position, const std::string &where);

/// A name for a point table in code page 932.
std::string checked_point_name(std::string_view utf8, const std::string &where);

/// Copies a text that fits into a NUL-terminated field of the point tables.
template <std::size_t N>
void write_field(char (&field)[N], std::string_view text) {
  const std::size_t length = text.size() < N ? text.size() : N - 1;
  text.copy(field, length);
  field[length] = '\0';
}

/// The birth date, the film date and the stated age must agree.
void check_dates(const PatientInfo &patient, const std::string &where);

}  // namespace app
