#include "tool/framework/gdi/scan_conversion.h"

#include <algorithm>
#include <cmath>

namespace framework {
namespace {

__extension__ using Wide = __int128;  // fourth powers of coordinates

std::int64_t ceil_divide(std::int64_t a, std::int64_t positive) {
  return a >= 0 ? (a + positive - 1) / positive : -(-a / positive);
}

/// The first pixel of row y whose centre does not lie left of the edge.
LONG first_pixel(POINT top, POINT bottom, LONG y) {
  const std::int64_t height = std::int64_t{bottom.y} - top.y;
  const std::int64_t across = std::int64_t{bottom.x} - top.x;
  const std::int64_t down = 2 * (std::int64_t{y} - top.y) + 1;  // half pixels
  // top.x + across * down / (2 * height) <= x + 1/2
  return static_cast<LONG>(top.x + ceil_divide(across * down - height, 2 * height));
}

}  // namespace

PolygonScanner::PolygonScanner(std::span<const POINT> points, FillRule rule) : rule_(rule) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    const POINT a = points[i];
    const POINT b = points[(i + 1) % points.size()];
    if (a.y < b.y) edges_.push_back({a, b, 1});
    if (a.y > b.y) edges_.push_back({b, a, -1});
  }
  std::ranges::sort(edges_, {}, [](const Edge &edge) { return edge.top.y; });
}

std::span<const RowSpan> PolygonScanner::row(LONG y) {
  for (; next_ < edges_.size() && edges_[next_].top.y <= y; ++next_) active_.push_back(edges_[next_]);
  std::erase_if(active_, [y](const Edge &edge) { return edge.bottom.y <= y; });
  crossings_.clear();
  for (const Edge &edge : active_)
    crossings_.push_back({first_pixel(edge.top, edge.bottom, y), edge.winding});
  std::ranges::sort(crossings_, {}, &Crossing::x);
  spans_.clear();
  int inside = 0;
  for (std::size_t i = 0; i + 1 < crossings_.size(); ++i) {
    inside += rule_ == FillRule::winding ? crossings_[i].winding : 1;
    const bool filled = rule_ == FillRule::winding ? inside != 0 : inside % 2 != 0;
    const RowSpan span{crossings_[i].x, crossings_[i + 1].x};
    if (!filled || span.left == span.right) continue;
    if (!spans_.empty() && spans_.back().right == span.left)
      spans_.back().right = span.right;
    else
      spans_.push_back(span);
  }
  return spans_;
}

RowSpan ellipse_row(const RECT &box, LONG y) {
  const std::int64_t width = std::int64_t{box.right} - box.left;
  const std::int64_t height = std::int64_t{box.bottom} - box.top;
  if (width <= 0 || height <= 0 || y < box.top || y >= box.bottom) return {box.left, box.left};
  // Doubled coordinates about the centre make every pixel centre a whole number.
  const std::int64_t dy = 2 * std::int64_t{y} + 1 - box.top - box.bottom;
  const Wide room = Wide{width} * width * (Wide{height} * height - Wide{dy} * dy);  // > 0: |dy| < height
  const auto inside = [&](std::int64_t dx) {
    const Wide used = Wide{dx} * dx * height * height;
    return used < room || (used == room && (dx < 0 || (dx == 0 && dy < 0)));
  };
  const double share = static_cast<double>(dy) / static_cast<double>(height);
  const double reach = static_cast<double>(width) * std::sqrt(1 - share * share);
  // The estimate is good to a pixel or so; the exact rule decides.
  const auto offset = [&](std::int64_t x) { return 2 * x + 1 - box.left - box.right; };
  std::int64_t left = static_cast<std::int64_t>((box.left + box.right - reach) / 2) - 2;
  while (left < box.right && !inside(offset(left))) ++left;
  std::int64_t right = std::max(left, static_cast<std::int64_t>((box.left + box.right + reach) / 2) - 2);
  while (right > left && !inside(offset(right - 1))) --right;
  while (right < box.right && inside(offset(right))) ++right;
  return {static_cast<LONG>(left), static_cast<LONG>(right)};
}

}  // namespace framework
