#pragma once
// The dental cast's arch wire and crowns as smooth curves, 2 device units wide.

#include "tool/framework/gdi/CDC.h"
#include "tool/geometry/view_mapping.h"
#include "tool/model/crowns.h"
#include "tool/model/wire.h"

namespace tracing {

void draw_wire(CDC &dc, std::span<const POINT, model::wire_points> curve, const geometry::ViewMapping &view,
               COLORREF color);
void draw_crown(CDC &dc, const model::Crown &crown, const geometry::ViewMapping &view, COLORREF color);

}  // namespace tracing
