#pragma once
// Dates as people type them: of the Christian calendar or of a Japanese era.

#include <string>

#include "tool/calendar/era_table.h"

namespace app {

/// The Christian date a text stands for: "2020-01-05" (also with slashes, points or blanks), "20200105",
/// "2020-01" and "2020" (unknown parts are 0), or a whole era date such as "H2.5.1" or one in Japanese with
/// the era's name, where the first year may be written with its own character. "today" is today. UTF-8.
/// Throws CommandError for a date that does not exist or lies outside its era.
calendar::Date date_argument(const std::string &text, const calendar::EraTable &eras);

/// The era table at a path, or the one beside the program, the installed one or the one of the source tree.
/// Throws CommandError when there is none or it names no era.
calendar::EraTable load_eras(const std::string &path);

}  // namespace app
