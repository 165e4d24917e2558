#pragma once
// Tracing files: one patient's placed landmarks as JSON or CSV text. Text is UTF-8; point names are converted
// to code page 932 for the record. The shapes are described in docs/ceph.md and docs/tracing.schema.json.
//
// Coordinates may be fractional; the record holds whole pixels, so they are rounded to the nearest (halves
// away from zero). A point at (0, 0) is not placed.

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tool/analysis/mode.h"
#include "tool/analysis/records.h"
#include "tool/analysis/tracing.h"

namespace app {

inline constexpr std::size_t max_tracing_bytes = std::size_t{16} << 20;  ///< of one tracing file
inline constexpr std::size_t max_point_name_bytes = 5;                   ///< user and virtual points
inline constexpr std::size_t max_virtual_points = 1000;

/// A fault of an input file. what() joins the three parts: "what; where; what would be right".
class InputError : public std::runtime_error {
 public:
  InputError(std::string what, std::string where, std::string right = {});
  const std::string &fault() const { return fault_; }
  const std::string &where() const { return where_; }  ///< JSON pointer, or line and column; may be empty
  const std::string &right() const { return right_; }  ///< what would be right; may be empty

 private:
  std::string fault_, where_, right_;
};

struct Date {
  int year;
  int month;  ///< 1 to 12
  int day;    ///< 1 to the month's last
};

/// "2001-04-12" or "20010412"; empty when it is neither or not a day of the calendar.
std::optional<Date> parse_date(std::string_view text);

/// Full years plus the part of the running year that has passed; negative when `to` lies before `from`.
/// Whoever was born on 29 February has a birthday on 1 March in other years.
double years_between(const Date &from, const Date &to);

struct PatientInfo {
  std::string name;        ///< UTF-8, may be empty
  std::optional<int> sex;  ///< 1 male, 2 female
  std::optional<Date> birth;
  std::optional<Date> date;           ///< of the film
  std::optional<double> stated_age;   ///< years
  std::string dental_stage;           ///< "I" to "VA"; empty when not stated
  std::optional<double> age() const;  ///< years: from both dates when they are there, else as stated
};

/// Owns the record and the point tables. A view made by tracing() borrows from this object: it ends when the
/// object is moved, changed or destroyed.
struct TracingFile {
  /// Outlines traced by hand, as the library's store of free-line traces: 20 entries of 2000 bytes with a
  /// name, a code as text, and curves of 16-bit words. Empty: none.
  using TraceStore = std::vector<char>;
  static constexpr std::size_t trace_count = 20;
  static constexpr std::size_t trace_bytes = 2000;
  static constexpr std::size_t trace_code_offset = 35;
  static constexpr std::size_t trace_runs_offset = 44;

  std::string id;  ///< film or id; may be empty
  std::variant<tagPOINTLAT, tagPOINTPA, tagPOINTMO> record;
  std::vector<tagKPOINT> virtual_points;
  std::vector<tagUPOINT> user_points;  ///< parallel to the record's user-point slots
  std::optional<tagCVBA> vertebrae;    ///< lateral films: for the bone age
  TraceStore traces;                   ///< lateral films
  PatientInfo patient;
  std::optional<double> magnification;  ///< of the radiograph; 1.1 is the norms' own

  analysis::RecordKind kind() const { return static_cast<analysis::RecordKind>(record.index()); }
  /// The mode whose analyses fit the record: lateral, frontal or model.
  analysis::Mode mode() const;
  double scale() const;  ///< millimetres per pixel

  const void *record_address() const;
  void *record_address();
  const tagPOINTLAT *lateral() const { return std::get_if<tagPOINTLAT>(&record); }
  const tagPOINTPA *frontal() const { return std::get_if<tagPOINTPA>(&record); }
  const tagPOINTMO *model() const { return std::get_if<tagPOINTMO>(&record); }
  tagPOINTLAT *lateral() { return std::get_if<tagPOINTLAT>(&record); }
  tagPOINTPA *frontal() { return std::get_if<tagPOINTPA>(&record); }
  tagPOINTMO *model() { return std::get_if<tagPOINTMO>(&record); }
  /// A store that the drawing operations can read, with no trace when there is none.
  TraceStore traces_or_empty() const {
    return traces.empty() ? TraceStore(trace_count * trace_bytes, '\0') : traces;
  }
  unsigned short virtual_count() const { return static_cast<unsigned short>(virtual_points.size()); }
  unsigned short user_count() const { return static_cast<unsigned short>(user_points.size()); }

  /// A view for the evaluation in `mode`, which must use the kind of record that this is.
  analysis::Tracing tracing(analysis::Mode mode) const;
  analysis::Tracing tracing() const { return tracing(mode()); }
};

struct ReadOptions {
  std::optional<double> scale;  ///< millimetres per pixel for text that states none
};

/// One JSON tracing; throws InputError, and nothing else, for any text that is not one.
TracingFile read_json_tracing(std::string_view text, const ReadOptions &options = {});

/// CSV tracings, line by line: a header of NAME_x and NAME_y columns with optional columns film (or id),
/// kind, scale, magnification, name, sex, age, birth, date, dental_stage; "user:NAME_x" columns are user
/// points. Fields may be quoted, a record is one line. An empty coordinate pair is a point that is not
/// placed.
class CsvTracings {
 public:
  /// Throws InputError when a column is unknown, doubled or lacks its partner.
  explicit CsvTracings(std::string_view header, ReadOptions options = {});

  /// One row; `line_number` (1-based) is only for messages. Throws InputError.
  TracingFile read(std::string_view line, std::size_t line_number) const;

 private:
  enum class Meaning { id, kind, scale, magnification, name, sex, age, birth, date, dental_stage, x, y };
  struct Column {
    Meaning meaning;
    std::string title;    // as written
    std::string point;    // of a coordinate: the point's name, UTF-8
    bool user;            // of a coordinate: a user point
    std::size_t partner;  // of a coordinate: index of the other column
  };
  struct Row;
  Column understand(std::string_view title, std::size_t index) const;
  void pair_columns();
  analysis::RecordKind guess_kind() const;
  void take_field(TracingFile &file, const Row &row, std::size_t index) const;
  void take_point(TracingFile &file, const Row &row, std::size_t index) const;

  ReadOptions options_;
  std::vector<Column> columns_;
  analysis::RecordKind kind_ = analysis::RecordKind::lateral;
};

/// Every tracing of a JSON (one) or CSV (one a row) text.
std::vector<TracingFile> read_tracings(std::string_view text, const ReadOptions &options = {});

/// The tracing of a file, or of a CSV file the one whose film is `id` (may be empty when there is only one).
/// `path` "-" reads standard input. Throws InputError.
TracingFile read_tracing_file(const std::string &path, std::string_view id = {},
                              const ReadOptions &options = {});

}  // namespace app
