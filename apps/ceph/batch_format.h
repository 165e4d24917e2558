#pragma once
// One tracing's result tables as a line of JSON or as rows of CSV.

#include <cstddef>
#include <span>
#include <string>

#include "apps/common/report.h"

namespace app::batch {

struct ResultHead {
  std::size_t line;  ///< of the input, from 1
  std::string film;  ///< UTF-8, may be empty
};

/// {"line":1,"film":"...","analyses":[{"title":"...","rows":[{"item":...,"value":...}]}]} and a line end.
/// Numbers are written in full; a value that cannot be formed is null and has a reason.
std::string json_line(const ResultHead &head, std::span<const Table> tables);

/// The titles of csv_rows(). Lines end with CR LF.
std::string csv_header();

/// One row a measurement; headings are left out.
std::string csv_rows(const ResultHead &head, std::span<const Table> tables);

}  // namespace app::batch
