#pragma once
// A strict reader of the formula language, for people who write analyses. The engine evaluates a formula
// leniently: what it does not understand counts as 0 or is skipped. This reader reports all of that, with its
// place, and never computes anything. Formulas are code page 932; all positions are bytes from the start of
// the given text.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tool/analysis/mode.h"

namespace app::check {

enum class Severity { error, warning };

struct FormulaProblem {
  std::size_t position;
  Severity severity;
  std::string message;  ///< UTF-8
};

/// A name in square brackets.
struct PointUse {
  std::size_t position;  ///< of the name's first byte
  std::string_view name;
};

/// An item named by case, sdu, mean or sdv.
struct ItemUse {
  std::size_t position;  ///< of the item text's first byte
  std::string_view item;
  bool wants_mean;
  bool wants_sd;
};

/// Where a formula stands decides what may surround it.
enum class FormulaPlace {
  item,       ///< of an item line: kind suffix and alternatives may follow
  norm,       ///< of a norm field: separator and number of decimals must follow
  diagnosis,  ///< of a "Diag:" line: nothing may follow
  label,      ///< of a computed label in a display setting: nothing may follow
};

struct FormulaReport {
  std::vector<FormulaProblem> problems;
  std::vector<PointUse> points;
  std::vector<ItemUse> items;
  bool is_choice = false;             ///< the formula is a switch
  std::size_t alternative_count = 0;  ///< texts after the first ';'
};

FormulaReport check_formula(std::string_view formula, analysis::RecordKind kind, FormulaPlace place);

/// A number as people write it: an optional sign, digits with at most one point, blanks around it.
bool is_plain_number(std::string_view text);

}  // namespace app::check
