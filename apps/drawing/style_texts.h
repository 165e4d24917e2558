#pragma once
// The computed texts of a display-setting file: a measurement beside the points that it measures.

#include "apps/drawing/scene.h"

namespace app {

void draw_style_texts(const View &view, const TracingFile &tracing, const SceneOptions &options);

}  // namespace app
