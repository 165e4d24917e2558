#pragma once
// The figures that are given by their box: each row is one run of pixels. A pixel belongs to an ellipse when
// its centre lies inside; right and bottom edge of the box do not belong to the figure.

#include <vector>

#include "backends/qt/raster/spans.h"

namespace raster {

class BoxShape {
 public:
  static BoxShape rectangle(const RECT &box) { return BoxShape(box, {0, 0}); }
  static BoxShape ellipse(const RECT &box) {
    return BoxShape(box, {box.right - box.left, box.bottom - box.top});
  }
  /// `corner`: diameters of the corner ellipses.
  static BoxShape rounded_rectangle(const RECT &box, SIZE corner) { return BoxShape(box, corner); }

  const RECT &box() const { return box_; }
  bool empty() const { return box_.left >= box_.right || box_.top >= box_.bottom; }
  Span row(int y) const;

  /// Its pixels, and the outline one pixel wide among them: those with a neighbour above, below, left or
  /// right that is no part of the figure.
  void fill(const RECT &limits, Spans &result) const;
  void outline(const RECT &limits, Spans &result) const;
  /// The outline pixel by pixel, counter-clockwise as seen from the middle of the top.
  std::vector<POINT> outline_chain() const;

 private:
  BoxShape(const RECT &box, SIZE corner);
  /// Above and below the figure a row that has no pixel.
  Span row_or_nothing(int y) const;

  RECT box_;
  double corner_width_;
  double corner_height_;
};

}  // namespace raster
