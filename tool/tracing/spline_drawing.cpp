#include "tool/tracing/spline_drawing.h"

#include "tool/geometry/transforms.h"
#include "tool/tracing/drawing_scope.h"
#include "tool/tracing/point_buffer.h"
#include "tool/tracing/primitives.h"

namespace tracing {

namespace {

constexpr int cross_arm = 2;
constexpr int spot_radius = 4;
constexpr int disc_radius = 2;

using geometry::integer_difference;
using geometry::integer_sum;

/// The two lines of a single point, or the one of two points, each given to `draw` in image pixels.
template <typename Draw>
void draw_short(std::span<const POINT> points, Draw draw) {
  if (points.size() == 2) draw(points[0], points[1]);
  if (points.size() != 1) return;
  const POINT p = points[0];
  const int left = integer_difference(p.x, cross_arm), right = integer_sum(p.x, cross_arm);
  const int top = integer_difference(p.y, cross_arm), bottom = integer_sum(p.y, cross_arm);
  draw(POINT{right, bottom}, POINT{left, top});
  draw(POINT{left, bottom}, POINT{right, top});
}

/// The vertices of a curve of three or more points, each as `map` gives it.
template <typename Map>
void collect_vertices(const SplineShape &shape, Map map, PointBuffer &vertices) {
  const auto count = static_cast<int>(shape.points.size());
  const geometry::Sampling sampling{.spacing = static_cast<double>(shape.step),
                                    .floor = geometry::StepFloor::thousandth,
                                    .knots = geometry::KeptKnots::ends};
  geometry::CurveWalk walk({shape.points.data(), count}, sampling, shape.ends);
  auto chord = walk.next();
  if (chord) vertices.push_back(map(chord->from));
  for (; chord; chord = walk.next()) vertices.push_back(map(chord->to));
}

/// Gives the lines of a short shape to `line`, the vertices of a curve to `curve`.
template <typename Line, typename Curve>
void draw_shape(const SplineShape &shape, const geometry::ViewMapping &view, Line line, Curve curve) {
  if (shape.points.size() < 3) {
    draw_short(shape.points, [&](POINT from, POINT to) { line(view(CPoint(from)), view(CPoint(to))); });
    return;
  }
  PointBuffer vertices;
  collect_vertices(shape, view, vertices);
  curve(vertices.points());
}

}  // namespace

void draw_spline(CDC &dc, const SplineShape &shape, const geometry::ViewMapping &view,
                 const LineStyle &line) {
  draw_shape(
      shape, view, [&](CPoint from, CPoint to) { draw_line(dc, from, to, line); },
      [&](std::span<const POINT> vertices) { draw_polyline(dc, vertices, line); });
}

void draw_spline_image(CDC &dc, const SplineShape &shape, const geometry::ViewMapping &view,
                       const LineStyle &line) {
  const auto piece = [&](CPoint from, CPoint to) { draw_line_image(dc, from, to, line); };
  draw_shape(shape, view, piece, [&](std::span<const POINT> vertices) {
    for (std::size_t i = 1; i < vertices.size(); ++i) piece(vertices[i - 1], vertices[i]);
  });
}

// Traces ------------------------------------------------------------------------------------------

void draw_trace(CDC &dc, TraceEntry entry, const TraceView &view, const LineStyle &line,
                const COLORREF *spots) {
  const CPointD centre(view.centre);
  TraceRuns runs(entry);
  while (const auto run = runs.next()) {
    for (POINT &p : run->points) {
      p = geometry::truncate(geometry::rotated(centre, CPoint(p), view.rotation, 1.0));
      if (spots) draw_spot(dc, p, spot_radius, view.mapping, *spots);
    }
    draw_spline(dc, {run->points, curve_ends(run->closed)}, view.mapping, line);
  }
}

void draw_superimposed_trace(CDC &dc, TraceEntry entry, const Superimposition &on, CPointD reference,
                             const LineStyle &line, Stroke stroke) {
  if (on.scale == 0.0) return;
  constexpr geometry::ViewMapping device{.origin = {}, .zoom = 1.0, .flip = false};
  DrawingScope scope(dc);
  scope.exclusive_or(stroke == Stroke::rubber_band);
  TraceRuns runs(entry);
  while (const auto run = runs.next()) {
    for (POINT &p : run->points) p = device_point(on, CPointD(CPoint(p)) - reference);
    draw_spline(dc, {run->points, curve_ends(run->closed)}, device, line);
  }
}

void draw_superimposed_spline(CDC &dc, const SplineShape &shape, const Superimposition &on, CPointD reference,
                              const LineStyle &line, Stroke stroke) {
  if (on.scale == 0.0) return;
  const SplinePlacement placement{
      .factor = 1.0, .printing = dc.IsPrinting() != 0, .code = on.ysign < 0 ? static_cast<unsigned>(-1) : 0U};
  const auto map = [&](const CPointD &p) {
    return geometry::truncate(spline_device_coordinates(on, p - reference, placement));
  };
  DrawingScope scope(dc);
  scope.exclusive_or(stroke == Stroke::rubber_band);
  switch (shape.points.size()) {
    case 0:
      return;
    case 1: {
      constexpr geometry::ViewMapping device{.origin = {}, .zoom = 1.0, .flip = false};
      draw_fixed_spot(dc, map(CPoint(shape.points[0])), disc_radius, device, line.color);
      return;
    }
    case 2:
      draw_line(dc, map(CPoint(shape.points[0])), map(CPoint(shape.points[1])), line);
      return;
    default: {
      PointBuffer vertices;
      collect_vertices(shape, map, vertices);
      draw_polyline(dc, vertices.points(), line);
    }
  }
}

}  // namespace tracing
