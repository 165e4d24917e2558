#include "tool/tracing/primitives.h"

#include <array>
#include <cmath>

#include "tool/geometry/distances.h"
#include "tool/tracing/drawing_scope.h"

namespace tracing {

namespace {

constexpr LONG negated(LONG value) {
  return geometry::integer_difference(0, value);
}

CPoint upward(CPoint p, bool flip) {
  return flip ? CPoint(p.x, negated(p.y)) : p;
}

void draw_segment(CDC &dc, CPoint from, CPoint to, const PenSpec &pen) {
  DrawingScope scope(dc);
  scope.pen(pen);
  dc.MoveTo(from);
  dc.LineTo(to);
}

bool is_degenerate(const RECT &rect) {
  return rect.left == rect.right || rect.top == rect.bottom;
}

/// The one line that a rectangle without height or width is.
void draw_diagonal(CDC &dc, const RECT &box, const LineStyle &line) {
  draw_segment(dc, {box.left, box.top}, {box.right, box.bottom}, standard_pen(line));
}

/// The box of a disc; one without width or height becomes two pixels wide or high.
RECT spot_box(CPoint top_left, CPoint bottom_right) {
  RECT box{top_left.x, top_left.y, bottom_right.x, bottom_right.y};
  const auto widen = [](LONG &low, LONG &high) {
    if (low != high) return;
    low = geometry::integer_sum(low, -1);
    high = geometry::integer_sum(high, 1);
  };
  widen(box.left, box.right);
  widen(box.top, box.bottom);
  return box;
}

}  // namespace

RECT mapped(const RECT &rect, const geometry::ViewMapping &view) {
  const CPoint top_left = view(CPoint(rect.left, rect.top));
  const CPoint bottom_right = view(CPoint(rect.right, rect.bottom));
  return {top_left.x, top_left.y, bottom_right.x, bottom_right.y};
}

// Lines

void draw_line(CDC &dc, CPoint from, CPoint to, const LineStyle &line, bool flip) {
  draw_segment(dc, upward(from, flip), upward(to, flip), reference_pen(line, Medium::of(dc)));
}

void draw_line_system_dashes(CDC &dc, CPoint from, CPoint to, const LineStyle &line) {
  draw_segment(dc, from, to, system_style_pen(line));
}

void draw_line_image(CDC &dc, CPoint from, CPoint to, const LineStyle &line, bool flip) {
  draw_segment(dc, upward(from, flip), upward(to, flip), image_pen(line, Medium::of(dc)));
}

void draw_polyline(CDC &dc, std::span<const POINT> points, const LineStyle &line) {
  if (points.empty()) return;
  DrawingScope scope(dc);
  scope.pen(outline_pen(line, Medium::of(dc)));
  dc.Polyline(points.data(), static_cast<int>(points.size()));
}

// Rectangles

void draw_outline(CDC &dc, const RECT &box, const LineStyle &line) {
  const std::array<POINT, 5> path{{{box.left, box.top},
                                   {box.right, box.top},
                                   {box.right, box.bottom},
                                   {box.left, box.bottom},
                                   {box.left, box.top}}};
  DrawingScope scope(dc);
  scope.pen(standard_pen(line));
  dc.Polyline(path.data(), static_cast<int>(path.size()));
}

void draw_outline_xor(CDC &dc, const RECT &box, const LineStyle &line) {
  DrawingScope scope(dc);
  scope.exclusive_or();
  draw_outline(dc, box, line);
}

void draw_rectangle(CDC &dc, const RECT &box, int width, COLORREF pen_color, COLORREF fill_color) {
  DrawingScope scope(dc);
  scope.pen(standard_pen({width, pen_color, PS_SOLID})).solid_brush(fill_color);
  dc.Rectangle(&box);
}

void draw_view_rectangle(CDC &dc, const RECT &rect, const geometry::ViewMapping &view, const LineStyle &line,
                         bool exclusive_or) {
  DrawingScope scope(dc);
  scope.exclusive_or(exclusive_or);
  if (is_degenerate(rect))
    draw_diagonal(dc, mapped(rect, view), line);
  else
    draw_outline(dc, mapped(rect, view), line);
}

void draw_rounded_rectangle(CDC &dc, const RoundedRectangle &shape, const geometry::ViewMapping &view,
                            const LineStyle &line) {
  const RECT box = mapped(shape.rect, view);
  if (is_degenerate(shape.rect)) return draw_diagonal(dc, box, line);
  const int corner = framework::to_int(shape.corner * view.zoom);
  DrawingScope scope(dc);
  scope.pen(standard_pen(line));
  if (shape.filled)
    scope.solid_brush(shape.fill_color);
  else
    scope.hollow_brush();
  dc.RoundRect(box.left, box.top, box.right, box.bottom, corner, corner);
}

void flood_fill(CDC &dc, CPoint seed, COLORREF fill_color, COLORREF border_color) {
  DrawingScope scope(dc);
  scope.pen(standard_pen({1, fill_color, PS_SOLID})).solid_brush(fill_color);
  dc.FloodFill(seed.x, seed.y, border_color);
}

// Ellipses, arcs and spots

void draw_ellipse(CDC &dc, const RECT &box, const LineStyle &line, COLORREF fill_color, bool flip) {
  DrawingScope scope(dc);
  scope.pen(standard_pen(line)).solid_brush(fill_color);
  if (flip)
    dc.Ellipse(box.left, negated(box.top), box.right, negated(box.bottom));
  else
    dc.Ellipse(&box);
}

void draw_ellipse_outline(CDC &dc, const RECT &box, const LineStyle &line) {
  DrawingScope scope(dc);
  scope.pen(system_dash_pen(line)).hollow_brush();
  dc.Ellipse(&box);
}

void draw_arc(CDC &dc, const RECT &box, CPoint start, CPoint end, const LineStyle &line) {
  DrawingScope scope(dc);
  scope.pen(standard_pen(line));
  dc.Arc(box.left, box.top, box.right, box.bottom, start.x, start.y, end.x, end.y);
}

void draw_circle(CDC &dc, CPoint centre, CPoint point, const LineStyle &line, bool flip) {
  const LONG r = framework::to_int(geometry::integer_length(centre, point, 1.0));
  const auto sum = geometry::integer_sum;
  const RECT box{sum(centre.x, -r), flip ? sum(r, negated(centre.y)) : sum(centre.y, -r), sum(centre.x, r),
                 flip ? negated(sum(centre.y, r)) : sum(centre.y, r)};
  draw_ellipse_outline(dc, box, adapted(line, Medium::of(dc)));
}

void draw_spot(CDC &dc, CPoint centre, int radius, const geometry::ViewMapping &view, COLORREF color,
               bool flip) {
  const CPointD reach(radius, radius);
  const RECT box = spot_box(view(CPointD(centre) - reach), view(CPointD(centre) + reach));
  draw_ellipse(dc, box, {1, color, PS_SOLID}, color, flip);
}

void draw_fixed_spot(CDC &dc, CPoint centre, int radius, const geometry::ViewMapping &view, COLORREF color,
                     bool flip) {
  const CPoint at = view(centre);
  const auto sum = geometry::integer_sum;
  const RECT box = spot_box({sum(at.x, -radius), sum(at.y, -radius)}, {sum(at.x, radius), sum(at.y, radius)});
  draw_ellipse(dc, box, {1, color, PS_SOLID}, color, flip);
}

// Printing

double print_magnification(const CDC &dc, SIZE extent) {
  const double horizontal = static_cast<double>(dc.GetDeviceCaps(HORZRES)) / extent.cx;
  const double vertical = static_cast<double>(dc.GetDeviceCaps(VERTRES)) / extent.cy;
  const double smaller = horizontal < vertical ? horizontal : vertical;
  return std::isfinite(smaller) ? smaller : 0.0;
}

}  // namespace tracing
