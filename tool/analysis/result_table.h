#pragma once
// The rows of a result table, ready to be shown or printed.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tool/analysis/analysis.h"
#include "tool/analysis/value_format.h"

namespace analysis {

/// One row. Texts are code page 932, written exactly as the list control receives them.
struct TableRow {
  std::string item;                   ///< column 0
  std::string mean;                   ///< column 1
  std::string sd;                     ///< column 2
  std::string value;                  ///< column 3: formatted number or chosen text; empty: no value
  std::string second_value;           ///< column 4: tooth rows of the cast only
  std::optional<double> number;       ///< the value behind column 3 when it is a number
  std::optional<double> mean_number;  ///< the mean when it reads as a number
  std::optional<double> sd_number;
  std::optional<int> display_flag;  ///< item data; unset: the row gets none
  bool heading = false;             ///< item text only
  std::optional<Reason> reason;     ///< why the number should not be taken at face value
};

/// Whether rows say why their numbers should not be taken at face value; it costs time.
enum class Explain { no, yes };

/// The result table of the listed items, in file order.
std::vector<TableRow> result_table(const Analysis &analysis, const Tracing &tracing, const Patient &patient,
                                   int precision, Explain explain = Explain::yes);

/// The same, row by row: `visit` may take the row's texts. Nothing else is allocated for the table.
void visit_result_rows(const Analysis &analysis, const Tracing &tracing, const Patient &patient,
                       int precision, Explain explain, const std::function<void(TableRow &)> &visit);

/// One item by its text; empty when the analysis does not hold it. A "Calc2:" item is found too.
std::optional<TableRow> result_row(const Analysis &analysis, std::string_view item, const Tracing &tracing,
                                   const Patient &patient, int precision);

/// A row of the surgery table: the value on the record before treatment and on the planned one.
struct SurgeryRow {
  struct Side {
    std::string value;  ///< formatted number or chosen text; empty: no value
    std::string mark;   ///< "+++" to "---"
    std::optional<double> number;
    std::optional<Reason> reason;
  };
  std::string item;
  bool heading = false;
  Side before;
  Side after;
};

/// `after` counts only when its scale is not 0.
std::vector<SurgeryRow> surgery_table(const Analysis &analysis, const Tracing &before, const Tracing &after,
                                      const Patient &patient, int precision, Explain explain = Explain::yes);

/// "+++" above 3 SD units down to "---" at -3 and below; empty between -1 (excluded) and 1.
std::string_view deviation_mark(double sd_units);

/// The diagnosis sentences of a file, one a row.
std::vector<std::string> diagnosis(const Analysis &analysis, const Tracing &tracing, const Patient &patient);

}  // namespace analysis
