#include "tool/analysis/norms.h"

#include <algorithm>

#include "tool/framework/text/ascii.h"
#include "tool/framework/text/decimal.h"

namespace analysis {

bool is_norm_block(LineClass block, NormKind which, int sex) {
  const bool mean = which == NormKind::mean;
  const bool male = sex == 1;
  switch (block) {
    case LineClass::mean:
    case LineClass::mean2:
      return mean;
    case LineClass::mean_male:
    case LineClass::mean2_male:
      return mean && male;
    case LineClass::mean_female:
    case LineClass::mean2_female:
      return mean && !male;
    case LineClass::sd:
    case LineClass::sd2:
      return !mean;
    case LineClass::sd_male:
    case LineClass::sd2_male:
      return !mean && male;
    case LineClass::sd_female:
    case LineClass::sd2_female:
      return !mean && !male;
    default:
      return false;
  }
}

std::optional<NormLine> find_norm_line(const DefinitionFile &file, std::string_view item, NormKind which,
                                       int sex) {
  for (const Line &line : file.lines()) {
    if (line.own != LineClass::content || line.text.empty() || !is_norm_block(line.block, which, sex))
      continue;
    const KeyValue norm = split_key_value(line.text);
    if (norm.key == item) return NormLine{norm.value, static_cast<int>(line.block) > 100};
  }
  return std::nullopt;
}

std::string_view norm_column(const NormLine &line, int age_code) {
  constexpr int columns_per_set = 100;
  return list_field(line.columns, line.second_set ? age_code / columns_per_set : age_code % columns_per_set);
}

void write_norm_number(std::string_view number, int kind, double magnification, std::string &text) {
  if (kind != 0) {
    text = number;
    return;
  }
  const std::size_t point = number.find('.');
  std::size_t decimals = 0;
  if (point != std::string_view::npos) {
    const auto first = number.begin() + static_cast<std::ptrdiff_t>(point) + 1;
    decimals = static_cast<std::size_t>(std::find_if_not(first, number.end(), framework::is_digit) - first);
  }
  decimals = std::max<std::size_t>(decimals, 1);
  text = framework::fixed(framework::decimal_value(number) * (magnification / norm_magnification), 6);
  const std::size_t written_point = text.find('.');
  if (written_point != std::string::npos) text.resize(std::min(text.size(), written_point + 1 + decimals));
}

bool is_written_as_it_is(std::string_view plain_number, int kind, double magnification) {
  if (kind != 0) return true;
  return magnification == norm_magnification && plain_number.find('.') < plain_number.size() - 1;
}

NormFormula split_norm_formula(std::string_view field) {
  const char last = field.empty() ? '0' : field.back();
  return {field.substr(0, field.size() - std::min<std::size_t>(field.size(), 2)),
          framework::is_digit(last) ? last - '0' : 0};
}

}  // namespace analysis
