#include "apps/drawing/style_texts.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "tool/analysis/evaluation.h"
#include "tool/analysis/points.h"
#include "tool/analysis/value_format.h"
#include "tool/framework/text/cp932.h"
#include "tool/framework/text/decimal.h"

namespace app {
namespace {

constexpr double mm_per_size = 0.2;  // the files count in pixels of a screen
constexpr double gap_mm = 1.5;

/// What a packed text says: RRRGGGBBBp, position, SIZE=, CALC=.
struct StyleText {
  COLORREF color = 0;
  int precision = 0;
  std::string_view position;
  int size = 15;
  std::string_view formula;
};

std::optional<StyleText> unpacked(std::string_view text) {
  constexpr std::size_t head = 10;
  const std::size_t size = text.find("SIZE=");
  const std::size_t calc = text.find("CALC=");
  if (size == std::string_view::npos || calc == std::string_view::npos || size < head || calc < size)
    return std::nullopt;
  const auto number = [&](std::size_t at, std::size_t length) {
    return framework::whole_number(text.substr(at, length));
  };
  return StyleText{RGB(number(0, 3), number(3, 3), number(6, 3)), number(9, 1),
                   text.substr(head, size - head), std::clamp(number(size + 5, calc - size - 5), 5, 60),
                   text.substr(calc + 5)};
}

/// The middle of the points that the formula names; empty when one of them cannot be placed.
std::optional<SheetPoint> anchor(const View &view, std::string_view formula,
                                 const analysis::Tracing &tracing) {
  SheetPoint sum{0, 0};
  int count = 0;
  for (std::size_t open = 0; (open = formula.find('[')) != std::string_view::npos; ++count) {
    const std::size_t close = formula.find(']', open);
    if (close == std::string_view::npos) return std::nullopt;
    std::optional<analysis::Reason> reason;
    const CPointD point =
        analysis::point_position(formula.substr(open + 1, close - open - 1), tracing, &reason);
    if (reason) return std::nullopt;
    const SheetPoint place =
        view.on_sheet({static_cast<int>(std::lround(point.x)), static_cast<int>(std::lround(point.y))});
    sum = {sum.x + place.x, sum.y + place.y};
    formula.remove_prefix(close + 1);
  }
  if (count == 0) return std::nullopt;
  return SheetPoint{sum.x / count, sum.y / count};
}

/// Whole numbers have no decimals here.
std::string written(double value, int precision) {
  if (precision != 0) return analysis::format_value(value, precision);
  return std::to_string(std::lround(analysis::to_precision(value, 0)));
}

void draw_text(const View &view, const StyleText &style, SheetPoint at, const std::string &value) {
  const TextLook look{style.size * mm_per_size, style.color, false,
                      style.position == "Right"  ? TextSide::left
                      : style.position == "Left" ? TextSide::right
                                                 : TextSide::middle};
  if (style.position == "Right") at.x += gap_mm;
  if (style.position == "Left") at.x -= gap_mm;
  at.y += style.position == "Top"      ? -gap_mm - look.height
          : style.position == "Bottom" ? gap_mm
                                       : -look.height / 2;
  view.sheet().text(at, value, look);
}

}  // namespace

void draw_style_texts(const View &view, const TracingFile &tracing, const SceneOptions &options) {
  if (!options.style) return;
  const analysis::Tracing points = tracing.tracing();
  for (const std::string &packed : options.style->labels) {
    const auto style = unpacked(packed);
    if (!style) continue;
    const auto at = anchor(view, style->formula, points);
    const analysis::Measured result = analysis::evaluate_formula(style->formula, points, {});
    // A number that cannot be taken at face value is not written on a picture.
    if (!at || result.reason) continue;
    draw_text(view, *style, *at, written(result.value, style->precision));
  }
}

}  // namespace app
