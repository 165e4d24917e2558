#include "tool/tracing/outline_transfer.h"

#include <algorithm>
#include <array>

#include "tool/geometry/angles.h"
#include "tool/geometry/distances.h"
#include "tool/geometry/lines.h"
#include "tool/geometry/transforms.h"
#include "tool/geometry/truncation.h"
#include "tool/tracing/primitives.h"

namespace tracing {

namespace {

using DevicePoints = std::array<POINT, outline_capacity>;

CPoint point(StoredOutline outline, int index) {
  return {outline[index][0], outline[index][1]};
}

/// A similarity that keeps angles and distances relative to a segment, seen from its pivot end.
struct SegmentFit {
  CPoint pivot;
  CPoint other;
  CPointD target_pivot;
  CPointD target_other;
  double ratio;

  CPointD operator()(CPoint p) const {
    if (p == other) return target_other;
    if (p == pivot) return target_pivot;
    const double angle = geometry::angle_at(other, pivot, p);
    const bool other_side = p.x < geometry::foot(other, pivot, p).x;
    return geometry::turned_offset_px(target_pivot, target_other, target_pivot,
                                      geometry::length(pivot, p, 1.0) * ratio,
                                      other_side ? 360 - angle : angle);
  }
};

SegmentFit segment_fit(StoredOutline outline, int size, const OutlineFit &fit) {
  CPoint s1 = fit.source_1;
  CPoint s2 = fit.source_2;
  if (s1 == s2) {
    const bool reversed = s1.x == -1;
    s1 = point(outline, reversed ? size - 1 : 0);
    s2 = point(outline, reversed ? 0 : size - 1);
  }
  const double source_length = geometry::length(s1, s2, 1.0);
  const double ratio =
      source_length == 0.0 ? 0.0 : geometry::length(fit.target_a, fit.target_b, 1.0) / source_length;
  if (fit.pivot_first) return {s1, s2, fit.target_a, fit.target_b, ratio};
  return {s2, s1, fit.target_b, fit.target_a, ratio};
}

POINT device_point(CPointD q, const OutlineView &view) {
  CPointD r = geometry::rotated(view.centre, q, view.turn, view.scale);
  if (view.mirrored)
    r = geometry::turned_offset(view.centre, r, view.centre, geometry::length(view.centre, r, view.scale),
                                0.0, 1.0);
  const CPoint zoomed = geometry::truncate(r * view.mag);
  const auto difference = geometry::integer_difference;
  return {difference(zoomed.x, view.origin.x),
          view.mirrored ? difference(view.origin.y, zoomed.y) : difference(zoomed.y, view.origin.y)};
}

}  // namespace

int outline_size(StoredOutline outline) {
  if (!outline) return 0;
  int size = 1;
  while (size < outline_capacity && !(point(outline, size) == CPoint())) ++size;
  return size;
}

int transfer_outline(StoredOutline outline, const OutlineFit &fit, const OutlineView &view, POINT *device) {
  const int size = outline_size(outline);
  if (size == 0) return 0;
  const SegmentFit fitted = segment_fit(outline, size, fit);
  for (int i = 0; i < size; ++i) device[i] = device_point(fitted(point(outline, i)), view);
  return size;
}

void draw_transferred_outline(CDC &dc, StoredOutline outline, const OutlineFit &fit, const OutlineView &view,
                              const LineStyle &line) {
  DevicePoints points{};
  const int size = transfer_outline(outline, fit, view, points.data());
  draw_polyline(dc, {points.data(), static_cast<std::size_t>(size)}, line);
}

void draw_transferred_outline_image(CDC &dc, StoredOutline outline, const OutlineFit &fit,
                                    const OutlineView &view, const LineStyle &line) {
  DevicePoints points{};
  const int size = transfer_outline(outline, fit, view, points.data());
  for (int i = 1; i < size; ++i) {
    const auto at = static_cast<std::size_t>(i);
    draw_line_image(dc, points[at - 1], points[at], line);
  }
}

}  // namespace tracing
