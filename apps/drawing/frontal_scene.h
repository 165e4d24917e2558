#pragma once
// The picture of a frontal tracing.

#include "apps/drawing/scene.h"

namespace app {

void draw_frontal(const View &view, const tagPOINTPA &record, const SceneOptions &options, Drawn &drawn);

}  // namespace app
