#pragma once
// Norm look-up in a definition file: which line holds the mean or SD of an item for a sex, and which column.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tool/analysis/analysis.h"

namespace analysis {

/// Whether a block holds norms of this kind for this sex.
bool is_norm_block(LineClass block, NormKind which, int sex);

/// The comma list behind an item's first norm line, with the set of its block.
struct NormLine {
  std::string_view columns;
  bool second_set;
};

/// Looks through the lines in file order; the first norm line of the item wins.
std::optional<NormLine> find_norm_line(const DefinitionFile &file, std::string_view item, NormKind which,
                                       int sex);

/// The field of the patient's column: set 2 counts with age code / 100, the first set with age code modulo
/// 100.
std::string_view norm_column(const NormLine &line, int age_code);

/// Writes a norm number. A length (kind 0), which stands for magnification 1.1 in the file, is scaled and
/// then cut (not rounded) to the decimals that are written, at least one.
void write_norm_number(std::string_view number, int kind, double magnification, std::string &text);
/// Whether a plainly printed number comes out as it is: no length, or one at the norms' own magnification.
bool is_written_as_it_is(std::string_view plain_number, int kind, double magnification);

/// A norm field that is not a number: a formula, one separator, one digit for the decimals of the result.
struct NormFormula {
  std::string_view formula;
  int decimals;
};
NormFormula split_norm_formula(std::string_view field);

/// The magnification that norms of lengths are written for.
inline constexpr double norm_magnification = 1.1;

}  // namespace analysis
