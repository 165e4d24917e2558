#pragma once
// Polygons with real corners into rows of pixels. The centre of pixel (x, y) is the point (x, y): lines run
// through pixel centres.

#include <span>
#include <vector>

#include "backends/qt/raster/spans.h"
#include "tool/framework/gdi/region.h"

namespace raster {

struct Point {
  double x;
  double y;
};

class ScanConverter {
 public:
  /// Begins anew; nothing outside `view` counts.
  void begin(const RECT &view);
  /// Adds a closed polygon.
  void add_polygon(std::span<const Point> corners);
  /// Adds a convex polygon as if it ran clockwise, so that the winding of overlapping pieces adds up.
  void add_convex(std::span<const Point> corners);
  /// The pixels whose centre lies inside all that was added: a centre on a left or top edge does, on a right
  /// or bottom edge does not. A normalised set.
  void fill(framework::FillRule rule, Spans &result);

 private:
  struct Edge {
    int top;     // first row
    int bottom;  // behind the last
    int winding;
    double x, y;   // a point of the edge
    double slope;  // of x over y
    double here;   // x in the present row
  };
  void add_edge(Point a, Point b, bool reversed);

  RECT view_{};
  std::vector<Edge> edges_;
  std::vector<Edge> active_;
};

}  // namespace raster
