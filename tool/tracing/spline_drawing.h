#pragma once
// Smooth curves through short lists of points: every outline of a tracing is drawn with these. One point is
// drawn as a cross of two short lines, two points as a straight line, none as nothing.

#include <span>

#include "tool/framework/gdi/CDC.h"
#include "tool/geometry/splines.h"
#include "tool/geometry/view_mapping.h"
#include "tool/tracing/line_style.h"
#include "tool/tracing/superimposed_line.h"
#include "tool/tracing/trace_store.h"

namespace tracing {

inline constexpr int usual_spline_step = 10;

/// From a closed flag as records and callers have it.
constexpr geometry::CurveEnds curve_ends(int closed) {
  return closed != 0 ? geometry::CurveEnds::closed : geometry::CurveEnds::open;
}

struct SplineShape {
  std::span<const POINT> points;
  geometry::CurveEnds ends = geometry::CurveEnds::open;
  int step = usual_spline_step;  ///< units of the points between vertices; a vertex may lie on either side of
                                 ///< a point, only the curve's ends are met exactly
};

/// As one polyline with the pen of outlines, last pixel excluded. The closed curve of n points starts and
/// ends at its second point.
void draw_spline(CDC &dc, const SplineShape &shape, const geometry::ViewMapping &view, const LineStyle &line);
/// The same in an image bitmap: straight pieces with the pen of image lines.
void draw_spline_image(CDC &dc, const SplineShape &shape, const geometry::ViewMapping &view,
                       const LineStyle &line);

// Hand-drawn traces
// ----------------------------------------------------------------------------------------------------------
struct TraceView {
  geometry::ViewMapping mapping;
  CPoint centre;          ///< of the display rotation
  double rotation = 0.0;  ///< degrees, clockwise; turned points are truncated to whole pixels
};
/// An entry of the tracing itself. `spots`: a disc of radius 4 in this colour on every point.
void draw_trace(CDC &dc, TraceEntry entry, const TraceView &view, const LineStyle &line,
                const COLORREF *spots);

/// An entry of a superimposed tracing, whose reference point is `reference`. A rubber band keeps its line.
void draw_superimposed_trace(CDC &dc, TraceEntry entry, const Superimposition &on, CPointD reference,
                             const LineStyle &line, Stroke stroke);

/// A structure's spline of a superimposed tracing: the vertices of the unmapped curve, each mapped. A single
/// point is a disc.
void draw_superimposed_spline(CDC &dc, const SplineShape &shape, const Superimposition &on, CPointD reference,
                              const LineStyle &line, Stroke stroke);

}  // namespace tracing
