#pragma once
// The parts of a lateral picture; scene.cpp puts them together. Each draws what its landmarks allow and adds
// its lines to the legend.

#include "apps/drawing/scene.h"

namespace app {

void draw_lateral_lines(const View &view, const TracingFile &tracing, const SceneOptions &options,
                        Drawn &drawn);
/// What was traced by hand, teeth apart.
void draw_lateral_outlines(const View &view, const TracingFile &tracing, const SceneOptions &options,
                           Drawn &drawn);
void draw_lateral_teeth(const View &view, const TracingFile &tracing, const SceneOptions &options);
void draw_lateral_profilogram(const View &view, const TracingFile &tracing, const SceneOptions &options,
                              Drawn &drawn);
/// The second tracing of the options, turned and scaled onto the first.
void draw_superimposed(const View &view, const TracingFile &tracing, const SceneOptions &options,
                       Drawn &drawn);

/// Landmark k of the record; (0, 0) when it is not placed.
CPoint lateral_landmark(const tagPOINTLAT &record, int k);
bool is_placed(CPoint point);

}  // namespace app
