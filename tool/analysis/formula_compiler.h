#pragma once
// Turns formula text into instructions. The formula language is defined by what happens to its text: terms
// are replaced by variables keyword by keyword, then operators by the variables of their results. None of
// that depends on the measured values, so it is done once, here, and the instructions that it leaves behind
// can be run on any number of tracings.

#include <string>
#include <string_view>
#include <vector>

#include "tool/analysis/formula.h"
#include "tool/analysis/formula_scanner.h"
#include "tool/analysis/mode.h"
#include "tool/analysis/name_index.h"

namespace analysis {

class FormulaCompiler {
 public:
  /// `items` resolves item references and may be null; `diagnose` also looks for faults in the text.
  FormulaCompiler(Program &program, Mode mode, const NameIndex *items, bool diagnose)
      : program_(program), mode_(mode), items_(items), diagnose_(diagnose) {
    constexpr std::size_t usual_length = 120;
    work_.reserve(usual_length);
    expression_.reserve(usual_length);
    tokens_.reserve(usual_length / 4);
    terms_.reserve(usual_length / 10);
  }

  enum class Extent {
    whole,  ///< up to the first ';'
    group,  ///< when the text starts with '(': only up to the first ')'
  };

  /// Compiles `text`, which must outlive the program. `base` is the number of table entries already in use.
  Formula compile(std::string_view text, Extent extent = Extent::whole, std::size_t base = 0);
  /// The same written where it stays.
  void compile(std::string_view text, Formula &formula, Extent extent = Extent::whole, std::size_t base = 0);

  /// A single term whose keyword has been read: `text` starts right behind it.
  Formula compile_term(Term term, std::string_view text);

  /// The text as the last compilation left it: evaluated parts are blank.
  const std::string &consumed_text() {
    blank(0, evaluated_end_);
    return work_;
  }

  /// Whether the last formula may hold a choice: its text has a ';', or more than single terms.
  bool may_choose() const { return evaluated_end_ <= work_.size() || !is_single_term_; }

  struct Point {
    PointReference point;
    std::size_t end;  ///< position behind the expression
  };
  /// The first point expression of the text.
  std::optional<Point> compile_point(std::string_view text);

 private:
  void start(std::string_view text, std::size_t base);
  void finish(bool group, Operand lone, Formula &formula) const;
  void substitute_terms(std::size_t end);
  void substitute(Token &term);
  static bool covers(const Token &term, std::size_t end);
  void build_expression(std::size_t end);
  std::size_t append_term(Term term, std::size_t after_keyword);
  std::size_t append_measurement(Term term, std::size_t after_keyword, Instruction &instruction);
  std::size_t append_model(std::size_t after_keyword, Instruction &instruction);
  std::size_t append_reference(std::size_t after_keyword, Instruction &instruction);

  std::optional<Point> point_at_or_after(std::size_t from, int depth);
  Point construction(const Token &token, int depth);
  Point named_point(const Token &token);
  std::size_t closing_parenthesis(std::size_t from) const;
  std::size_t consume_tokens(std::size_t begin, std::size_t end);
  PointReference last_point() const { return PointReference::to_node(program_.points.size() - 1); }

  Operand reduce(std::string &expression, int depth);
  void reduce_operators(std::string &expression, int pass, int depth);
  void reduce_choice(const std::string &expression);
  struct Side {
    Operand operand;
    std::size_t edge;  ///< first byte of a left operand, byte behind a right operand
  };
  Side left_operand(const std::string &expression, std::size_t at, int depth);
  Side right_operand(const std::string &expression, std::size_t at, int depth);
  Operand group_operand(std::string group, int depth);

  std::size_t used() const { return used_; }
  bool full() const { return used() >= max_values; }
  /// The next instruction, to be filled in: whole ones are never copied.
  Instruction &append(Operation operation) {
    Instruction &instruction = program_.instructions.emplace_back();
    instruction.operation = operation;
    ++used_;
    return instruction;
  }
  /// Notes whether an operand is an entry that the formula itself has not written yet.
  Operand read(Operand operand) {
    if (operand.variable >= static_cast<int>(used())) reads_ahead_ = true;
    return operand;
  }
  void blank(std::size_t begin, std::size_t end);
  void fault(std::size_t position);
  void look_for_faults(std::size_t end);

  Program &program_;
  Mode mode_;
  const NameIndex *items_;
  bool diagnose_;

  std::string_view source_;
  std::string work_;
  std::size_t evaluated_end_ = 0;  ///< the formula itself is blank up to here once it is compiled
  std::string expression_;
  std::vector<Token> tokens_;
  std::vector<std::uint32_t> terms_;  ///< tokens that are terms, in the order of substitution
  std::size_t next_token_ = 0;        ///< where the search for points goes on
  std::size_t base_ = 0;
  std::size_t first_ = 0;
  std::size_t used_ = 0;  ///< table entries, those before the formula included
  std::int32_t malformed_at_ = -1;
  bool reads_ahead_ = false;
  bool is_single_term_ = false;
};

}  // namespace analysis
