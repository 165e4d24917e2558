#include "tool/tracing/cast_drawing.h"

#include "tool/tracing/spline_drawing.h"

namespace tracing {

namespace {

LineStyle cast_line(COLORREF color) {
  return {.width = 1, .color = color, .style = thick_solid};
}

}  // namespace

void draw_wire(CDC &dc, std::span<const POINT, model::wire_points> curve, const geometry::ViewMapping &view,
               COLORREF color) {
  draw_spline(dc, {curve, geometry::CurveEnds::open}, view, cast_line(color));
}

void draw_crown(CDC &dc, const model::Crown &crown, const geometry::ViewMapping &view, COLORREF color) {
  draw_spline(dc, {crown.points(), geometry::CurveEnds::closed}, view, cast_line(color));
}

}  // namespace tracing
