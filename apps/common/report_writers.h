#pragma once
// A report as text for people, as CSV, as JSON and as one HTML page. All results are UTF-8 and end with a
// line end.

#include <string>

#include "apps/common/report.h"

namespace app {

enum class Color { off, on };

/// Aligned columns; with colour, values are tinted by their deviation.
std::string write_text(const Report &report, Color color);

/// RFC 4180 with CR LF. Several tables follow one another; a new header, after an empty line, comes only
/// where the columns change, and then or with several tables the first column names the table. Sentences
/// appear when there is no table.
std::string write_csv(const Report &report);

/// One object: the facts by key, every table as a list of objects, sentences as lists of texts, notes. A
/// number that is not finite is null.
std::string write_json(const Report &report);

/// A self-contained page without scripts, fit for printing.
std::string write_html(const Report &report);

/// The text with &, <, >, " and ' replaced, and control characters dropped.
std::string escape_html(std::string_view text);

}  // namespace app
