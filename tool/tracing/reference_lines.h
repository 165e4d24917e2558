#pragma once
// Parallels and perpendiculars to a line ab through a point, across a rectangle. All in image pixels.

#include <optional>

#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"

namespace tracing {

struct SpanningLine {
  CPoint from;
  CPoint to;
  /// The end that callers put a label at; a perpendicular that is vertical or horizontal has none.
  std::optional<CPoint> label_end;
  bool axis_parallel = false;  ///< built without a slope
};

/// Steep lines (slope from 0.5 up, from -1.5 down) run from the clip's top to its bottom, others from its
/// left to its right; a vertical line lies at the truncated x of p. Label end: the one with the larger x, the
/// top one of a vertical line.
SpanningLine parallel_line(CPointD a, CPointD b, CPointD p, const RECT &clip);

/// The same for the perpendicular. Label end: the one with the smaller y, else the right one. Coinciding a
/// and b count as a horizontal line.
SpanningLine perpendicular_line(CPointD a, CPointD b, CPointD p, const RECT &clip);

}  // namespace tracing
