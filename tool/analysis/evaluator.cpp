#include "tool/analysis/evaluator.h"

#include <algorithm>
#include <utility>

#include "tool/analysis/formula_angles.h"
#include "tool/analysis/formula_compiler.h"
#include "tool/analysis/landmarks.h"
#include "tool/analysis/points.h"
#include "tool/analysis/value_format.h"
#include "tool/env/text.h"
#include "tool/framework/text/decimal.h"
#include "tool/framework/text/numbers.h"
#include "tool/geometry/angles.h"
#include "tool/geometry/distances.h"
#include "tool/geometry/lines.h"
#include "tool/geometry/transforms.h"
#include "tool/model/measurements.h"

namespace analysis {
namespace {

constexpr int max_item_depth = 100;
constexpr int max_evaluations = 2000;  // for one row; only files whose items refer in circles come near it

/// The items that show a predicted segment of the cast are left out while the prediction cannot be formed.
bool is_prediction(std::string_view item_text) {
  if (item_text.substr(0, 5) != "Model" || item_text.size() < 12) return false;
  const std::string_view token = item_text.substr(6, 6);
  return token == "[PLTU]" || token == "[PLTL]";
}

/// The term's value on its points, which are asked for one after another.
template <class PointOfTerm>
double measured(const Instruction &instruction, double scale, PointOfTerm point) {
  const CPointD a = point(0);
  const CPointD b = point(1);
  switch (instruction.operation) {
    case Operation::distance:
      return geometry::length(a, b, scale);
    case Operation::distance_x:
      return b.x < a.x ? -geometry::length(a, b, scale) : geometry::length(a, b, scale);
    case Operation::distance_y:
      return b.y < a.y ? -geometry::length(a, b, scale) : geometry::length(a, b, scale);
    default:
      break;
  }
  const CPointD c = point(2);
  const double angle = instruction.operation == Operation::vertex_angle
                           ? formula_vertex_angle(a, b, c)
                           : formula_line_angle(a, b, c, point(3));
  return instruction.precision < 0 ? angle : to_precision(angle, instruction.precision);
}

}  // namespace

Evaluator::Evaluator(const Tracing &tracing, const Patient &patient, const Analysis *analysis,
                     Reasons reasons)
    : tracing_(&tracing), patient_(patient), analysis_(analysis), collect_(reasons == Reasons::collect) {
  if (!analysis_) return;
  memory_[0].outcomes.resize(analysis_->items().size());
  status_.resize(analysis_->items().size());
}

void Evaluator::rebind(const Tracing &tracing) {
  tracing_ = &tracing;
  std::fill(status_.begin(), status_.end(), static_cast<unsigned char>(0));
  reason_.reset();
}

std::optional<Reason> Evaluator::take_reason() {
  std::optional<Reason> taken = std::move(reason_);
  reason_.reset();
  return taken;
}

void Evaluator::add_reason(Reason::Kind kind, std::string_view subject, std::size_t position) {
  if (collect_ && !reason_) reason_ = Reason{kind, std::string(subject), position};
}

// Formulas
// ------------------------------------------------------------------------------------------------------

double Evaluator::run(const Program &program, const Formula &formula, ValueTable &values) {
  for (std::uint32_t i = 0; i < formula.count; ++i) {
    values[formula.base + i] = compute(program, program.instructions[formula.first + i], values);
  }
  return effective(formula.result, values);
}

double Evaluator::run(const Program &program, const Formula &formula) {
  ValueTable values;
  if (formula.reads_ahead) values.fill(0.0);
  return run(program, formula, values);
}

double Evaluator::effective(const Operand &operand, const ValueTable &values) const {
  return operand.variable < 0 ? operand.number : values[static_cast<std::size_t>(operand.variable)];
}

double Evaluator::compute(const Program &program, const Instruction &instruction, const ValueTable &values) {
  if (instruction.point_count > 0) return measure(program, instruction);
  const double left = effective(instruction.left, values);
  const double right = effective(instruction.right, values);
  switch (instruction.operation) {
    case Operation::multiply:
      return left * right;
    case Operation::divide:
      return left / right;
    case Operation::add:
      return left + right;
    case Operation::subtract:
      return left - right;
    case Operation::less:
      return left < right;
    case Operation::greater:
      return left > right;
    case Operation::equal:
      return left == right;
    case Operation::less_equal:
      return left <= right;
    case Operation::greater_equal:
      return left >= right;
    case Operation::choose:
      return choose(program, instruction, values);
    case Operation::model_item:
      return model_item(instruction);
    case Operation::item_value:
    case Operation::item_sd_units:
    case Operation::item_mean:
    case Operation::item_sd:
      return reference(instruction);
    default:
      return 0.0;
  }
}

double Evaluator::choose(const Program &program, const Instruction &instruction,
                         const ValueTable &values) const {
  const auto &choices = instruction.choices;
  std::uint32_t index = 0;
  while (index < choices.count &&
         framework::to_int(effective(program.operands[choices.first + index], values)) == 0) {
    ++index;
  }
  return index;
}

double Evaluator::measure(const Program &program, const Instruction &instruction) {
  if (!tracing_->has_record()) {
    const PointReference first = instruction.points[0];
    const std::string_view name =
        first.is_landmark() ? landmark_name(first.landmark()) : program.points[first.node()].name;
    add_reason(Reason::Kind::unplaced_point, name);
    return 0.0;
  }
  if (instruction.on_landmarks && !collect_) {
    const POINT *const landmarks = tracing_->landmarks().data();
    return measured(instruction, tracing_->scale(), [&](std::size_t k) {
      const POINT &p = landmarks[instruction.points[k].landmark()];
      return CPointD(p.x, p.y);
    });
  }
  return measured(instruction, tracing_->scale(),
                  [&](std::size_t k) { return point(program, instruction.points[k]); });
}

double Evaluator::model_item(const Instruction &instruction) {
  const tagPOINTMO *cast = tracing_->model();
  const double value = cast && instruction.model_number >= 0
                           ? model::item(patient_.sex, *cast, cast->ex, instruction.model_number).a
                           : 0.0;
  if (value == 0.0 || value == -1.0) add_reason(Reason::Kind::not_formed, {});
  return value == 0.0 ? missing_value : value;
}

// Points
// --------------------------------------------------------------------------------------------------------

std::string_view Evaluator::landmark_name(std::size_t landmark) const {
  return vocabulary(record_kind(tracing_->mode()))[landmark];
}

CPointD Evaluator::landmark(std::size_t landmark) {
  if (!tracing_->has_record()) return {};
  const POINT &p = tracing_->landmarks()[landmark];
  if (collect_ && p.x == 0 && p.y == 0) add_reason(Reason::Kind::unplaced_point, landmark_name(landmark));
  return CPointD(p.x, p.y);
}

CPointD Evaluator::point(const Program &program, PointReference reference) {
  if (reference.is_landmark()) return landmark(reference.landmark());
  const PointNode &node = program.points[reference.node()];
  switch (node.kind) {
    case PointNode::Kind::named:
      return point_position(node.name, *tracing_, reason_slot());
    case PointNode::Kind::effective_a:
      return effective_a_point();
    case PointNode::Kind::missing:
      return {};
    default:
      return construct(program, node);
  }
}

CPointD Evaluator::construct(const Program &program, const PointNode &node) {
  const auto argument = [&](std::size_t k) { return point(program, node.arguments[k]); };
  const CPointD a = argument(0);
  const CPointD b = argument(1);
  switch (node.kind) {
    case PointNode::Kind::midpoint:
      return geometry::midpoint(a, b);
    case PointNode::Kind::foot:
      return geometry::foot(a, b, argument(2));
    case PointNode::Kind::crossing: {
      const CPointD c = argument(2);
      return geometry::cross_point(a, b, c, argument(3));
    }
    case PointNode::Kind::bisector:
      return bisector_point(a, b, argument(2), node.number);
    default:
      return geometry::turned_offset(a, b, b, node.number, 0.0, tracing_->scale());
  }
}

/// The A point corrected for the inclination of the upper incisor: 0.4 mm per degree from 12 degrees to N-A.
CPointD Evaluator::effective_a_point() const {
  const tagPOINTLAT *record = tracing_->lateral();
  if (!record) return {};
  const auto landmark = [&](lateral::Landmark k) {
    const POINT &p = record->pt[first_landmark_entry + k];
    return CPointD(p.x, p.y);
  };
  const CPointD nasion = landmark(lateral::N);
  const CPointD a_point = landmark(lateral::A);
  const double inclination =
      geometry::signed_angle(nasion, a_point, landmark(lateral::U1R), landmark(lateral::U1));
  return geometry::turned_offset(nasion, a_point, landmark(lateral::U1C), -0.4 * (inclination - 12.0), -90.0,
                                 record->scale);
}

// Items
// ---------------------------------------------------------------------------------------------------------

/// A reference to an item whose value is under evaluation is not followed.
bool Evaluator::may_enter(std::size_t index) {
  const bool runs = (status_[index] & running_value) != 0;
  const bool may = !runs && depth_ < max_item_depth && evaluations_ < max_evaluations;
  if (!may) {
    ++cuts_;
    add_reason(Reason::Kind::cycle, analysis_->compiled().items[index].text);
  }
  return may;
}

double Evaluator::reference(const Instruction &instruction) {
  if (!analysis_ || instruction.item == Instruction::no_item) {
    add_reason(Reason::Kind::unknown_item, instruction.item_text);
    return 0.0;
  }
  const std::size_t index = instruction.item;
  if (analysis_->compiled().items[index].heading) return 0.0;
  if (!may_enter(index)) return 0.0;
  const auto norm = [&](NormKind which) {
    const std::optional<double> found = norm_number(index, which);
    if (!found) add_reason(Reason::Kind::no_norm, instruction.item_text);
    return found.value_or(0.0);
  };
  switch (instruction.operation) {
    case Operation::item_value:
      return item(index).number();
    case Operation::item_mean:
      return norm(NormKind::mean);
    case Operation::item_sd:
      return norm(NormKind::sd);
    default:
      break;
  }
  const double value = item(index).number();
  const double mean = norm(NormKind::mean);
  const double sd = norm(NormKind::sd);
  return sd == 0.0 ? 0.0 : (value - mean) / sd;
}

const ItemOutcome &Evaluator::item(std::size_t index) {
  Memory &memory = memory_[in_norm_formula_ ? 1 : 0];
  const Status known_here = in_norm_formula_ ? known_in_norm_formula : known;
  if ((status_[index] & known_here) != 0) {
    if (collect_ && !reason_) reason_ = memory.reasons[index];
    return memory.outcomes[index];
  }
  if (memory.outcomes.empty()) memory.outcomes.resize(analysis_->items().size());
  ItemOutcome &outcome = memory.outcomes[index];
  const int cuts_before = cuts_;
  if (collect_) {
    enter_item_for_reasons(index, outcome, memory.reasons);
  } else {
    enter_item(index, outcome);
  }
  // What rests on a reference that was not followed depends on where the evaluation came from.
  if (cuts_ == cuts_before) status_[index] |= known_here;
  return outcome;
}

/// Keeps the item's own reason apart from the one that is already there.
void Evaluator::enter_item_for_reasons(std::size_t index, ItemOutcome &outcome,
                                       std::vector<std::optional<Reason>> &reasons) {
  std::optional<Reason> outer = take_reason();
  enter_item(index, outcome);
  reasons.resize(analysis_->items().size());
  reasons[index] = reason_;
  if (outer) reason_ = std::move(outer);
}

void Evaluator::enter_item(std::size_t index, ItemOutcome &outcome) {
  if (depth_ == 0) evaluations_ = 0;
  ++evaluations_;
  ++depth_;
  status_[index] |= running_value;
  evaluate_item(index, outcome);
  status_[index] = static_cast<unsigned char>(status_[index] & ~running_value);
  --depth_;
}

void Evaluator::evaluate_item(std::size_t index, ItemOutcome &outcome) {
  const CompiledItems &compiled = analysis_->compiled();
  const Item &item = compiled.items[index];
  outcome.kind = ItemOutcome::Kind::number;
  outcome.value = 0.0;
  if (item.heading) return;
  const ItemPlan &plan = compiled.plans[index];
  outcome.value = run(compiled.program, plan.formula);
  if (plan.formula.malformed_at >= 0) {
    const auto position = static_cast<std::size_t>(plan.formula.malformed_at);
    add_reason(Reason::Kind::malformed_formula, item.formula, position);
  }
  if (outcome.value == -1.0 && is_prediction(item.text)) {
    outcome.kind = ItemOutcome::Kind::unformed;
  } else if (plan.chooses && !plan.has_alternatives) {
    outcome.kind = ItemOutcome::Kind::bare_choice;
  } else if (plan.chooses) {
    outcome = pick_alternative(plan, outcome.value);
  }
}

ItemOutcome Evaluator::pick_alternative(const ItemPlan &plan, double index) {
  const CompiledItems &compiled = analysis_->compiled();
  const int chosen = framework::to_int(index);
  if (chosen < 0 || static_cast<std::uint32_t>(chosen) >= plan.alternative_count) return {};
  const Alternative &alternative =
      compiled.alternatives[plan.first_alternative + static_cast<std::uint32_t>(chosen)];
  if (alternative.is_text) return {ItemOutcome::Kind::text, 0.0, alternative.text};
  return {ItemOutcome::Kind::number, run(compiled.program, alternative.formula), {}};
}

// Norms
// ---------------------------------------------------------------------------------------------------------

void Evaluator::norm_text(std::size_t index, NormKind which, int kind, std::string &text) {
  const NormLine *line = analysis_->compiled().norm_line(index, which, patient_.sex);
  if (!line) return;
  const std::string_view field = norm_column(*line, patient_.age_code);
  if (env::is_plainly_printed(field)) {
    if (!is_written_as_it_is(field, kind, patient_.magnification))
      return write_norm_number(field, kind, patient_.magnification, text);
    text = field;
    return;
  }
  if (depth_ == 0) evaluations_ = 0;
  const Status mark = which == NormKind::mean ? running_mean : running_sd;
  if ((status_[index] & mark) != 0) {
    ++cuts_;
    add_reason(Reason::Kind::cycle, analysis_->compiled().items[index].text);
    return;
  }
  status_[index] |= mark;
  text = norm_field_text(field, kind);
  status_[index] = static_cast<unsigned char>(status_[index] & ~mark);
}

std::optional<double> Evaluator::norm_number(std::size_t index, NormKind which) {
  const NormLine *line = analysis_->compiled().norm_line(index, which, patient_.sex);
  if (!line) return std::nullopt;
  const int kind = analysis_->compiled().items[index].kind;
  const std::string_view field = norm_column(*line, patient_.age_code);
  if (env::is_plainly_printed(field) && is_written_as_it_is(field, kind, patient_.magnification))
    return framework::decimal_value(field);
  const int cuts_before = cuts_;
  std::string text;
  norm_text(index, which, kind, text);
  if (cuts_ != cuts_before && text.empty()) return std::nullopt;
  if (!env::is_number(text)) return std::nullopt;
  return framework::decimal_value(text);
}

std::string Evaluator::norm_field_text(std::string_view field, int kind) {
  std::string text;
  const std::string evaluated = env::is_number(field) ? std::string(field) : evaluate_norm_formula(field);
  write_norm_number(evaluated, kind, patient_.magnification, text);
  return text;
}

/// Norm formulas are evaluated as if the film had the magnification that norms are written for.
std::string Evaluator::evaluate_norm_formula(std::string_view field) {
  const NormFormula norm = split_norm_formula(field);
  if (++evaluations_ > max_evaluations) {
    ++cuts_;
    return "0";
  }
  const double outer_magnification = std::exchange(patient_.magnification, norm_magnification);
  const bool outer_norm = std::exchange(in_norm_formula_, true);
  ++depth_;
  Program program;
  FormulaCompiler compiler(program, tracing_->mode(), analysis_ ? &analysis_->compiled().by_text : nullptr,
                           collect_);
  const Formula formula = compiler.compile(norm.formula);
  const double value = run(program, formula);
  if (formula.malformed_at >= 0) {
    add_reason(Reason::Kind::malformed_formula, field, static_cast<std::size_t>(formula.malformed_at));
  }
  --depth_;
  in_norm_formula_ = outer_norm;
  patient_.magnification = outer_magnification;
  if (norm.decimals > 0) return framework::fixed(value, norm.decimals);
  return std::to_string(framework::to_int(framework::decimal_value(framework::fixed(value, 0))));
}

}  // namespace analysis
