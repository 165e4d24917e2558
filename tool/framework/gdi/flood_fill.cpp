#include "tool/framework/gdi/flood_fill.h"

#include <vector>

#include "tool/framework/gdi/raster_operations.h"

namespace framework {
namespace {

/// Finds the area first and paints afterwards, so that the brush may have any colour.
class FloodArea {
 public:
  FloodArea(PixelSpan pixels, COLORREF color, UINT kind, const Region *clip)
      : pixels_(pixels), color_(color & 0xFFFFFF), surface_(kind == FLOODFILLSURFACE) {
    marks_.assign(index(0, pixels.height), clip ? outside : open);
    const RECT whole{0, 0, pixels.width, pixels.height};
    if (!clip) return;
    for (const RECT &rect : clip->rectangles(whole))
      for (LONG y = rect.top; y < rect.bottom; ++y)
        for (LONG x = rect.left; x < rect.right; ++x) marks_[index(x, y)] = open;
  }

  void spread_from(POINT seed) {
    seeds_.push_back(seed);
    while (!seeds_.empty()) {
      const POINT next = seeds_.back();
      seeds_.pop_back();
      if (fillable(next.x, next.y)) fill_run(next);
    }
  }

  bool holds(LONG x, LONG y) const { return marks_[index(x, y)] == filled; }

 private:
  enum Mark : unsigned char { open, outside, filled };

  std::size_t index(LONG x, LONG y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels_.width) +
           static_cast<std::size_t>(x);
  }
  bool fillable(LONG x, LONG y) const {
    if (!pixels_.holds(x, y) || marks_[index(x, y)] != open) return false;
    return (to_color(pixels_.row(y)[x]) == color_) == surface_;
  }

  /// Marks the run of a row through a pixel and looks above and below it.
  void fill_run(POINT through) {
    LONG left = through.x, right = through.x + 1;
    while (fillable(left - 1, through.y)) --left;
    while (fillable(right, through.y)) ++right;
    for (LONG x = left; x < right; ++x) marks_[index(x, through.y)] = filled;
    for (const LONG y : {through.y - 1, through.y + 1})
      for (LONG x = left; x < right; ++x)
        if (fillable(x, y) && (x == left || !fillable(x - 1, y))) seeds_.push_back({x, y});
  }

  PixelSpan pixels_;
  COLORREF color_;
  bool surface_;
  std::vector<unsigned char> marks_;
  std::vector<POINT> seeds_;
};

}  // namespace

void flood_fill(PixelSpan pixels, POINT seed, COLORREF color, UINT kind, const Paint &paint) {
  if (!pixels.holds(seed.x, seed.y) || paint.brush.kind == DeviceBrush::Kind::none) return;
  FloodArea area(pixels, color, kind, paint.clip);
  area.spread_from(seed);
  const BinaryRop rop(paint.rop);
  for (LONG y = 0; y < pixels.height; ++y)
    for (LONG x = 0; x < pixels.width; ++x) {
      if (!area.holds(x, y)) continue;
      std::uint32_t &pixel = pixels.row(y)[x];
      if (const auto pen = brush_pixel(paint.brush, {x, y})) pixel = rop(*pen, pixel);
    }
}

}  // namespace framework
