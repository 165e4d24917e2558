#pragma once
// Lines one pixel wide.

#include "backends/qt/raster/dash_walker.h"
#include "backends/qt/raster/spans.h"

namespace raster {

/// Pixels of a pen one pixel wide: those of its dashes and those of its gaps.
struct ThinPixels {
  Spans on;
  Spans gaps;

  void clear() {
    on.clear();
    gaps.clear();
  }
};

/// Every pixel of the line from `a` to `b` but the last, `b`, inside `limits`: one for each column of a flat
/// line, one for each row of a steep one; a tie goes up or left whichever way the line runs. Dashes are
/// counted along the line.
void add_line(POINT a, POINT b, const RECT &limits, DashWalker &dashes, ThinPixels &pixels);

/// Pixels of a curve in its order, each counted as one of dash.
void add_chain(std::span<const POINT> chain, const RECT &limits, DashWalker &dashes, ThinPixels &pixels);

}  // namespace raster
