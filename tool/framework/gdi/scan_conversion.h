#pragma once
// Which pixels of a row lie inside a polygon or an ellipse, exactly: a pixel belongs to the figure when its
// centre lies inside; of centres on the outline those of left and top edges belong.

#include <cstdint>
#include <span>
#include <vector>

#include "tool/framework/gdi/region.h"

namespace framework {

/// Pixels [left, right) of a row.
struct RowSpan {
  LONG left;
  LONG right;
  friend bool operator==(const RowSpan &, const RowSpan &) = default;
};

/// Gives the rows of a polygon from the top down. Coordinates within +-2^26.
class PolygonScanner {
 public:
  PolygonScanner(std::span<const POINT> points, FillRule rule);
  /// Disjoint spans of row `y`, left to right; valid until the next call. Rows are asked in rising order.
  std::span<const RowSpan> row(LONG y);

 private:
  struct Edge {
    POINT top, bottom;
    int winding;
  };
  struct Crossing {
    LONG x;  // the first pixel right of the edge
    int winding;
  };
  std::vector<Edge> edges_;  // by top
  std::size_t next_ = 0;
  std::vector<Edge> active_;
  std::vector<Crossing> crossings_;
  std::vector<RowSpan> spans_;
  FillRule rule_;
};

/// The pixels of row `y` in the ellipse of a box; empty (left = right) outside.
RowSpan ellipse_row(const RECT &box, LONG y);

}  // namespace framework
