#include "tool/tracing/superimposed_line.h"

#include "tool/tracing/drawing_scope.h"
#include "tool/tracing/primitives.h"

namespace tracing {

void draw_superimposed_line(CDC &dc, const Superimposition &on, CPointD from, CPointD to,
                            const LineStyle &line, Stroke stroke) {
  if (on.scale == 0.0) return;
  constexpr LineStyle white{.width = 1, .color = 0xFFFFFF, .style = PS_SOLID};
  DrawingScope scope(dc);
  scope.exclusive_or(stroke == Stroke::rubber_band);
  draw_line(dc, device_point(on, from), device_point(on, to), stroke == Stroke::ink ? line : white);
}

}  // namespace tracing
