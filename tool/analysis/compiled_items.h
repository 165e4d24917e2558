#pragma once
// What an Analysis keeps of its file: items, their compiled formulas, and where their norms stand.

#include <cstdint>
#include <memory_resource>
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
  /// Where an item's norms stand among norm_lines, counted from 1; 0: it has none.
  struct Norms {
    std::uint32_t line[2][2];  ///< [mean, sd][male, female]
  };

  explicit CompiledItems(std::size_t expected_items)
      : memory(expected_items * bytes_per_item), by_text(expected_items, &memory) {}

  /// One block holds everything below: a file is parsed at every call, and many blocks would cost more than
  /// that.
  static constexpr std::size_t bytes_per_item = 1024;
  std::pmr::monotonic_buffer_resource memory;
  std::pmr::vector<Item> items{&memory};
  std::pmr::vector<ItemPlan> plans{&memory};  ///< parallel to items
  /// Parallel to items: the item that by_text gives for its text.
  std::pmr::vector<std::uint32_t> first_with_text{&memory};
  std::pmr::vector<Alternative> alternatives{&memory};
  Program program{&memory};
  NameIndex by_text;
  std::pmr::vector<Norms> norms{&memory};  ///< parallel to items; only the first item with a text has them
  std::pmr::vector<NormLine> norm_lines{&memory};
  bool diagnosed = false;

  /// Null when the item has none.
  const NormLine *norm_line(std::size_t item, NormKind which, int sex) const {
    const std::uint32_t line =
        norms[first_with_text[item]].line[which == NormKind::mean ? 0 : 1][sex == 1 ? 0 : 1];
    return line == 0 ? nullptr : &norm_lines[line - 1];
  }
};

}  // namespace analysis
