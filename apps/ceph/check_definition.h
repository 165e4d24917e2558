#pragma once
// The rules for one analysis definition file: items, norms, stages, diagnosis lines.

#include <set>
#include <string>

#include "apps/ceph/check_source.h"
#include "tool/analysis/mode.h"

namespace app::check {

struct Vocabulary {
  analysis::RecordKind kind;
  std::set<std::string, std::less<>> user_points;  ///< names that the checker was told of, code page 932
};

/// What a definition file holds, for the rules about whole folders.
struct DefinitionSummary {
  bool has_items = false;
  bool has_norms = false;
  bool has_title = false;
};

DefinitionSummary check_definition(Source &source, const Vocabulary &vocabulary);

/// Reports the points of a formula that are neither landmarks nor announced user points.
void check_points(Source &source, std::size_t line, std::string_view formula, const FormulaReport &report,
                  const Vocabulary &vocabulary);
/// The same for one name, which is a part of the line's text.
void check_point(Source &source, std::size_t line, std::string_view name, const Vocabulary &vocabulary);

}  // namespace app::check
