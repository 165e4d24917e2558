#pragma once
// The words of the formula language and what stands in their parentheses.

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "apps/ceph/check_formula_scanner.h"

namespace app::check {

struct MeasurementRule {
  std::string_view word;
  std::size_t points;
  bool has_precision;
};
constexpr std::array<MeasurementRule, 7> measurement_rules{{
    {"len", 2, false},
    {"lenR", 2, false},
    {"lenD", 2, false},
    {"angle1", 3, false},
    {"angle2", 4, false},
    {"angle3", 3, true},
    {"angle4", 4, true},
}};

struct ReferenceRule {
  std::string_view word;
  bool wants_mean;
  bool wants_sd;
};
constexpr std::array<ReferenceRule, 4> reference_rules{{
    {"case", false, false},
    {"sdu", true, true},
    {"mean", true, false},
    {"sdv", false, true},
}};

enum class Number { none, optional_whole, required };
struct ConstructionRule {
  std::string_view word;
  std::size_t points;
  Number number;
};
constexpr std::array<ConstructionRule, 5> construction_rules{{
    {"mid", 2, Number::none},
    {"vertical", 3, Number::none},
    {"cross", 4, Number::none},
    {"AngleBisector", 3, Number::optional_whole},
    {"extension", 2, Number::required},
}};

constexpr std::array<std::string_view, 13> term_words{"len",    "lenR",   "lenD",  "angle1", "angle2",
                                                      "angle3", "angle4", "Model", "case",   "sdu",
                                                      "mean",   "sdv",    "switch"};
constexpr std::array<std::string_view, 6> construction_words{"mid",           "vertical",  "cross",
                                                             "AngleBisector", "extension", "EffectiveA"};
constexpr std::array<std::string_view, 16> model_tokens{
    "[UCAW]", "[UCAL]", "[LCAW]", "[LCAL]", "[UBAW]", "[UBAL]", "[LBAW]", "[LBAL]",
    "[UATW]", "[UTTW]", "[LATW]", "[LTTW]", "[ATR]",  "[TTR]",  "[PLTU]", "[PLTL]"};
constexpr std::array<std::string_view, 12> tooth_tokens{"[U1]", "[U2]", "[U3]", "[U4]", "[U5]", "[U6]",
                                                        "[L1]", "[L2]", "[L3]", "[L4]", "[L5]", "[L6]"};

inline bool holds(std::span<const std::string_view> words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// The rule of a word; null: there is none.
template <typename Rules>
auto find_rule(const Rules &rules, std::string_view word) {
  const auto found = std::find_if(rules.begin(), rules.end(), [&](const auto &r) { return r.word == word; });
  return found == rules.end() ? nullptr : &*found;
}

/// Reports the word that was just read at `start` and is none of `known`, and skips its arguments. `wanted`
/// is what could stand here, with its article.
void report_unknown_word(FormulaScanner &scanner, std::size_t start, std::string_view name,
                         std::span<const std::string_view> known, std::string_view wanted);

void report_point_count(FormulaScanner &scanner, std::size_t start, std::string_view word, std::size_t wanted,
                        std::size_t found);

}  // namespace app::check
