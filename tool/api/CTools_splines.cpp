#include <algorithm>

#include "tool/api/CTools.h"
#include "tool/geometry/splines.h"

void CTools::SplineCal(double *x, double *y, double x0, double y0, double x1, double y1, double x2, double y2,
                       double x3, double y3, double t, CRect clip, int mode) {
  const auto basis = mode == 0 ? geometry::SplineBasis::catmull_rom : geometry::SplineBasis::lagrange;
  const CPointD point = geometry::spline_point({x0, y0}, {x1, y1}, {x2, y2}, {x3, y3}, t, basis);
  const bool clipped = !clip.IsRectEmpty();
  const auto held = [&](double value, LONG low, LONG high) {
    return clipped ? std::clamp(value, static_cast<double>(low), static_cast<double>(high)) : value;
  };
  *x = held(point.x, clip.left, clip.right);
  *y = held(point.y, clip.top, clip.bottom);
}

double CTools::Get_SPLineLength(tagPOINT *pts, short count, short start, short end, double scale) {
  return geometry::curve_length({pts, count}, {start, end}, scale);
}

double CTools::Get_SPLineLengthd(tagDPOINT *pts, short count, short start, short end, double scale) {
  return geometry::curve_length({pts, count}, {start, end}, scale);
}
