#pragma once
// Which column of a norm list belongs to a patient.
//
// The columns of a file's lists stand for its growth stages when the file has as many stages (for the sex) as
// its longest list has columns; otherwise for years of age: the first for 6 years and younger, one more each
// year, the last for all later ages. Lists with a single column hold for everybody. A patient whose age is
// not known gets the last column, the norms of adults.

#include <optional>
#include <string>

#include "tool/analysis/definition_file.h"
#include "tool/analysis/stages.h"

namespace app {

inline constexpr int first_column_age = 6;  ///< years

struct Growth {
  std::optional<double> age;  ///< years
  std::string dental_stage;   ///< empty: not stated
};

struct NormColumns {
  int age_code = 0;     ///< second-set column x 100 + first-set column
  std::string meaning;  ///< of the first set's column, UTF-8, for instance "12 years (column 7 of 13)"
};

NormColumns norm_columns(const analysis::DefinitionFile &file, int sex, const Growth &growth);

/// Name of the growth stage by chronological age or by dental stage, UTF-8; empty when none matches.
struct GrowthStages {
  std::string by_age;
  std::string by_teeth;
};
GrowthStages growth_stages(const analysis::DefinitionFile &file, int sex, const Growth &growth);

}  // namespace app
