#pragma once
// Growth stages of a definition file: named ranges of chronological age or of dental developmental stage.

#include <string>
#include <string_view>
#include <vector>

#include "tool/analysis/definition_file.h"

namespace analysis {

/// Value of a dental developmental stage code: I 0, IIA 1, ... VA 8, anything else 9. Surrounding blanks do
/// not count.
double dental_stage(std::string_view code);

struct Stage {
  std::string name;
  bool chronological;  ///< false: the range is one of dental stages
  double low;
  double high;  ///< low <= v < high
};

enum class StageSet { first, second };

/// A stage line as it is written.
struct StageLine {
  std::string_view name;
  std::string_view range;
  bool chronological;
};
std::vector<StageLine> stage_lines(const DefinitionFile &file, int sex, StageSet set);

/// The stage lines for a sex (1 male, other female) in file order.
std::vector<Stage> stages(const DefinitionFile &file, int sex, StageSet set = StageSet::first);

/// The same for the lateral norm file, whose ranges are plain numbers of years or stage values.
std::vector<Stage> numeric_stages(const DefinitionFile &file, int sex);

/// Index of the last stage whose range holds the age (years) or the dental stage; -1 when none does.
int match_stage(const std::vector<Stage> &stages, double age_years, double dental);

}  // namespace analysis
