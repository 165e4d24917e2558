// FormulaCompiler: what is left of a formula once its terms are variables. Operators are replaced by the
// variables of their results, pass by pass, and at last a choice.

#include <algorithm>

#include "tool/analysis/formula_compiler.h"
#include "tool/analysis/formula_variables.h"
#include "tool/framework/text/ascii.h"
#include "tool/framework/text/decimal.h"

namespace analysis {
namespace {

constexpr std::size_t npos = std::string_view::npos;

/// A text that holds nothing but one variable or one number.
Operand lone_operand(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(' ');
  if (begin == npos) return {};
  const std::string_view word = text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
  const bool is_variable = word.front() == 'd';
  if (word.find_first_not_of("0123456789.", is_variable ? 1 : 0) != npos) return {};
  return is_variable ? variable(variable_index(word.substr(1))) : number(framework::decimal_value(word));
}

/// In which pass the operator is computed: 1 products, 2 sums, 3 comparisons; 0 for any other character.
constexpr int operator_pass(char c) {
  switch (c) {
    case '*':
    case '/':
      return 1;
    case '+':
    case '-':
      return 2;
    case '<':
    case '>':
    case '=':
      return 3;
    default:
      return 0;
  }
}

std::size_t find_operator(std::string_view expression, int pass, std::size_t from) {
  for (std::size_t at = from; at < expression.size(); ++at) {
    if (operator_pass(expression[at]) == pass) return at;
  }
  return npos;
}

Operation operator_at(const std::string &expression, std::size_t at) {
  const bool with_equal = at + 1 < expression.size() && expression[at + 1] == '=';
  switch (expression[at]) {
    case '*':
      return Operation::multiply;
    case '/':
      return Operation::divide;
    case '+':
      return Operation::add;
    case '-':
      return Operation::subtract;
    case '<':
      return with_equal ? Operation::less_equal : Operation::less;
    case '>':
      return with_equal ? Operation::greater_equal : Operation::greater;
    default:
      return Operation::equal;
  }
}

std::size_t operator_length(const std::string &expression, std::size_t at) {
  return operator_pass(expression[at]) == 3 && at + 1 < expression.size() && expression[at + 1] == '=' ? 2
                                                                                                       : 1;
}
/// What stands between the '(' of a choice and the ')' that closes it.
std::string_view choice_arguments(std::string_view expression, std::size_t word) {
  const std::size_t open = expression.find('(', word);
  if (open == npos) return {};
  int depth = 0;
  for (std::size_t at = open; at < expression.size(); ++at) {
    if (expression[at] == '(') ++depth;
    if (expression[at] == ')' && --depth == 0) return expression.substr(open + 1, at - open - 1);
  }
  return expression.substr(open + 1);
}

/// A variable or a whole number; a blank argument is 0.
Operand choice_argument(std::string_view argument) {
  const std::size_t begin = argument.find_first_not_of(' ');
  if (begin == npos) return number(0.0);
  if (argument[begin] == 'd') return variable(variable_index(argument.substr(begin + 1, 2)));
  return number(framework::whole_number(argument.substr(begin)));
}

}  // namespace

/// Reduces the expression to its value: a variable when anything was computed, else what stands there alone.
Operand FormulaCompiler::reduce(std::string &expression, int depth) {
  const std::size_t before = used();
  unsigned passes = 0;
  bool may_choose = false;
  for (const char c : expression) {
    passes |= 1U << operator_pass(c);
    may_choose |= c == 's';
  }
  for (const int pass : {1, 2, 3}) {
    if ((passes >> pass & 1U) != 0) reduce_operators(expression, pass, depth);
  }
  if (may_choose) reduce_choice(expression);
  if (used() > before) return variable(static_cast<std::int16_t>(used() - 1));
  return lone_operand(expression);
}

void FormulaCompiler::reduce_operators(std::string &expression, int pass, int depth) {
  std::size_t at = 0;
  while (!full() && (at = find_operator(expression, pass, at)) != npos) {
    const Operation operation = operator_at(expression, at);
    const Side left = left_operand(expression, at, depth);
    const Side right = right_operand(expression, at + operator_length(expression, at), depth);
    if (full()) return;  // the groups of the operands used up the table
    const Operand left_value = read(left.operand);
    const Operand right_value = read(right.operand);
    Instruction &instruction = append(operation);
    instruction.left = left_value;
    instruction.right = right_value;
    // Commas survive, so that the arguments of a choice stay apart.
    std::string replacement(variable_bytes, ' ');
    write_variable(used(), replacement.data());
    for (std::size_t i = left.edge; i < right.edge; ++i) {
      if (expression[i] == ',') replacement += ',';
    }
    expression.replace(left.edge, right.edge - left.edge, replacement);
    at = left.edge;
  }
}

FormulaCompiler::Side FormulaCompiler::left_operand(const std::string &expression, std::size_t at,
                                                    int depth) {
  std::size_t begin = at;
  std::size_t walk = at;
  for (; walk > 0; --walk) {
    const char c = expression[walk - 1];
    if (c == ' ') continue;
    if (!framework::is_digit(c) && c != '.') break;
    begin = walk - 1;
  }
  std::string without_blanks;
  std::string_view written = std::string_view(expression).substr(begin, at - begin);
  if (written.find(' ') != npos) {
    without_blanks = written;
    std::erase(without_blanks, ' ');
    written = without_blanks;
  }
  const char stop = walk > 0 ? expression[walk - 1] : '\0';
  if (stop == 'd') return {variable(variable_index(written)), walk - 1};
  if (stop == ')') {
    const std::size_t open = expression.rfind('(', walk - 1);
    if (open != npos) {
      const std::size_t close = expression.find(')', open);
      return {group_operand(expression.substr(open + 1, close - open - 1), depth), open};
    }
  }
  return {number(framework::decimal_value(written)), begin};
}

FormulaCompiler::Side FormulaCompiler::right_operand(const std::string &expression, std::size_t at,
                                                     int depth) {
  std::size_t end = at;
  while (end < expression.size() &&
         (framework::is_digit(expression[end]) || expression[end] == '.' || expression[end] == ' ')) {
    ++end;
  }
  const char stop = end < expression.size() ? expression[end] : '\0';
  if (stop == 'd') {
    return {variable(variable_index(std::string_view(expression).substr(end + 1, 2))),
            std::min(end + 3, expression.size())};
  }
  if (stop == '(') {
    const std::size_t close = std::min(expression.find(')', end), expression.size());
    return {group_operand(expression.substr(end + 1, close - end - 1), depth),
            std::min(close + 1, expression.size())};
  }
  return {number(framework::decimal_value(std::string_view(expression).substr(at, end - at))), end};
}

Operand FormulaCompiler::group_operand(std::string group, int depth) {
  // Every group below another one appends an entry of its own, so deeper nesting could never be evaluated.
  if (depth >= static_cast<int>(max_values)) return {};
  return reduce(group, depth + 1);
}

void FormulaCompiler::reduce_choice(const std::string &expression) {
  const std::size_t word = find_word(expression, "switch");
  if (word == npos || full()) return;
  const auto first = static_cast<std::uint32_t>(program_.operands.size());
  std::string_view arguments = choice_arguments(expression, word);
  bool more = arguments.find_first_not_of(' ') != npos;
  while (more) {
    const std::size_t comma = arguments.find(',');
    program_.operands.push_back(read(choice_argument(arguments.substr(0, comma))));
    more = comma != npos;
    if (more) arguments.remove_prefix(comma + 1);
  }
  append(Operation::choose).choices = {first, static_cast<std::uint32_t>(program_.operands.size()) - first};
}

}  // namespace analysis
