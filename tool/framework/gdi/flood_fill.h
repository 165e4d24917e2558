#pragma once

#include "tool/framework/gdi/drawing_device.h"

namespace framework {

/// Fills an area of pixels, as DrawingDevice::flood_fill says. Needs a byte of memory for every pixel, no
/// recursion.
void flood_fill(PixelSpan pixels, POINT seed, COLORREF color, UINT kind, const Paint &paint);

}  // namespace framework
