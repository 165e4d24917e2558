#pragma once
// Comma-separated values (RFC 4180), one record a line.

#include <string>
#include <string_view>
#include <vector>

namespace app {

/// The fields of one line without its line end; a field may be quoted, a quote inside it is doubled. Throws
/// InputError for a quote out of place.
std::vector<std::string> split_csv(std::string_view line, std::size_t line_number);

/// A field for a line: quoted when it holds a comma, a quote, a line end, or blanks at an end.
std::string csv_field(std::string_view text);

}  // namespace app
