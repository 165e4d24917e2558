#include "tool/framework/gdi/region_rows.h"

#include <algorithm>
#include <cstddef>

#include "tool/framework/gdi/constants.h"

namespace framework {
namespace {

bool holds(int operation, bool in_a, bool in_b) {
  switch (operation) {
    case RGN_AND:
      return in_a && in_b;
    case RGN_OR:
      return in_a || in_b;
    case RGN_XOR:
      return in_a != in_b;
    default:
      return in_a && !in_b;
  }
}

/// The rectangles of an area that cross the rows [top, bottom), walked from the top down.
class RowWalk {
 public:
  explicit RowWalk(const std::vector<RECT> &area) : area_(area) {}

  /// Left and right edges in turn; `top` rises from call to call and lies on an edge of some row.
  const std::vector<LONG> &edges(LONG top) {
    while (first_ < area_.size() && area_[first_].bottom <= top) ++first_;
    edges_.clear();
    for (std::size_t i = first_; i < area_.size() && area_[i].top <= top; ++i) {
      edges_.push_back(area_[i].left);
      edges_.push_back(area_[i].right);
    }
    return edges_;
  }

 private:
  const std::vector<RECT> &area_;
  std::size_t first_ = 0;
  std::vector<LONG> edges_;
};

/// One row from the edges of both areas.
std::vector<RECT> combined_row(const std::vector<LONG> &a, const std::vector<LONG> &b, int operation,
                               LONG top, LONG bottom) {
  std::vector<RECT> row;
  std::size_t i = 0, j = 0;
  bool inside = false;
  while (i < a.size() || j < b.size()) {
    const LONG x = j == b.size() || (i < a.size() && a[i] <= b[j]) ? a[i] : b[j];
    while (i < a.size() && a[i] == x) ++i;
    while (j < b.size() && b[j] == x) ++j;
    const bool now = holds(operation, i % 2 == 1, j % 2 == 1);
    if (now && !inside) row.push_back({x, top, x, bottom});
    if (!now && inside) row.back().right = x;
    inside = now;
  }
  return row;
}

}  // namespace

std::vector<RECT> combined_rows(const std::vector<RECT> &a, const std::vector<RECT> &b, int operation) {
  std::vector<LONG> levels;
  for (const std::vector<RECT> *area : {&a, &b})
    for (const RECT &rect : *area) {
      levels.push_back(rect.top);
      levels.push_back(rect.bottom);
    }
  std::ranges::sort(levels);
  levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
  RowWalk walk_a(a), walk_b(b);
  std::vector<RECT> result;
  std::size_t last_row = 0;
  for (std::size_t i = 0; i + 1 < levels.size(); ++i)
    append_row(
        result, last_row,
        combined_row(walk_a.edges(levels[i]), walk_b.edges(levels[i]), operation, levels[i], levels[i + 1]));
  return result;
}

void append_row(std::vector<RECT> &area, std::size_t &last_row, const std::vector<RECT> &row) {
  if (row.empty()) return;
  const auto before = area.begin() + static_cast<std::ptrdiff_t>(last_row);
  const bool same = !area.empty() && area.back().bottom == row.front().top &&
                    std::equal(before, area.end(), row.begin(), row.end(), [](const RECT &a, const RECT &b) {
                      return a.left == b.left && a.right == b.right;
                    });
  if (same) {
    for (auto rect = before; rect != area.end(); ++rect) rect->bottom = row.front().bottom;
    return;
  }
  last_row = area.size();
  area.insert(area.end(), row.begin(), row.end());
}

}  // namespace framework
