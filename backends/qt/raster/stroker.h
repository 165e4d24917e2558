#pragma once
// What a pen wider than one pixel covers: convex pieces (a box for each line, wedges at the joints, caps)
// whose union the scan converter fills by winding, each pixel once.

#include <span>
#include <vector>

#include "backends/qt/raster/dash_walker.h"
#include "backends/qt/raster/scan_converter.h"
#include "tool/framework/gdi/drawing_device.h"

namespace raster {

class Stroker {
 public:
  /// Pieces go to `target`, which must live as long.
  explicit Stroker(ScanConverter &target) : target_(target) {}

  void set_pen(double width, framework::LineCap cap, framework::LineJoin join);
  /// What can be seen: dashes further away are left out.
  void set_view(const RECT &view) { view_ = view; }
  /// The whole line. Points that fall together count once; a line without length is a dot with round or
  /// square caps and nothing with flat ones.
  void stroke(std::span<const Point> points, bool closed);
  /// Its dashes.
  void stroke_dashes(std::span<const Point> points, bool closed, DashWalker dashes);

 private:
  void add_dashes(Point a, Point b, DashWalker &dashes);
  void end_dash();
  void stroke_open(std::span<const Point> points);
  void add_line(Point a, Point b);
  void add_join(Point before, Point joint, Point after);
  void add_disc(Point centre);

  ScanConverter &target_;
  RECT view_{};
  double half_ = 1;
  framework::LineCap cap_ = framework::LineCap::round;
  framework::LineJoin join_ = framework::LineJoin::round;
  std::vector<Point> disc_;  // round the origin
  std::vector<Point> clean_, dash_, piece_;
};

}  // namespace raster
