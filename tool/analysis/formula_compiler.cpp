#include "tool/analysis/formula_compiler.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "tool/analysis/formula_variables.h"
#include "tool/analysis/landmarks.h"
#include "tool/framework/text/ascii.h"
#include "tool/framework/text/cp932.h"
#include "tool/framework/text/decimal.h"

namespace analysis {
namespace {

constexpr std::size_t npos = std::string_view::npos;

/// What a measurement term needs.
struct Measurement {
  Operation operation;
  std::uint8_t points;
  bool has_digit;
};

Measurement measurement(Term term) {
  switch (term) {
    case Term::len_r:
      return {Operation::distance_x, 2, false};
    case Term::len_d:
      return {Operation::distance_y, 2, false};
    case Term::len:
      return {Operation::distance, 2, false};
    case Term::angle1:
      return {Operation::vertex_angle, 3, false};
    case Term::angle3:
      return {Operation::vertex_angle, 3, true};
    case Term::angle2:
      return {Operation::line_angle, 4, false};
    case Term::angle4:
      return {Operation::line_angle, 4, true};
    default:
      return {Operation::nothing, 0, false};
  }
}

Operation reference_operation(Term term) {
  switch (term) {
    case Term::item_sd_units:
      return Operation::item_sd_units;
    case Term::item_mean:
      return Operation::item_mean;
    case Term::item_sd:
      return Operation::item_sd;
    default:
      return Operation::item_value;
  }
}

struct ModelToken {
  std::string_view text;
  std::int16_t number;
};

/// Arch widths and lengths (C coronal, B basal), tooth sums (A six, T twelve teeth), ratios, predictions.
constexpr ModelToken model_tokens[] = {
    {"([UCAW])", 6},  {"([UCAL])", 7},  {"([LCAW])", 14}, {"([LCAL])", 15},
    {"([UBAW])", 24}, {"([UBAL])", 25}, {"([LBAW])", 26}, {"([LBAL])", 27},
    {"([UATW])", 16}, {"([UTTW])", 17}, {"([LATW])", 18}, {"([LTTW])", 19},
    {"([ATR])", 20},  {"([TTR])", 21},  {"([PLTU])", 22}, {"([PLTL])", 23},
};

int argument_count(PointForm form) {
  switch (form) {
    case PointForm::midpoint:
    case PointForm::extension:
      return 2;
    case PointForm::foot:
    case PointForm::bisector:
      return 3;
    case PointForm::crossing:
      return 4;
    default:
      return 0;
  }
}

PointNode::Kind node_kind(PointForm form) {
  switch (form) {
    case PointForm::midpoint:
      return PointNode::Kind::midpoint;
    case PointForm::foot:
      return PointNode::Kind::foot;
    case PointForm::crossing:
      return PointNode::Kind::crossing;
    case PointForm::bisector:
      return PointNode::Kind::bisector;
    case PointForm::extension:
      return PointNode::Kind::extension;
    case PointForm::effective_a:
      return PointNode::Kind::effective_a;
    default:
      return PointNode::Kind::named;
  }
}

/// Appends a text without its runs of blanks: every reader of an expression passes over blanks.
void append_without_blank_runs(std::string_view text, std::string &expression) {
  for (const char c : text) {
    if (!framework::is_space(c)) {
      expression += c;
    } else if (expression.empty() || expression.back() != ' ') {
      expression += ' ';
    }
  }
}

}  // namespace

Formula FormulaCompiler::compile(std::string_view text, Extent extent, std::size_t base) {
  Formula formula;
  compile(text, formula, extent, base);
  return formula;
}

void FormulaCompiler::compile(std::string_view text, Formula &formula, Extent extent, std::size_t base) {
  start(text, base);
  const bool group = extent == Extent::group && !text.empty() && text.front() == '(';
  const std::size_t end = std::min(group ? text.find_first_of(");") : text.find(';'), text.size());
  if (group) {
    blank(0, 1);
    blank(end, end + 1);
  }
  substitute_terms(end);
  if (diagnose_) look_for_faults(end);
  is_single_term_ = terms_.size() == 1 && covers(tokens_[terms_.front()], end);
  Operand lone;
  if (!is_single_term_) {
    build_expression(end);
    lone = reduce(expression_, 0);
  }
  evaluated_end_ = end + 1;
  finish(group, lone, formula);
}

Formula FormulaCompiler::compile_term(Term term, std::string_view text) {
  start(text, 0);
  find_tokens(work_, tokens_);
  append_term(term, 0);
  Formula formula;
  finish(false, {}, formula);
  return formula;
}

void FormulaCompiler::start(std::string_view text, std::size_t base) {
  source_ = text;
  work_.assign(text);
  base_ = std::min(base, max_values);
  first_ = program_.instructions.size();
  used_ = base_;
  malformed_at_ = -1;
  reads_ahead_ = false;
  next_token_ = 0;
  evaluated_end_ = 0;
}

void FormulaCompiler::finish(bool group, Operand lone, Formula &formula) const {
  formula.first = static_cast<std::uint32_t>(first_);
  formula.count = static_cast<std::uint32_t>(used_ - base_);
  formula.base = static_cast<std::uint32_t>(base_);
  formula.malformed_at = malformed_at_;
  formula.reads_ahead = reads_ahead_;
  if (formula.count > 0) {
    formula.result = variable(static_cast<std::int16_t>(used() - 1));
  } else {
    formula.result = group ? lone : Operand{};
    if (diagnose_ && !group && malformed_at_ < 0) formula.malformed_at = 0;
  }
}

void FormulaCompiler::blank(std::size_t begin, std::size_t end) {
  const std::size_t stop = std::min(end, work_.size());
  if (begin < stop) std::memset(work_.data() + begin, ' ', stop - begin);
}

// Terms
// ---------------------------------------------------------------------------------------------------------

void FormulaCompiler::substitute_terms(std::size_t end) {
  find_tokens(work_, tokens_);
  terms_.clear();
  for (std::uint32_t i = 0; i < tokens_.size() && tokens_[i].begin < end; ++i) {
    if (tokens_[i].kind == Token::Kind::term) terms_.push_back(i);
  }
  // Keyword by keyword in the order of the terms, from left to right within one: that numbers the variables.
  if (terms_.size() > 1) {
    std::sort(terms_.begin(), terms_.end(), [&](std::uint32_t a, std::uint32_t b) {
      return std::pair(tokens_[a].term, a) < std::pair(tokens_[b].term, b);
    });
  }
  for (const std::uint32_t term : terms_) {
    if (full()) return;
    // An earlier term may have swallowed this one while it looked for its points.
    if (tokens_[term].kind == Token::Kind::consumed) continue;
    next_token_ = term + 1;
    substitute(tokens_[term]);
  }
}

void FormulaCompiler::substitute(Token &term) {
  term.close = static_cast<std::uint32_t>(append_term(term.term, term.behind));
  term.kind = Token::Kind::variable;
  term.entry = static_cast<std::uint8_t>(used());
  write_variable(used(), work_.data() + term.begin);
  blank(term.begin + variable_bytes, term.behind);
}

/// Whether an evaluated term is the whole formula, as it mostly is: then nothing is left to reduce.
bool FormulaCompiler::covers(const Token &term, std::size_t end) {
  return term.kind == Token::Kind::variable && term.begin == 0 && term.close >= end;
}

/// The text up to `end` with every term as its variable.
void FormulaCompiler::build_expression(std::size_t end) {
  expression_.clear();
  std::size_t at = 0;
  for (const Token &token : tokens_) {
    if (token.kind != Token::Kind::variable || token.begin < at) continue;
    append_without_blank_runs(std::string_view(work_).substr(at, token.begin - at), expression_);
    expression_.resize(expression_.size() + variable_bytes);
    write_variable(token.entry, expression_.data() + expression_.size() - variable_bytes);
    at = token.close;
    if (at < end && work_[at] != ' ') expression_ += ' ';
  }
  if (at < end) append_without_blank_runs(std::string_view(work_).substr(at, end - at), expression_);
}

/// Appends the term's instruction; the result is the end of the text that it took.
std::size_t FormulaCompiler::append_term(Term term, std::size_t after_keyword) {
  std::size_t end = after_keyword;
  Instruction &instruction = append(Operation::nothing);
  instruction.position =
      static_cast<std::uint32_t>(after_keyword - std::min(after_keyword, keyword(term).size()));
  switch (term) {
    case Term::model:
      end = append_model(after_keyword, instruction);
      break;
    case Term::item_value:
    case Term::item_sd_units:
    case Term::item_mean:
    case Term::item_sd:
      instruction.operation = reference_operation(term);
      end = append_reference(after_keyword, instruction);
      break;
    default:
      end = append_measurement(term, after_keyword, instruction);
      break;
  }
  return end;
}

std::size_t FormulaCompiler::closing_parenthesis(std::size_t from) const {
  std::size_t at = from;
  while (at < work_.size() && work_[at] != ')') ++at;
  return at;
}

/// Blanks evaluated text; what began in it is gone.
std::size_t FormulaCompiler::consume_tokens(std::size_t begin, std::size_t end) {
  blank(begin, end);
  for (Token &token : tokens_) {
    if (token.begin >= end) break;
    if (token.begin >= begin) token.kind = Token::Kind::consumed;
  }
  return std::min(end, work_.size());
}

std::size_t FormulaCompiler::append_measurement(Term term, std::size_t after_keyword,
                                                Instruction &instruction) {
  const Measurement needed = measurement(term);
  std::size_t at = stands_at(work_, after_keyword, "(") ? after_keyword : work_.find('(', after_keyword);
  if (at == npos) {
    fault(instruction.position);
    return after_keyword;
  }
  instruction.operation = needed.operation;
  ++at;
  if (needed.has_digit) {
    const bool readable = at < work_.size() && framework::is_digit(work_[at]);
    instruction.precision = readable ? static_cast<std::int8_t>(work_[at] - '0') : std::int8_t{0};
    at = std::min(at + 2, work_.size());  // the digit and its separator
  }
  instruction.point_count = needed.points;
  instruction.on_landmarks = true;
  for (std::size_t k = 0; k < needed.points; ++k) {
    // A term does not stop at its ')' when it looks for its points: the next expression of the text counts.
    const std::optional<Point> point = point_at_or_after(at, 0);
    if (!point) {
      instruction.operation = Operation::nothing;
      instruction.point_count = 0;
      fault(instruction.position);
      break;
    }
    instruction.points[k] = point->point;
    instruction.on_landmarks &= point->point.is_landmark();
    at = point->end;
  }
  return consume_tokens(after_keyword, closing_parenthesis(at) + 1);
}

std::size_t FormulaCompiler::append_model(std::size_t after_keyword, Instruction &instruction) {
  for (const ModelToken &token : model_tokens) {
    if (work_.compare(after_keyword, token.text.size(), token.text) == 0)
      instruction.model_number = token.number;
  }
  if (mode_ == Mode::model) instruction.operation = Operation::model_item;
  if (instruction.model_number < 0 || mode_ != Mode::model) fault(instruction.position);
  return consume_tokens(after_keyword, closing_parenthesis(after_keyword) + 1);
}

std::size_t FormulaCompiler::append_reference(std::size_t after_keyword, Instruction &instruction) {
  const std::size_t open = work_.find('"', after_keyword);
  const std::size_t close = open == npos ? npos : work_.find('"', open + 1);
  instruction.item = Instruction::no_item;
  if (close == npos) {
    instruction.operation = Operation::nothing;
    fault(instruction.position);
    return after_keyword;
  }
  instruction.item_text = source_.substr(open + 1, close - open - 1);
  if (items_) instruction.item = items_->find(instruction.item_text).value_or(Instruction::no_item);
  return consume_tokens(after_keyword, closing_parenthesis(close) + 1);
}

// Points
// --------------------------------------------------------------------------------------------------------

std::optional<FormulaCompiler::Point> FormulaCompiler::compile_point(std::string_view text) {
  start(text, 0);
  find_tokens(work_, tokens_);
  next_token_ = 0;
  return point_at_or_after(0, 0);
}

std::optional<FormulaCompiler::Point> FormulaCompiler::point_at_or_after(std::size_t from, int depth) {
  for (; next_token_ < tokens_.size(); ++next_token_) {
    const Token &token = tokens_[next_token_];
    if (token.kind != Token::Kind::point || token.begin < from) continue;
    ++next_token_;
    return token.form == PointForm::name ? named_point(token) : construction(token, depth);
  }
  return std::nullopt;
}

FormulaCompiler::Point FormulaCompiler::named_point(const Token &token) {
  const std::size_t length = token.close - token.behind;
  const std::size_t end = token.close + std::size_t{1};
  const int landmark = landmark_at(record_kind(mode_), source_, token.behind, length);
  if (landmark != no_landmark) return {PointReference::to_landmark(landmark), end};
  PointNode &node = program_.points.emplace_back();
  node.kind = PointNode::Kind::named;
  node.name = source_.substr(token.behind, length);
  return {last_point(), end};
}

FormulaCompiler::Point FormulaCompiler::construction(const Token &token, int depth) {
  constexpr int max_depth = 1000;  // far beyond any line of a file; it only guards the stack
  PointNode node;
  node.kind = node_kind(token.form);
  std::size_t at = token.behind;
  for (int k = 0; k < argument_count(token.form); ++k) {
    const std::optional<Point> argument = depth < max_depth ? point_at_or_after(at, depth + 1) : std::nullopt;
    if (argument) {
      node.arguments[static_cast<std::size_t>(k)] = argument->point;
      at = argument->end;
    } else {
      node.arguments[static_cast<std::size_t>(k)] = (program_.points.emplace_back(), last_point());
      fault(token.begin);
    }
  }
  const std::size_t close = closing_parenthesis(at);
  if (token.form == PointForm::bisector || token.form == PointForm::extension) {
    constexpr std::size_t max_number_bytes = 19;
    const std::string_view rest = std::string_view(work_).substr(at, close - at);
    const std::size_t comma = rest.rfind(',');
    const std::string_view written =
        comma == npos ? std::string_view() : rest.substr(comma + 1).substr(0, max_number_bytes);
    node.number = token.form == PointForm::extension ? framework::decimal_value(written)
                                                     : framework::whole_number(written);
  }
  program_.points.push_back(node);
  return {last_point(), std::min(close + 1, work_.size())};
}

// Faults
// --------------------------------------------------------------------------------------------------------

void FormulaCompiler::fault(std::size_t position) {
  if (malformed_at_ < 0) malformed_at_ = static_cast<std::int32_t>(position);
}

/// What is left of the text once its terms are gone may hold numbers, variables, operators and one choice
/// only.
void FormulaCompiler::look_for_faults(std::size_t end) {
  int depth = 0;
  for (std::size_t at = 0; at < end; ++at) {
    const char c = work_[at];
    if (stands_at(work_, at, "switch")) {
      at += 5;
    } else if (c == 'd' && at + 2 < end && framework::is_digit(work_[at + 1]) &&
               framework::is_digit(work_[at + 2])) {
      at += 2;
    } else if (c == '(') {
      ++depth;
    } else if (c == ')') {
      if (--depth < 0) return fault(at);
    } else if (!framework::is_space(c) && !framework::is_digit(c) &&
               std::string_view(".,+-*/<>=").find(c) == npos) {
      return fault(at);
    }
  }
  if (depth != 0) fault(end);
}

}  // namespace analysis
