#pragma once
// Reads one expression strictly, by recursive descent: operators, groups, terms.

#include "apps/ceph/check_formula_points.h"
#include "apps/ceph/check_formula_scanner.h"
#include "apps/ceph/check_formula_words.h"
#include "tool/analysis/mode.h"

namespace app::check {

class ExpressionReader {
 public:
  /// `base` is the position of `text` in the caller's formula.
  ExpressionReader(std::string_view text, std::size_t base, analysis::RecordKind kind, FormulaReport &report)
      : scanner_(text, base, report), points_(scanner_, kind), kind_(kind) {}

  /// Reads the word if the text goes on with it.
  bool take_word(std::string_view word);
  /// The whole text as one expression.
  void read_alone();
  /// The rest of a choice after "switch"; the number of its conditions.
  std::size_t read_choice();
  /// The rest of a tooth row after "ModelRL".
  void read_tooth_row();

 private:
  void expression();
  void sum();
  void product();
  void operand();
  void group();
  void number();
  void term();
  void variable(std::size_t start, std::string_view name);
  void measurement(const MeasurementRule &rule, std::size_t start);
  void precision(std::string_view word);
  void reference(const ReferenceRule &rule);
  void model_term(std::size_t start, std::string_view word, std::span<const std::string_view> tokens);
  void check_table();

  FormulaScanner scanner_;
  PointReader points_;
  analysis::RecordKind kind_;
  bool seen_term_ = false;
  std::size_t entries_ = 0;  // of the value table: terms and operations
  std::size_t highest_variable_ = 0;
  std::size_t variable_position_ = 0;
  int depth_ = 0;
  int group_depth_ = 0;
};

}  // namespace app::check
