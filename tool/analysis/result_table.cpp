#include "tool/analysis/result_table.h"

#include <algorithm>
#include <array>

#include "tool/analysis/evaluator.h"
#include "tool/env/text.h"
#include "tool/framework/text/decimal.h"
#include "tool/model/measurements.h"

namespace analysis {
namespace {

constexpr std::string_view tooth_row_keyword = "ModelRL";
constexpr int unscaled_kind = 1;

struct ToothCode {
  std::string_view code;
  int tooth;
};
constexpr ToothCode tooth_codes[] = {
    {"[U1]", 0}, {"[U2]", 1}, {"[U3]", 2},  {"[U4]", 3},  {"[U5]", 4},  {"[U6]", 5},
    {"[L1]", 8}, {"[L2]", 9}, {"[L3]", 10}, {"[L4]", 11}, {"[L5]", 12}, {"[L6]", 13},
};

std::optional<int> tooth_of(std::string_view formula) {
  constexpr std::size_t code_position = 8;
  if (formula.size() < code_position) return std::nullopt;
  const std::string_view code = formula.substr(code_position, 4);
  for (const ToothCode &known : tooth_codes) {
    if (known.code == code) return known.tooth;
  }
  return std::nullopt;
}

std::string without_quotes(std::string_view text) {
  std::string result(text);
  result.erase(std::remove(result.begin(), result.end(), '"'), result.end());
  return result;
}

/// Fills rows for one tracing. `index` counts the items of the file, listed or not.
class RowBuilder {
 public:
  RowBuilder(const Analysis &analysis, const Tracing &tracing, const Patient &patient, int precision,
             Explain explain)
      : items_(analysis.items()),
        tracing_(tracing),
        patient_(patient),
        precision_(precision),
        explain_(explain),
        evaluator_(tracing, patient, &analysis,
                   explain == Explain::yes ? Evaluator::Reasons::collect : Evaluator::Reasons::ignore) {}

  /// The row of an item, valid until the next one is built; null for a cast prediction that cannot be formed:
  /// it gets no row.
  TableRow *row(std::size_t index) {
    const Item &item = items_[index];
    clear();
    row_.item = item.text;
    row_.heading = item.heading;
    if (item.heading) return &row_;
    if (item.formula.substr(0, tooth_row_keyword.size()) == tooth_row_keyword) {
      fill_tooth_row(index, row_);
      return &row_;
    }
    const ItemOutcome &outcome = evaluator_.item(index);
    if (explain_ == Explain::yes) row_.reason = evaluator_.take_reason();
    if (outcome.kind == ItemOutcome::Kind::unformed) return nullptr;
    fill_norms(index, item.kind, row_);
    fill_outcome(item, outcome, row_);
    return &row_;
  }

 private:
  /// Texts keep their memory from row to row.
  void clear() {
    for (std::string *text : {&row_.item, &row_.mean, &row_.sd, &row_.value, &row_.second_value})
      text->clear();
    row_.number = row_.mean_number = row_.sd_number = std::nullopt;
    row_.display_flag.reset();
    row_.reason.reset();
  }

  void fill_outcome(const Item &item, const ItemOutcome &outcome, TableRow &row) const {
    switch (outcome.kind) {
      case ItemOutcome::Kind::text:
        (row.item.empty() ? row.item : row.value) = without_quotes(outcome.text);
        return;
      case ItemOutcome::Kind::bare_choice:
        return;
      default:
        break;
    }
    row.display_flag = item.display_flag;
    if (outcome.value == missing_value) return;
    row.number = outcome.value;
    row.value = format_value(outcome.value, precision_);
  }

  /// A tooth of the cast: its two sides, each shown unless it is 0.
  void fill_tooth_row(std::size_t index, TableRow &row) {
    const Item &item = items_[index];
    const std::optional<int> tooth = tooth_of(item.formula);
    const tagPOINTMO *cast = tracing_.model();
    if (!tooth || !cast) return;
    const model::ItemValues sides = model::item(patient_.sex, *cast, cast->ex, *tooth);
    fill_norms(index, unscaled_kind, row);
    if (sides.a != 0.0) {
      row.value = format_value(sides.a, precision_);
      row.number = sides.a;
    }
    if (sides.b != 0.0) row.second_value = format_value(sides.b, precision_);
    row.display_flag = item.display_flag;
  }

  void fill_norms(std::size_t index, int kind, TableRow &row) {
    evaluator_.norm_text(index, NormKind::mean, kind, row.mean);
    evaluator_.norm_text(index, NormKind::sd, kind, row.sd);
    if (explain_ == Explain::no) return;
    const std::optional<Reason> norm_reason = evaluator_.take_reason();
    if (!row.reason) row.reason = norm_reason;
    const auto number = [](const std::string &text) -> std::optional<double> {
      if (text.empty() || !env::is_number(text)) return std::nullopt;
      return framework::decimal_value(text);
    };
    row.mean_number = number(row.mean);
    row.sd_number = number(row.sd);
  }

  std::span<const Item> items_;
  const Tracing &tracing_;
  const Patient &patient_;
  int precision_;
  Explain explain_;
  Evaluator evaluator_;
  TableRow row_;
};

}  // namespace

std::vector<TableRow> result_table(const Analysis &analysis, const Tracing &tracing, const Patient &patient,
                                   int precision, Explain explain) {
  std::vector<TableRow> rows;
  rows.reserve(analysis.items().size());
  visit_result_rows(analysis, tracing, patient, precision, explain,
                    [&](TableRow &row) { rows.push_back(std::move(row)); });
  return rows;
}

void visit_result_rows(const Analysis &analysis, const Tracing &tracing, const Patient &patient,
                       int precision, Explain explain, const std::function<void(TableRow &)> &visit) {
  RowBuilder builder(analysis, tracing, patient, precision, explain);
  const std::span<const Item> items = analysis.items();
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (!items[i].listed) continue;
    if (TableRow *row = builder.row(i)) visit(*row);
  }
}

std::optional<TableRow> result_row(const Analysis &analysis, std::string_view item, const Tracing &tracing,
                                   const Patient &patient, int precision) {
  const std::optional<std::size_t> index = analysis.find_item(item);
  if (!index) return std::nullopt;
  RowBuilder builder(analysis, tracing, patient, precision, Explain::yes);
  TableRow *row = builder.row(*index);
  if (!row) return std::nullopt;
  return std::move(*row);
}

std::string_view deviation_mark(double sd_units) {
  if (sd_units > 3.0) return "+++";
  if (sd_units > 2.0) return "++";
  if (sd_units > 1.0) return "+";
  if (sd_units > -1.0) return "";
  if (sd_units > -2.0) return "-";
  if (sd_units > -3.0) return "--";
  if (sd_units <= -3.0) return "---";
  return "";  // not a number
}

}  // namespace analysis
