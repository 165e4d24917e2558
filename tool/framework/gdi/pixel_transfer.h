#pragma once

#include "tool/framework/gdi/drawing_device.h"

namespace framework {

/// Copies or stretches pixels as DrawingDevice::put_pixels says. Source and target may overlap. Pixels of
/// `part` outside the source leave theirs in the target unchanged.
/// HALFTONE gives each pixel the mean of the part of the source it covers, the other modes the source pixel
/// under its centre.
void transfer_pixels(PixelSpan target, const RECT &to, PixelView source, const RECT &part, DWORD operation,
                     int stretch_mode, const Paint &paint);

}  // namespace framework
