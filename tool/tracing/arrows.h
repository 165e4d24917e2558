#pragma once
// Lines with filled heads.

#include "tool/framework/gdi/CDC.h"
#include "tool/geometry/view_mapping.h"
#include "tool/tracing/line_style.h"

namespace tracing {

struct ArrowHeads {
  double length;  ///< of the two edges that meet in the tip, image pixels
  bool at_first;
  bool at_second;
};

/// From p1 to p2 (image pixels), each head 40 degrees wide with its tip in the end point. A head's pixels are
/// those whose centre lies inside the triangle.
void draw_arrow(CDC &dc, CPoint p1, CPoint p2, const ArrowHeads &heads, const geometry::ViewMapping &view,
                const LineStyle &line);

}  // namespace tracing
