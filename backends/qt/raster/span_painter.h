#pragma once
// Rows of pixels into the bitmap, under any raster operation.

#include "backends/qt/raster/spans.h"
#include "tool/framework/gdi/drawing_device.h"

namespace raster {

/// Everything is inside the pixels.
void paint_spans(framework::PixelSpan pixels, const Spans &spans, COLORREF color, int rop);
void paint_spans(framework::PixelSpan pixels, const Spans &spans, const framework::DeviceBrush &brush,
                 int rop);

}  // namespace raster
