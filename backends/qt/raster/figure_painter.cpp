#include "backends/qt/raster/figure_painter.h"

#include <algorithm>

#include "backends/qt/raster/box_path.h"
#include "backends/qt/raster/reach.h"
#include "backends/qt/raster/span_painter.h"

namespace raster {

using framework::DeviceBrush;
using framework::DevicePen;
using framework::FillRule;
using framework::LineCap;
using framework::Paint;
using framework::Region;

namespace {

// Chains list every pixel of a figure; larger ones, which no device shows whole, are stroked as wide ones
// are.
constexpr std::int64_t longest_chain_side = 1 << 17;

bool chainable(const RECT &box) {
  return std::int64_t{box.right} - box.left <= longest_chain_side &&
         std::int64_t{box.bottom} - box.top <= longest_chain_side;
}

DeviceBrush solid(COLORREF color) {
  return {DeviceBrush::Kind::solid, HS_HORIZONTAL, color, std::nullopt};
}

}  // namespace

const RECT &FigurePainter::use_clip(const Region *clip) {
  limits_ = {0, 0, pixels_.width, pixels_.height};
  complex_clip_ = false;
  if (!clip) return limits_;
  const RECT whole = limits_;
  const RECT &bounds = clip->bounds();
  limits_ = {std::max(whole.left, bounds.left), std::max(whole.top, bounds.top),
             std::min(whole.right, bounds.right), std::min(whole.bottom, bounds.bottom)};
  if (clip->kind() == Region::Kind::rectangle) return limits_;
  if (clip->kind() == Region::Kind::empty) limits_ = {0, 0, 0, 0};
  complex_clip_ = true;
  if (*clip == last_clip_) return limits_;
  last_clip_ = *clip;
  clip_.clear();
  for (const RECT &part : clip->rectangles(whole)) {
    for (int y = part.top; y < part.bottom; ++y) clip_.push_back({y, part.left, part.right});
  }
  normalise(clip_);
  return limits_;
}

bool FigurePainter::begin(const Paint &paint) {
  if (paint.rop == R2_NOP) return false;
  inside_.clear();
  pen_.clear();
  use_clip(paint.clip);
  return limits_.left < limits_.right && limits_.top < limits_.bottom;
}

void FigurePainter::paint_layer(Spans &layer, const Paint &paint, const DeviceBrush &brush) {
  if (complex_clip_) {
    intersect(layer, clip_, scratch_);
    layer.swap(scratch_);
  }
  paint_spans(pixels_, layer, brush, paint.rop);
}

void FigurePainter::finish(const Paint &paint) {
  const bool has_inside = !inside_.empty() && paint.brush.kind != DeviceBrush::Kind::none;
  const bool has_gaps = !pen_.gaps.empty() && paint.pen.gap_color;
  // A copy may paint over what was painted before; anything else must meet each pixel once.
  const bool once_each = paint.rop != R2_COPYPEN;
  if (once_each || complex_clip_) {
    normalise(pen_.on);
    normalise(pen_.gaps);
    normalise(inside_);
  }
  if (once_each) {
    if (has_gaps) take_away(pen_.gaps, pen_.on);
    if (has_inside) take_away(inside_, pen_.on);
    if (has_inside && has_gaps) take_away(inside_, pen_.gaps);
  }
  if (has_inside) paint_layer(inside_, paint, paint.brush);
  if (has_gaps) paint_layer(pen_.gaps, paint, solid(*paint.pen.gap_color));
  if (!pen_.on.empty()) paint_layer(pen_.on, paint, solid(paint.pen.color));
}

void FigurePainter::take_away(Spans &from, const Spans &taken) {
  subtract(from, taken, scratch_);
  from.swap(scratch_);
}

void FigurePainter::stroke(std::span<const Point> points, bool closed, const DevicePen &pen) {
  DashWalker dashes(pen);
  converter_.begin(limits_);
  stroker_.set_pen(pen.width, pen.width > 1 ? pen.cap : LineCap::flat, pen.join);
  stroker_.set_view(limits_);
  if (dashes.dashed()) {
    if (pen.gap_color) {
      stroker_.stroke(points, closed);
      converter_.fill(FillRule::winding, pen_.gaps);
      converter_.begin(limits_);
    }
    stroker_.stroke_dashes(points, closed, dashes);
  } else {
    stroker_.stroke(points, closed);
  }
  converter_.fill(FillRule::winding, pen_.on);
}

void FigurePainter::fill_inside(std::span<const Point> points, FillRule rule) {
  converter_.begin(limits_);
  converter_.add_polygon(points);
  converter_.fill(rule, inside_);
}

void FigurePainter::add_polyline(std::span<const POINT> points, bool closed, const Paint &paint) {
  if (paint.pen.width > 1) {
    stroke(corners_, closed, paint.pen);
    return;
  }
  DashWalker dashes(paint.pen);
  for (std::size_t i = 0; i + (closed ? 0 : 1) < points.size(); ++i) {
    add_line(points[i], points[(i + 1) % points.size()], limits_, dashes, pen_);
  }
}

void FigurePainter::add_corners(std::span<const POINT> points) {
  for (const POINT &point : points) {
    const auto [x, y] = within_reach(point);
    corners_.push_back({double{1} * x, double{1} * y});
  }
}

void FigurePainter::polyline(std::span<const POINT> points, const Paint &paint) {
  if (!paint.pen.visible || points.size() < 2 || !begin(paint)) return;
  corners_.clear();
  if (paint.pen.width > 1) {
    add_corners(points);
  }
  add_polyline(points, false, paint);
  finish(paint);
}

void FigurePainter::polygon(std::span<const POINT> points, FillRule rule, const Paint &paint) {
  if (points.size() < 2 || !begin(paint)) return;
  corners_.clear();
  add_corners(points);
  if (paint.brush.kind != DeviceBrush::Kind::none) fill_inside(corners_, rule);
  if (paint.pen.visible) add_polyline(points, true, paint);
  finish(paint);
}

void FigurePainter::thin_outline(const BoxShape &shape, const DevicePen &pen) {
  DashWalker dashes(pen);
  if (dashes.dashed()) {
    add_chain(shape.outline_chain(), limits_, dashes, pen_);
  } else {
    shape.outline(limits_, pen_.on);
  }
}

void FigurePainter::box_figure(const BoxShape &shape, const std::vector<Point> &wide_path,
                               const Paint &paint) {
  if (!paint.pen.visible) {
    shape.fill(limits_, inside_);
  } else if (wide_path.empty()) {
    shape.fill(limits_, inside_);
    thin_outline(shape, paint.pen);
  } else {
    fill_inside(wide_path, FillRule::winding);
    stroke(wide_path, true, paint.pen);
  }
  finish(paint);
}

void FigurePainter::rectangle(const RECT &asked, const Paint &paint) {
  const RECT box = within_reach(asked);
  const BoxShape shape = BoxShape::rectangle(box);
  if (shape.empty() || !begin(paint)) return;
  const bool wide = paint.pen.width > 1 || (paint.pen.dash_count > 0 && !chainable(box));
  box_figure(
      shape,
      wide ? rectangle_path(middle_line(box, paint.pen.width, paint.pen.inside_frame)) : std::vector<Point>(),
      paint);
}

void FigurePainter::rounded_rectangle(const RECT &asked, SIZE corner, const Paint &paint) {
  const RECT box = within_reach(asked);
  const BoxShape shape = BoxShape::rounded_rectangle(box, corner);
  if (shape.empty() || !begin(paint)) return;
  const bool wide = paint.pen.width > 1 || (paint.pen.dash_count > 0 && !chainable(box));
  const RealBox middle = middle_line(box, paint.pen.width, paint.pen.inside_frame);
  box_figure(shape, wide ? rounded_rectangle_path(middle, box, corner) : std::vector<Point>(), paint);
}

void FigurePainter::ellipse(const RECT &asked, const Paint &paint) {
  const RECT box = within_reach(asked);
  const BoxShape shape = BoxShape::ellipse(box);
  if (shape.empty() || !begin(paint)) return;
  const bool wide = paint.pen.width > 1 || (paint.pen.dash_count > 0 && !chainable(box));
  box_figure(
      shape,
      wide ? ellipse_path(middle_line(box, paint.pen.width, paint.pen.inside_frame)) : std::vector<Point>(),
      paint);
}

void FigurePainter::arc(const RECT &asked, POINT start, POINT end, const Paint &paint) {
  const RECT box = within_reach(asked);
  const BoxShape shape = BoxShape::ellipse(box);
  if (!paint.pen.visible || shape.empty() || !begin(paint)) return;
  if (paint.pen.width > 1 || !chainable(box)) {
    bool closed = false;
    const RealBox middle = middle_line(box, paint.pen.width, paint.pen.inside_frame);
    const std::vector<Point> path = arc_path(middle, box, start, end, closed);
    stroke(path, closed, paint.pen);
  } else {
    const double from = direction_of(box, start);
    const double sweep = turn_between(from, direction_of(box, end));
    std::vector<POINT> chain = shape.outline_chain();
    const auto turn = [&](const POINT &point) { return turn_between(from, direction_of(box, point)); };
    if (sweep > 0) {
      // The chain runs the same way round: its first pixel behind the starting ray comes first.
      std::rotate(chain.begin(),
                  std::min_element(chain.begin(), chain.end(),
                                   [&](const POINT &a, const POINT &b) { return turn(a) < turn(b); }),
                  chain.end());
      std::erase_if(chain, [&](const POINT &point) { return turn(point) >= sweep; });
    }
    DashWalker dashes(paint.pen);
    add_chain(chain, limits_, dashes, pen_);
  }
  finish(paint);
}

void FigurePainter::spans(const Spans &spans, COLORREF color, const Paint &paint) {
  if (!begin(paint)) return;
  pen_.on = spans;
  paint_layer(pen_.on, paint, solid(color));
}

}  // namespace raster
