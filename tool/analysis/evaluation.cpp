#include "tool/analysis/evaluation.h"

#include "tool/analysis/evaluator.h"
#include "tool/analysis/formula_compiler.h"
#include "tool/analysis/points.h"

namespace analysis {

Measured evaluate_formula(std::string_view formula, const Tracing &tracing, const Patient &patient,
                          const Analysis *references) {
  Program program;
  FormulaCompiler compiler(program, tracing.mode(), references ? &references->compiled().by_text : nullptr,
                           true);
  const Formula compiled = compiler.compile(formula);
  Evaluator evaluator(tracing, patient, references, Evaluator::Reasons::collect);
  if (compiled.malformed_at >= 0) {
    evaluator.add_reason(Reason::Kind::malformed_formula, formula,
                         static_cast<std::size_t>(compiled.malformed_at));
  }
  const double value = evaluator.run(program, compiled);
  return {value, evaluator.take_reason()};
}

ResolvedPoint resolve_point(std::string_view name, const Tracing &tracing) {
  ResolvedPoint resolved;
  const CPointD position = point_position(name, tracing, &resolved.reason);
  resolved.x = position.x;
  resolved.y = position.y;
  return resolved;
}

}  // namespace analysis
