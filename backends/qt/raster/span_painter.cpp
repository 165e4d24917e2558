#include "backends/qt/raster/span_painter.h"

#include <algorithm>

#include "tool/framework/gdi/raster_operations.h"

namespace raster {

namespace {

/// Under a fixed pen colour each bit of a pixel is kept, turned over, cleared or set: pixel & keep ^ flip.
struct BitOperation {
  std::uint32_t keep;
  std::uint32_t flip;

  BitOperation(int rop, COLORREF color) {
    const std::uint32_t pen = framework::to_pixel(color);
    const framework::BinaryRop operation(rop);
    const std::uint32_t on_black = operation(pen, 0xFF000000) & 0xFFFFFF;
    const std::uint32_t on_white = operation(pen, 0xFFFFFFFF) & 0xFFFFFF;
    keep = on_black ^ on_white;
    flip = on_black | 0xFF000000;
  }
};

}  // namespace

void paint_spans(framework::PixelSpan pixels, const Spans &spans, COLORREF color, int rop) {
  const BitOperation bits(rop, color);
  for (const Span &span : spans) {
    std::uint32_t *row = pixels.row(span.y);
    if (bits.keep == 0) {
      std::fill(row + span.left, row + span.right, bits.flip);
    } else {
      for (int x = span.left; x < span.right; ++x) row[x] = (row[x] & bits.keep) ^ bits.flip;
    }
  }
}

void paint_spans(framework::PixelSpan pixels, const Spans &spans, const framework::DeviceBrush &brush,
                 int rop) {
  if (brush.kind == framework::DeviceBrush::Kind::none) return;
  if (brush.kind == framework::DeviceBrush::Kind::solid) {
    paint_spans(pixels, spans, brush.color, rop);
    return;
  }
  const framework::BinaryRop operation(rop);
  for (const Span &span : spans) {
    std::uint32_t *row = pixels.row(span.y);
    for (int x = span.left; x < span.right; ++x) {
      if (const auto ink = framework::brush_pixel(brush, {x, span.y})) row[x] = operation(*ink, row[x]);
    }
  }
}

}  // namespace raster
