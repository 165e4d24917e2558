#pragma once
// The picture of a dental cast: crown outlines on the tooth widths and the arch wire.

#include "apps/drawing/scene.h"

namespace app {

/// Every point of the cast's teeth.
std::vector<CPoint> cast_points(const tagPOINTMO &record);

void draw_cast(const View &view, const tagPOINTMO &record, const SceneOptions &options, Drawn &drawn);

}  // namespace app
