#pragma once
// Items that refer to items: absent ones, headings, missing norms, cycles.

#include <string_view>
#include <vector>

#include "apps/ceph/check_source.h"
#include "tool/analysis/definition_file.h"

namespace app::check {

/// A formula and where it stands: a part of the line's text.
struct FormulaLine {
  std::size_t line = 0;
  std::string_view formula;
  FormulaReport report;
};

struct ItemLine : FormulaLine {
  std::string_view text;  ///< all of it, also what the engine cuts off
  bool listed = false;    ///< from the first item set
  bool has_formula() const { return !trim(formula).empty(); }
};

struct NormLine {
  std::size_t line;
  std::string_view item;
  analysis::LineClass block;
  std::vector<FormulaLine> fields;  ///< numbers have an empty report

  bool second_set() const { return static_cast<int>(block) > 100; }
  bool is_mean() const {
    return static_cast<int>(block) % 100 <= static_cast<int>(analysis::LineClass::mean_female);
  }
  /// 1 male, any other value female.
  bool applies_to(int sex) const;
};

void check_references(Source &source, const std::vector<ItemLine> &items, const std::vector<NormLine> &norms,
                      const std::vector<FormulaLine> &other_formulas);

}  // namespace app::check
