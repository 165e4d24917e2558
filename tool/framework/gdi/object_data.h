#pragma once
// Questions about the data behind the handles of drawing objects.

#include "tool/framework/gdi/handle_table.h"

namespace framework {

/// Pen, brush, font, bitmap or region.
bool is_drawing_object(const void *handle);
/// A standard pen; an unknown style is solid.
PenData standard_pen_data(int style, int width, COLORREF color);
/// NULLREGION, SIMPLEREGION or COMPLEXREGION.
int region_complexity(const Region &region);

}  // namespace framework
