#pragma once
// From image pixels to the whole-pixel coordinates of a zoomed view.

#include "tool/geometry/truncation.h"

namespace geometry {

struct ViewMapping {
  CPoint origin;  ///< of the view, in zoomed pixels
  double zoom;
  bool flip;  ///< mirrors y about the origin

  /// The zoomed point is truncated toward zero, then the origin is subtracted.
  constexpr CPoint operator()(const CPointD &p) const {
    const CPoint zoomed = truncate(p * zoom);
    const std::int32_t x = integer_difference(zoomed.x, origin.x);
    const std::int32_t y = integer_difference(zoomed.y, origin.y);
    return {x, flip ? integer_difference(0, y) : y};
  }
};

}  // namespace geometry
