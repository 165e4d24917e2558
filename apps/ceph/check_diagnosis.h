#pragma once
// "Param:" and "Diag:" blocks: thresholds, labels and sentences.

#include <vector>

#include "apps/ceph/check_references.h"
#include "apps/ceph/check_source.h"
#include "tool/analysis/mode.h"

namespace app::check {

/// Fed with the non-blank content lines of the two blocks in file order.
class DiagnosisCheck {
 public:
  DiagnosisCheck(Source &source, analysis::RecordKind kind) : source_(source), kind_(kind) {}

  void parameters(std::size_t line);
  void sentence(std::size_t line);
  void finish();
  std::vector<FormulaLine> take_formulas() { return std::move(formulas_); }

 private:
  void thresholds(std::size_t line, std::string_view text);
  void rule(std::size_t line, std::string_view text, std::size_t separator);
  void markers(std::size_t line, std::string_view text, bool last);

  Source &source_;
  analysis::RecordKind kind_;
  std::vector<FormulaLine> formulas_;
  bool seen_parameters_ = false;
  bool reported_missing_parameters_ = false;
  bool pending_ = false;  // the last sentence ends in [NEXT]
  std::size_t last_sentence_ = 0;
};

}  // namespace app::check
