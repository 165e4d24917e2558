#include "tool/tracing/arrows.h"

#include <array>

#include "tool/geometry/transforms.h"
#include "tool/tracing/primitives.h"

namespace tracing {

namespace {

/// Half the angle at the tip is 20 degrees: each edge leaves it 160 degrees away from the shaft's direction.
constexpr double edge_turn = 160.0;

void fill_head(CDC &dc, CPoint tail, CPoint tip, double length, const geometry::ViewMapping &view,
               CBrush &brush) {
  const auto corner = [&](double turn) {
    return view(geometry::truncate(geometry::turned_offset(tail, tip, length, turn, 1.0)));
  };
  const std::array<POINT, 3> triangle{{corner(edge_turn), corner(-edge_turn), view(tip)}};
  CRgn region;
  if (region.CreatePolygonRgn(triangle.data(), 3, ALTERNATE)) dc.FillRgn(&region, &brush);
}

}  // namespace

void draw_arrow(CDC &dc, CPoint p1, CPoint p2, const ArrowHeads &heads, const geometry::ViewMapping &view,
                const LineStyle &line) {
  draw_line(dc, view(p1), view(p2), line);
  CBrush brush(line.color);
  if (heads.at_first) fill_head(dc, p2, p1, heads.length, view, brush);
  if (heads.at_second) fill_head(dc, p1, p2, heads.length, view, brush);
}

}  // namespace tracing
