#pragma once
// The analysis-item folder: where the program's analyses, norms and coefficients lie.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tool/analysis/analysis.h"

namespace app {

/// Tells the library where its definition files lie: `folder` when it is not empty, else the installed
/// folder, else the one beside the program, else the one of the source tree. Throws CommandError when there
/// is none.
void use_data_folder(const std::string &folder);

/// The folder in use, code page 932, with a trailing delimiter.
std::string data_folder();

struct LoadedAnalysis {
  int index;
  std::string title;  ///< UTF-8; the file's name when it states none
  analysis::Analysis analysis;
};

/// English name of a mode, for messages and headings.
std::string_view mode_name(analysis::Mode mode);

/// The analyses of a mode that `wanted` selects: an index, a title (letter case ignored), "all", or empty for
/// the first. Throws CommandError when the folder has none or none of that name.
std::vector<LoadedAnalysis> load_analyses(analysis::Mode mode, std::string_view wanted);

/// A definition file of a mode as the list names it, whether or not it can be read.
struct ListedAnalysis {
  int index;
  std::string file;  ///< UTF-8, without the folder
  bool readable;
  std::string title;    ///< UTF-8
  std::string comment;  ///< UTF-8
};
std::vector<ListedAnalysis> list_analyses(analysis::Mode mode);

}  // namespace app
