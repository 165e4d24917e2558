#pragma once
// Landmarks as dots, with their names when asked, and the computed texts of a display-setting file.

#include "apps/drawing/scene.h"

namespace app {

void draw_landmarks(const View &view, const TracingFile &tracing, const SceneOptions &options,
                    const Drawn &drawn);

}  // namespace app
