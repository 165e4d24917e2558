#pragma once
// The variables d01, d02, ... of the formula language, and operands made of them.

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "tool/analysis/formula.h"
#include "tool/framework/text/ascii.h"

namespace analysis {

/// NN of a variable dNN as an index into the value table.
inline std::int16_t variable_index(std::string_view digits) {
  int number = 0;
  for (const char c : digits) {
    if (!framework::is_digit(c)) break;
    number = std::min(number * 10 + (c - '0'), static_cast<int>(value_table_size));
  }
  return static_cast<std::int16_t>(std::max(number, 1) - 1);
}

inline Operand variable(std::int16_t index) {
  return {0.0, index};
}
inline Operand number(double value) {
  return {value, -1};
}

inline constexpr std::size_t variable_bytes = 3;

/// The variable dNN of a table entry.
inline void write_variable(std::size_t entry, char *text) {
  text[0] = 'd';
  text[1] = static_cast<char>('0' + entry / 10);
  text[2] = static_cast<char>('0' + entry % 10);
}

}  // namespace analysis
