#include "tool/framework/gdi/region.h"

#include <algorithm>
#include <array>

#include "tool/framework/gdi/constants.h"
#include "tool/framework/gdi/mapping.h"
#include "tool/framework/gdi/region_rows.h"
#include "tool/framework/gdi/scan_conversion.h"

namespace framework {
namespace {

LONG within(LONG coordinate) {
  return std::clamp(coordinate, -max_device_coordinate, max_device_coordinate);
}

RECT sorted(const RECT &rect) {
  const LONG left = within(rect.left), right = within(rect.right);
  const LONG top = within(rect.top), bottom = within(rect.bottom);
  return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
}

bool is_empty(const RECT &rect) {
  return rect.left >= rect.right || rect.top >= rect.bottom;
}

RECT common(const RECT &a, const RECT &b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

RECT bounds_of(const std::vector<RECT> &rects) {
  RECT bounds = rects.front();
  for (const RECT &rect : rects)
    bounds = {std::min(bounds.left, rect.left), std::min(bounds.top, rect.top),
              std::max(bounds.right, rect.right), std::max(bounds.bottom, rect.bottom)};
  return bounds;
}

/// The spans of a figure's rows as rectangles cut to `limits`.
template <typename SpansOfRow>
std::vector<RECT> figure_rows(const RECT &limits, SpansOfRow spans_of_row) {
  std::vector<RECT> area, row;
  std::size_t last_row = 0;
  for (LONG y = limits.top; y < limits.bottom; ++y) {
    row.clear();
    for (const RowSpan &span : spans_of_row(y)) {
      const RECT rect = common({span.left, y, span.right, y + 1}, limits);
      if (!is_empty(rect)) row.push_back(rect);
    }
    append_row(area, last_row, row);
  }
  return area;
}

}  // namespace

Region Region::rectangle(const RECT &rect) {
  Region region;
  region.bounds_ = sorted(rect);
  region.kind_ = is_empty(region.bounds_) ? Kind::empty : Kind::rectangle;
  if (region.kind_ == Kind::empty) region.bounds_ = {0, 0, 0, 0};
  return region;
}

Region Region::ellipse(const RECT &box) {
  Region region = rectangle(box);
  if (region.kind_ == Kind::rectangle) region.kind_ = Kind::ellipse;
  return region;
}

Region Region::polygon(std::span<const POINT> points, FillRule rule) {
  Region region;
  if (points.size() < 3) return region;
  region.points_.reserve(points.size());
  for (const POINT &point : points) region.points_.push_back({within(point.x), within(point.y)});
  const auto [left, right] = std::ranges::minmax(region.points_, {}, &POINT::x);
  const auto [top, bottom] = std::ranges::minmax(region.points_, {}, &POINT::y);
  const RECT bounds{left.x, top.y, right.x, bottom.y};
  if (is_empty(bounds)) return {};
  region.kind_ = Kind::polygon;
  region.rule_ = rule;
  region.bounds_ = bounds;
  return region;
}

bool Region::contains(POINT point) const {
  if (point.x < bounds_.left || point.y < bounds_.top || point.x >= bounds_.right ||
      point.y >= bounds_.bottom)
    return false;
  return !rectangles({point.x, point.y, point.x + 1, point.y + 1}).empty();
}

std::vector<RECT> Region::rectangles(const RECT &limits) const {
  const RECT visible = common(bounds_, limits);
  if (is_empty(visible)) return {};
  switch (kind_) {
    case Kind::empty:
      return {};
    case Kind::rectangle:
      return {visible};
    case Kind::polygon: {
      PolygonScanner scanner(points_, rule_);
      return figure_rows(visible, [&](LONG y) { return scanner.row(y); });
    }
    case Kind::ellipse:
      return figure_rows(visible, [&](LONG y) { return std::array{ellipse_row(bounds_, y)}; });
    case Kind::rows:
      break;
  }
  std::vector<RECT> cut;
  for (const RECT &rect : rows_)
    if (const RECT part = common(rect, visible); !is_empty(part)) cut.push_back(part);
  return cut;
}

Region Region::combined(const Region &a, const Region &b, int operation) {
  if (operation == RGN_COPY) return a;
  if (operation == RGN_AND && a.kind_ == Kind::rectangle && b.kind_ == Kind::rectangle) {
    const RECT shared = common(a.bounds_, b.bounds_);
    return is_empty(shared) ? Region() : rectangle(shared);
  }
  if (operation != RGN_AND && b.kind_ == Kind::empty) return a;
  if ((operation == RGN_OR || operation == RGN_XOR) && a.kind_ == Kind::empty) return b;
  const auto rows_of = [&](const Region &region, const Region &other) {
    const bool figure = region.kind_ == Kind::polygon || region.kind_ == Kind::ellipse;
    const RECT limits = operation == RGN_AND ? common(region.bounds_, other.bounds_) : region.bounds_;
    return region.rectangles(figure ? common(limits, raster_limits) : limits);
  };
  Region region;
  region.rows_ = combined_rows(rows_of(a, b), rows_of(b, a), operation);
  if (region.rows_.empty()) return region;
  region.bounds_ = bounds_of(region.rows_);
  if (region.rows_.size() == 1) return rectangle(region.bounds_);
  region.kind_ = Kind::rows;
  return region;
}

void Region::offset(int dx, int dy) {
  if (kind_ == Kind::empty) return;
  const auto moved = [](LONG coordinate, int by) {
    return static_cast<LONG>(std::clamp<std::int64_t>(std::int64_t{coordinate} + by, -max_device_coordinate,
                                                      max_device_coordinate));
  };
  const auto move = [&](RECT &r) {
    r = {moved(r.left, dx), moved(r.top, dy), moved(r.right, dx), moved(r.bottom, dy)};
  };
  move(bounds_);
  for (POINT &point : points_) point = {moved(point.x, dx), moved(point.y, dy)};
  for (RECT &rect : rows_) move(rect);
  std::erase_if(rows_, is_empty);
  if (is_empty(bounds_)) *this = Region();
}

bool operator==(const Region &a, const Region &b) {
  const auto same_rect = [](const RECT &x, const RECT &y) {
    return x.left == y.left && x.top == y.top && x.right == y.right && x.bottom == y.bottom;
  };
  const auto same_point = [](const POINT &x, const POINT &y) { return x.x == y.x && x.y == y.y; };
  return a.kind_ == b.kind_ && a.rule_ == b.rule_ && same_rect(a.bounds_, b.bounds_) &&
         std::ranges::equal(a.points_, b.points_, same_point) &&
         std::ranges::equal(a.rows_, b.rows_, same_rect);
}

}  // namespace framework
