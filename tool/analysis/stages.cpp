#include "tool/analysis/stages.h"

#include <algorithm>
#include <utility>

#include "tool/framework/text/decimal.h"

namespace analysis {
namespace {

constexpr double open_end_years = 200.0;
constexpr double open_end_dental = 100.0;

constexpr std::string_view dental_codes[] = {"I", "IIA", "IIC", "IIIA", "IIIB", "IIIC", "IVA", "IVC", "VA"};

struct Range {
  double low;
  double high;
};

struct RangeText {
  std::string_view low;
  std::string_view high;
  bool has_high;
};

RangeText split_range(std::string_view text) {
  const std::size_t minus = text.find('-');
  if (minus == std::string_view::npos) return {text, {}, false};
  return {text.substr(0, minus), text.substr(minus + 1), true};
}

Range chronological_range(std::string_view text) {
  if (text.empty()) return {0.0, 0.0};
  const RangeText range = split_range(text);
  const double low = framework::decimal_value(range.low);
  if (!range.has_high) return {low, open_end_years};
  const double high = framework::decimal_value(range.high);
  return {low, low != 0.0 && high == 0.0 ? open_end_years : high};
}

Range dental_range(std::string_view text) {
  const RangeText range = split_range(text);
  return {dental_stage(range.low), range.has_high ? dental_stage(range.high) : open_end_dental};
}

/// The class that a line has for a reader of this set: the other set's stage keywords are no keywords to it.
LineClass class_in_set(LineClass own, StageSet set) {
  if (set == StageSet::first) return own;
  const int lowered = static_cast<int>(own) - 100;
  return lowered > 0 ? static_cast<LineClass>(lowered) : LineClass::content;
}

bool is_stage_block(LineClass block, int sex) {
  return block == LineClass::stage || block == (sex == 1 ? LineClass::stage_male : LineClass::stage_female);
}

}  // namespace

double dental_stage(std::string_view code) {
  const std::size_t begin = std::min(code.find_first_not_of(' '), code.size());
  const std::string_view trimmed = code.substr(begin, code.find_last_not_of(' ') + 1 - begin);
  const auto *known = std::find(std::begin(dental_codes), std::end(dental_codes), trimmed);
  return static_cast<double>(known - std::begin(dental_codes));
}

std::vector<StageLine> stage_lines(const DefinitionFile &file, int sex, StageSet set) {
  std::vector<StageLine> found;
  LineClass block = LineClass::content;
  bool chronological = true;
  bool kind_follows = false;
  for (const Line &line : file.lines()) {
    if (kind_follows) chronological = line.text == "Age";
    const LineClass own = class_in_set(line.own, set);
    const bool was_kind = std::exchange(kind_follows, own == LineClass::stage_type);
    if (own != LineClass::content) block = own;
    if (was_kind || own != LineClass::content || line.text.empty() || !is_stage_block(block, sex)) continue;
    const KeyValue parts = split_key_value(line.text);
    found.push_back({parts.key, parts.value, chronological});
  }
  return found;
}

std::vector<Stage> stages(const DefinitionFile &file, int sex, StageSet set) {
  std::vector<Stage> result;
  for (const StageLine &line : stage_lines(file, sex, set)) {
    const Range range = line.chronological ? chronological_range(line.range) : dental_range(line.range);
    result.push_back({std::string(line.name), line.chronological, range.low, range.high});
  }
  return result;
}

std::vector<Stage> numeric_stages(const DefinitionFile &file, int sex) {
  std::vector<Stage> result;
  for (const StageLine &line : stage_lines(file, sex, StageSet::first)) {
    const RangeText text = split_range(line.range);
    const double low = framework::decimal_value(text.low);
    double high = text.has_high ? framework::decimal_value(text.high) : open_end_years;
    if (high <= 0.0) high = open_end_years;
    if (line.range.empty()) high = 0.0;
    result.push_back({std::string(line.name), line.chronological, low, high});
  }
  return result;
}

int match_stage(const std::vector<Stage> &stages, double age_years, double dental) {
  int match = -1;
  for (std::size_t i = 0; i < stages.size(); ++i) {
    const double value = stages[i].chronological ? age_years : dental;
    if (stages[i].low <= value && value < stages[i].high) match = static_cast<int>(i);
  }
  return match;
}

}  // namespace analysis
