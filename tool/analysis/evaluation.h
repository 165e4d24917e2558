#pragma once
// Evaluates formulas, items and norms of one analysis on one tracing for one patient.

#include <string_view>

#include "tool/analysis/analysis.h"

namespace analysis {

/// Evaluates one formula as written in a definition file (without its kind suffix). Item references look into
/// `references`; null means that there is no file, and every reference counts 0.
Measured evaluate_formula(std::string_view formula, const Tracing &tracing, const Patient &patient,
                          const Analysis *references = nullptr);

/// Coordinates of a named point in pixels; (0, 0) with a reason when it cannot be resolved.
struct ResolvedPoint {
  double x = 0.0;
  double y = 0.0;
  std::optional<Reason> reason;
};
ResolvedPoint resolve_point(std::string_view name, const Tracing &tracing);

}  // namespace analysis
