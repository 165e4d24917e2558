#pragma once
// Where the definition files lie. All paths are code page 932.

#include <string>
#include <vector>

#include "tool/analysis/mode.h"

namespace analysis {

inline constexpr int lateral_norm_file = -1;  ///< file index of "Ricketts.txt" in lateral mode

/// The analysis-item directory with a trailing delimiter: the profile's "DB_DIR" / "ANAITEMPATH", else
/// "ANAITEM" beside the executable.
std::string analysis_item_directory();

/// Path of definition file `index` (0-based among the non-empty lines of the folder's "list.txt"); empty when
/// the list cannot be read or is shorter.
std::string definition_path(Mode mode, int index);

/// A line of a display-setting folder's list: a number for the application, and the path of the file.
struct DisplayListEntry {
  int number;
  std::string path;
};
/// The list lines that have a comma, in order; whether a file exists is not looked at.
std::vector<DisplayListEntry> display_setting_list(Mode mode);

/// Path of display-setting file `index`, counting list lines that have a comma and whose file exists.
std::string display_setting_path(Mode mode, int index);

/// Every path of a mode in list order; the surgery mode has just one.
std::vector<std::string> definition_paths(Mode mode);

}  // namespace analysis
