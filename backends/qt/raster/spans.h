#pragma once
// Sets of pixels as runs in rows: how every shape reaches the bitmap, so that each of its pixels is painted
// once whatever the raster operation.

#include <vector>

#include "tool/framework/types.h"

namespace raster {

/// The pixels left <= x < right of row y.
struct Span {
  int y;
  int left;
  int right;

  friend bool operator==(const Span &, const Span &) = default;
};
using Spans = std::vector<Span>;

/// Adds a pixel, joined to the last run where it touches it.
inline void add_pixel(Spans &spans, int x, int y) {
  if (!spans.empty() && spans.back().y == y) {
    Span &last = spans.back();
    if (x == last.right) {
      ++last.right;
      return;
    }
    if (x == last.left - 1) {
      --last.left;
      return;
    }
  }
  spans.push_back({y, x, x + 1});
}
/// Adds a run cut to `limits`.
void add_span(Spans &spans, int y, int left, int right, const RECT &limits);

/// Sorted by row and column, no pixel twice, no two runs touching. The two below want such sets.
void normalise(Spans &spans);
void subtract(const Spans &from, const Spans &taken, Spans &result);
void intersect(const Spans &a, const Spans &b, Spans &result);

}  // namespace raster
