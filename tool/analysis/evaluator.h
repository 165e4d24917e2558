#pragma once
// Runs compiled formulas on one tracing for one patient. An Evaluator lives for one call: it remembers the
// items it has evaluated, finds cycles, and keeps the first reason for not taking a number at face value.

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tool/analysis/analysis.h"
#include "tool/analysis/compiled_items.h"
#include "tool/geometry/CPointD.h"

namespace analysis {

using ValueTable = std::array<double, value_table_size>;

/// What evaluating an item led to.
struct ItemOutcome {
  enum class Kind {
    number,
    text,         ///< a choice selected a text; the value is 0
    unformed,     ///< a cast prediction that cannot be formed
    bare_choice,  ///< a choice without alternatives; the value is its index
  };
  Kind kind = Kind::number;
  double value = 0.0;
  std::string_view text;  ///< with its quotes

  /// What a reference to the item counts: texts and predictions that cannot be formed count 0.
  double number() const { return kind == Kind::number || kind == Kind::bare_choice ? value : 0.0; }
};

class Evaluator {
 public:
  enum class Reasons { ignore, collect };

  /// `analysis` resolves item references and may be null.
  Evaluator(const Tracing &tracing, const Patient &patient, const Analysis *analysis, Reasons reasons);

  /// Forgets what it knows and goes on with another tracing of the same kind of record.
  void rebind(const Tracing &tracing);

  double run(const Program &program, const Formula &formula, ValueTable &values);
  /// The same on a fresh table.
  double run(const Program &program, const Formula &formula);
  CPointD point(const Program &program, PointReference reference);

  /// Valid until the item is evaluated again or the tracing changes.
  const ItemOutcome &item(std::size_t index);
  /// Writes the norm as it stands in the file, lengths scaled by the magnification; leaves `text` alone when
  /// there is none.
  void norm_text(std::size_t index, NormKind which, int kind, std::string &text);
  /// The norm as a number; empty when there is none or its text is no number.
  std::optional<double> norm_number(std::size_t index, NormKind which);
  /// The text of a norm field: a number as it is, a formula evaluated; lengths (kind 0) scaled.
  std::string norm_field_text(std::string_view field, int kind);

  /// The first reason since the last call.
  std::optional<Reason> take_reason();
  void add_reason(Reason::Kind kind, std::string_view subject, std::size_t position = 0);

 private:
  double compute(const Program &program, const Instruction &instruction, const ValueTable &values);
  double measure(const Program &program, const Instruction &instruction);
  double effective(const Operand &operand, const ValueTable &values) const;
  double reference(const Instruction &instruction);
  double model_item(const Instruction &instruction);
  double choose(const Program &program, const Instruction &instruction, const ValueTable &values) const;
  CPointD landmark(std::size_t landmark);
  std::string_view landmark_name(std::size_t landmark) const;
  CPointD construct(const Program &program, const PointNode &node);
  CPointD effective_a_point() const;
  void evaluate_item(std::size_t index, ItemOutcome &outcome);
  void enter_item(std::size_t index, ItemOutcome &outcome);
  void enter_item_for_reasons(std::size_t index, ItemOutcome &outcome,
                              std::vector<std::optional<Reason>> &reasons);
  bool may_enter(std::size_t index);
  ItemOutcome pick_alternative(const ItemPlan &plan, double index);
  std::string evaluate_norm_formula(std::string_view field);
  std::optional<Reason> *reason_slot() { return collect_ ? &reason_ : nullptr; }

  const Tracing *tracing_;
  Patient patient_;
  const Analysis *analysis_;
  bool collect_;
  std::optional<Reason> reason_;

  /// What is known of the items, by item: under the patient's magnification, and under the one that norm
  /// formulas are evaluated with. Reasons are kept only where they are collected.
  struct Memory {
    std::vector<ItemOutcome> outcomes;
    std::vector<std::optional<Reason>> reasons;
  };
  Memory memory_[2];
  /// By item: what is remembered, and what is under evaluation.
  enum Status : unsigned char {
    known = 1,
    known_in_norm_formula = 2,
    running_value = 4,
    running_mean = 8,
    running_sd = 16,
  };
  std::vector<unsigned char> status_;
  bool in_norm_formula_ = false;
  int depth_ = 0;
  int cuts_ = 0;         ///< references that were not followed because they lead back
  int evaluations_ = 0;  ///< items evaluated for the outermost one
};

}  // namespace analysis
