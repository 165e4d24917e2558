#include "backends/qt/raster/box_shape.h"

#include <algorithm>
#include <cmath>

namespace raster {

namespace {

/// The part of a row that is no outline, empty where left >= right: its neighbours on all four sides belong
/// to the figure.
Span inner_part(const Span &above, const Span &here, const Span &below) {
  return {here.y, std::max({above.left, here.left + 1, below.left}),
          std::min({above.right, here.right - 1, below.right})};
}

}  // namespace

BoxShape::BoxShape(const RECT &box, SIZE corner)
    : box_(box),
      corner_width_(std::clamp<double>(corner.cx, 0, std::max(0.0, double{1} * box.right - box.left))),
      corner_height_(std::clamp<double>(corner.cy, 0, std::max(0.0, double{1} * box.bottom - box.top))) {}

Span BoxShape::row(int y) const {
  // Height of the row's centre above (or below) the middle line of the corners, in halves of their height.
  const double from_edge = std::min(y - double{1} * box_.top, double{1} * box_.bottom - 1 - y) + 0.5;
  int inset = 0;
  if (from_edge < corner_height_ / 2 - 0.5) {
    const double height = 1 - 2 * from_edge / corner_height_;
    const double half_width = corner_width_ / 2 * std::sqrt(1 - height * height);
    // The first pixel whose centre is not left of the curve.
    inset = static_cast<int>(std::max(0.0, std::ceil(corner_width_ / 2 - half_width - 0.5)));
  }
  // The figure touches all four sides of its box: the tips of a narrow or flat one keep their pixels.
  inset = std::min(inset, (box_.right - box_.left - 1) / 2);
  return {y, box_.left + inset, box_.right - inset};
}

Span BoxShape::row_or_nothing(int y) const {
  return y < box_.top || y >= box_.bottom ? Span{y, box_.right, box_.left} : row(y);
}

void BoxShape::fill(const RECT &limits, Spans &result) const {
  if (empty()) return;
  for (int y = std::max(box_.top, limits.top); y < std::min(box_.bottom, limits.bottom); ++y) {
    const Span run = row(y);
    add_span(result, y, run.left, run.right, limits);
  }
}

void BoxShape::outline(const RECT &limits, Spans &result) const {
  if (empty()) return;
  const int first = std::max(box_.top, limits.top);
  Span above = row_or_nothing(first - 1);
  Span here = row_or_nothing(first);
  for (int y = first; y < std::min(box_.bottom, limits.bottom); ++y) {
    const Span below = row_or_nothing(y + 1);
    const Span inner = inner_part(above, here, below);
    if (inner.left >= inner.right) {
      add_span(result, y, here.left, here.right, limits);
    } else {
      add_span(result, y, here.left, inner.left, limits);
      add_span(result, y, inner.right, here.right, limits);
    }
    above = here;
    here = below;
  }
}

std::vector<POINT> BoxShape::outline_chain() const {
  std::vector<POINT> left, right;
  if (empty()) return left;
  const int middle_row = box_.top + (box_.bottom - box_.top) / 2;
  for (int y = box_.top; y < box_.bottom; ++y) {
    const Span run = row(y);
    Span inner = inner_part(row_or_nothing(y - 1), run, row_or_nothing(y + 1));
    if (inner.left >= inner.right) inner.left = inner.right = run.left + (run.right - run.left + 1) / 2;
    // Above the middle the outline runs outward on its way down, below it inward.
    if (y < middle_row) {
      for (int x = inner.left - 1; x >= run.left; --x) left.push_back({x, y});
      for (int x = inner.right; x < run.right; ++x) right.push_back({x, y});
    } else {
      for (int x = run.left; x < inner.left; ++x) left.push_back({x, y});
      for (int x = run.right - 1; x >= inner.right; --x) right.push_back({x, y});
    }
  }
  left.insert(left.end(), right.rbegin(), right.rend());
  return left;
}

}  // namespace raster
