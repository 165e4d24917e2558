#pragma once
// Points in a formula: names in square brackets and constructions.

#include "apps/ceph/check_formula_scanner.h"
#include "apps/ceph/check_formula_words.h"
#include "tool/analysis/mode.h"

namespace app::check {

class PointReader {
 public:
  PointReader(FormulaScanner &scanner, analysis::RecordKind kind) : scanner_(scanner), kind_(kind) {}

  void point();
  /// Points between commas; their number.
  std::size_t points();

 private:
  void named_point();
  void construction();
  void arguments(const ConstructionRule &rule, std::size_t start);
  bool starts_number();
  void number(const ConstructionRule &rule);
  void effective_a(std::size_t start);

  FormulaScanner &scanner_;
  analysis::RecordKind kind_;
  int depth_ = 0;
};

}  // namespace app::check
