#pragma once
// What an Analysis keeps of its file: items, their compiled formulas, and where their norms stand.

#include <array>
#include <optional>
#include <vector>

#include "tool/analysis/analysis.h"
#include "tool/analysis/formula.h"
#include "tool/analysis/name_index.h"
#include "tool/analysis/norms.h"

namespace analysis {

/// One of the texts behind the ';' of a choice.
struct Alternative {
  bool is_text;  ///< holds a double quote: shown as it is, without its quotes
  std::string_view text;
  Formula formula;
};

struct ItemPlan {
  Formula formula;
  bool chooses = false;           ///< holds "switch"
  bool has_alternatives = false;  ///< and a ';'
  std::uint32_t first_alternative = 0;
  std::uint32_t alternative_count = 0;
};

struct CompiledItems {
  explicit CompiledItems(std::size_t expected_items) : by_text(expected_items) {}

  std::vector<Item> items;
  std::vector<ItemPlan> plans;  ///< parallel to items
  /// Parallel to items: the item that by_text gives for its text.
  std::vector<std::uint32_t> first_with_text;
  std::vector<Alternative> alternatives;
  Program program;
  NameIndex by_text;
  struct Norms {
    std::optional<NormLine> line[2][2];  ///< [mean, sd][male, female]
  };
  std::vector<Norms> norms;  ///< parallel to items; only the first item with a text has them
  bool diagnosed;

  const std::optional<NormLine> &norm_line(std::size_t item, NormKind which, int sex) const {
    return norms[first_with_text[item]].line[which == NormKind::mean ? 0 : 1][sex == 1 ? 0 : 1];
  }
};

}  // namespace analysis
