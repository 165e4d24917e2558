#include "backends/qt/raster/scan_converter.h"

#include <algorithm>
#include <cmath>

namespace raster {

namespace {

/// The first whole number not below v, kept where it can be counted with.
int ceiling(double v) {
  return static_cast<int>(std::ceil(std::clamp(v, -1e9, 1e9)));
}

}  // namespace

void ScanConverter::begin(const RECT &view) {
  view_ = view;
  edges_.clear();
}

void ScanConverter::add_edge(Point a, Point b, bool reversed) {
  if (!std::isfinite(a.x + a.y + b.x + b.y)) return;
  int winding = reversed ? -1 : 1;
  if (a.y > b.y) {
    std::swap(a, b);
    winding = -winding;
  }
  const int top = ceiling(a.y);
  const int bottom = ceiling(b.y);
  if (top < bottom && top < view_.bottom && bottom > view_.top)
    edges_.push_back({top, bottom, winding, a.x, a.y, (b.x - a.x) / (b.y - a.y), 0});
}

void ScanConverter::add_polygon(std::span<const Point> corners) {
  for (std::size_t i = 0; i < corners.size(); ++i)
    add_edge(corners[i], corners[(i + 1) % corners.size()], false);
}

void ScanConverter::add_convex(std::span<const Point> corners) {
  double area = 0;
  double left = corners[0].x;
  double right = left;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point &a = corners[i];
    const Point &b = corners[(i + 1) % corners.size()];
    left = std::min(left, a.x);
    right = std::max(right, a.x);
    area += (a.x - corners[0].x) * (b.y - corners[0].y) - (b.x - corners[0].x) * (a.y - corners[0].y);
  }
  if (right < view_.left || left >= view_.right) return;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    add_edge(corners[i], corners[(i + 1) % corners.size()], area < 0);
  }
}

void ScanConverter::fill(framework::FillRule rule, Spans &result) {
  result.clear();
  std::sort(edges_.begin(), edges_.end(), [](const Edge &a, const Edge &b) { return a.top < b.top; });
  active_.clear();
  auto next = edges_.begin();
  for (int y = edges_.empty() ? view_.bottom : std::max(view_.top, edges_.front().top); y < view_.bottom;
       ++y) {
    const auto first_new = next;
    for (; next != edges_.end() && next->top <= y; ++next) {
      if (next->bottom > y) active_.push_back(*next);
    }
    std::erase_if(active_, [y](const Edge &edge) { return edge.bottom <= y; });
    if (active_.empty() && next == edges_.end()) break;
    for (Edge &edge : active_) edge.here = edge.x + (y - edge.y) * edge.slope;
    if (next - first_new > 8) {
      std::sort(active_.begin(), active_.end(), [](const Edge &a, const Edge &b) { return a.here < b.here; });
    }
    // Nearly in order from row to row.
    for (std::size_t i = 1; i < active_.size(); ++i) {
      for (std::size_t j = i; j > 0 && active_[j].here < active_[j - 1].here; --j) {
        std::swap(active_[j], active_[j - 1]);
      }
    }
    int winding = 0;
    for (std::size_t i = 0; i + 1 < active_.size(); ++i) {
      winding += rule == framework::FillRule::winding ? active_[i].winding : 1;
      const bool inside = rule == framework::FillRule::winding ? winding != 0 : winding % 2 != 0;
      if (!inside) continue;
      const int left = std::max(ceiling(active_[i].here), view_.left);
      const int right = std::min(ceiling(active_[i + 1].here), view_.right);
      if (left >= right) continue;
      if (!result.empty() && result.back().y == y && result.back().right >= left) {
        result.back().right = std::max(result.back().right, right);
      } else {
        result.push_back({y, left, right});
      }
    }
  }
}

}  // namespace raster
