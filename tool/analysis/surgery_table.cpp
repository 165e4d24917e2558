// The before-and-after table of surgical planning.

#include <algorithm>

#include "tool/analysis/evaluator.h"
#include "tool/analysis/result_table.h"

namespace analysis {
namespace {

/// One record's columns of the table.
class SideBuilder {
 public:
  SideBuilder(const Analysis &analysis, const Tracing &tracing, const Patient &patient, int precision,
              Explain explain)
      : precision_(precision),
        evaluator_(tracing, patient, &analysis,
                   explain == Explain::yes ? Evaluator::Reasons::collect : Evaluator::Reasons::ignore) {}

  SurgeryRow::Side side(std::size_t index) {
    SurgeryRow::Side side;
    const ItemOutcome outcome = evaluator_.item(index);
    side.reason = evaluator_.take_reason();
    switch (outcome.kind) {
      case ItemOutcome::Kind::text:
        side.value = outcome.text;
        side.value.erase(std::remove(side.value.begin(), side.value.end(), '"'), side.value.end());
        return side;
      case ItemOutcome::Kind::bare_choice:
        return side;
      default:
        break;
    }
    if (outcome.value == missing_value) return side;
    side.number = outcome.value;
    side.value = format_value(outcome.value, precision_);
    side.mark = mark(index, outcome.value);
    return side;
  }

 private:
  std::string_view mark(std::size_t index, double value) {
    const double sd = evaluator_.norm_number(index, NormKind::sd).value_or(0.0);
    if (sd == 0.0) return {};
    const double mean = evaluator_.norm_number(index, NormKind::mean).value_or(0.0);
    return deviation_mark((value - mean) / sd);
  }

  int precision_;
  Evaluator evaluator_;
};

}  // namespace

std::vector<SurgeryRow> surgery_table(const Analysis &analysis, const Tracing &before, const Tracing &after,
                                      const Patient &patient, int precision, Explain explain) {
  SideBuilder before_builder(analysis, before, patient, precision, explain);
  SideBuilder after_builder(analysis, after, patient, precision, explain);
  std::vector<SurgeryRow> rows;
  for (std::size_t i = 0; i < analysis.items().size(); ++i) {
    const Item &item = analysis.items()[i];
    if (!item.listed) continue;
    SurgeryRow row;
    row.item = item.text;
    row.heading = item.heading;
    if (!item.heading) {
      row.before = before_builder.side(i);
      if (after.scale() != 0.0) row.after = after_builder.side(i);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace analysis
