#pragma once
// Why a number may not mean what it seems to mean. A reason never changes the number.

#include <cstddef>
#include <optional>
#include <string>

namespace analysis {

struct Reason {
  enum class Kind {
    unknown_point,      ///< no landmark, user point or virtual point has this name
    unplaced_point,     ///< the point is known but still lies at (0, 0)
    unknown_item,       ///< a reference names an item that the file does not hold
    cycle,              ///< the item or virtual point is already under evaluation
    no_norm,            ///< a reference asks for a norm that the file does not hold
    malformed_formula,  ///< the text is not a formula; position tells where
    not_formed,         ///< a cast measurement that the record cannot yield
  };
  Kind kind;
  std::string subject;       ///< the point, the item or the offending text, code page 932
  std::size_t position = 0;  ///< bytes from the start of the formula, for malformed_formula
};

/// A number, and the first reason found for not taking it at face value.
struct Measured {
  double value = 0.0;
  std::optional<Reason> reason;
};

/// One English sentence for a clinician, for instance: point "Xi" is not placed. UTF-8 except for the
/// subject, which stays in code page 932.
std::string describe(const Reason &reason);

}  // namespace analysis
