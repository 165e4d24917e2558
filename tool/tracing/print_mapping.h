#pragma once
// From page positions to the logical units of printer map modes, whose y axis points up.

#include "tool/geometry/truncation.h"

namespace tracing {

struct PrintMapping {
  CPointD base;
  double mag_x;
  double mag_y;

  /// (base + p) times the magnification, truncated toward zero, y negated.
  constexpr CPoint operator()(const CPointD &p) const {
    const CPoint mapped = geometry::truncate({(base.x + p.x) * mag_x, (base.y + p.y) * mag_y});
    return {mapped.x, geometry::integer_difference(0, mapped.y)};
  }
};

}  // namespace tracing
