#include "apps/common/norm_columns.h"

#include <algorithm>
#include <cmath>

#include "tool/framework/text/cp932.h"

namespace app {
namespace {

using analysis::LineClass;
using analysis::Stage;
using analysis::StageSet;

constexpr double never = -1.0;  // below every range of stages
constexpr int most_columns = 100;

double dental_value(const Growth &growth) {
  return growth.dental_stage.empty() ? never : analysis::dental_stage(growth.dental_stage);
}

bool is_norm_block(LineClass block, int sex, StageSet set) {
  const int number = static_cast<int>(block) - (set == StageSet::second ? 100 : 0);
  const auto first = static_cast<LineClass>(number);
  if (first == LineClass::mean || first == LineClass::sd) return true;
  if (sex == 1) return first == LineClass::mean_male || first == LineClass::sd_male;
  return first == LineClass::mean_female || first == LineClass::sd_female;
}

/// Columns of the longest norm list; 0 without norms.
int widest_list(const analysis::DefinitionFile &file, int sex, StageSet set) {
  std::ptrdiff_t widest = 0;
  for (const analysis::Line &line : file.lines()) {
    if (line.own != LineClass::content || !is_norm_block(line.block, sex, set)) continue;
    const analysis::KeyValue norm = analysis::split_key_value(line.text);
    if (!norm.has_separator) continue;
    widest = std::max(widest, std::count(norm.value.begin(), norm.value.end(), ',') + 1);
  }
  return static_cast<int>(std::min<std::ptrdiff_t>(widest, most_columns));
}

struct Choice {
  int column = 0;
  std::string meaning;
};

std::string position(int column, int width) {
  return " (column " + std::to_string(column + 1) + " of " + std::to_string(width) + ")";
}

Choice by_stage(const std::vector<Stage> &stages, int width, const Growth &growth) {
  const int match = analysis::match_stage(stages, growth.age.value_or(never), dental_value(growth));
  const int column = match >= 0 ? match : width - 1;
  const std::string name = framework::utf8_for_display(stages[static_cast<std::size_t>(column)].name);
  return {column, name + (match >= 0 ? "" : ", as no stage fits") + position(column, width)};
}

Choice by_age(int width, const Growth &growth) {
  if (!growth.age) return {width - 1, "adults, as the age is not stated" + position(width - 1, width)};
  const double year =
      std::clamp(std::floor(*growth.age) - first_column_age, 0.0, static_cast<double>(width - 1));
  const int column = static_cast<int>(year);
  const std::string bound = column == 0 ? " and younger" : column == width - 1 ? " and older" : "";
  return {column, std::to_string(column + first_column_age) + " years" + bound + position(column, width)};
}

Choice choose(const analysis::DefinitionFile &file, int sex, StageSet set, const Growth &growth) {
  const int width = widest_list(file, sex, set);
  if (width == 0) return {0, "none"};
  if (width == 1) return {0, "one for all ages"};
  const std::vector<Stage> stages = analysis::stages(file, sex, set);
  return static_cast<int>(stages.size()) == width ? by_stage(stages, width, growth) : by_age(width, growth);
}

std::string stage_name(const std::vector<Stage> &stages, double age, double dental) {
  const int index = analysis::match_stage(stages, age, dental);
  return index < 0 ? std::string()
                   : framework::utf8_for_display(stages[static_cast<std::size_t>(index)].name);
}

}  // namespace

NormColumns norm_columns(const analysis::DefinitionFile &file, int sex, const Growth &growth) {
  const Choice first = choose(file, sex, StageSet::first, growth);
  const Choice second = choose(file, sex, StageSet::second, growth);
  return {second.column * 100 + first.column, first.meaning};
}

GrowthStages growth_stages(const analysis::DefinitionFile &file, int sex, const Growth &growth) {
  const std::vector<Stage> stages = analysis::stages(file, sex);
  return {stage_name(stages, growth.age.value_or(never), never),
          stage_name(stages, never, dental_value(growth))};
}

}  // namespace app
