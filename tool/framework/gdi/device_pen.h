#pragma once
// A pen or brush as it was created, turned into what the device paints with.

#include "tool/framework/gdi/drawing_device.h"
#include "tool/framework/gdi/handle_table.h"
#include "tool/framework/gdi/mapping.h"

namespace framework {

/// Dash patterns in pixels: cosmetic styles have fixed lengths, the system styles of geometric pens multiples
/// of the width, user styles their lengths scaled like the width. `gap`: the background colour in opaque
/// mode, which fills the gaps of cosmetic styles.
DevicePen device_pen(const PenData &data, const Mapping &mapping, std::optional<COLORREF> gap);
DeviceBrush solid_brush(COLORREF color);
DeviceBrush device_brush(const BrushData &data, std::optional<COLORREF> gap);

}  // namespace framework
