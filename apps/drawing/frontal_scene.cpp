#include "apps/drawing/frontal_scene.h"

#include "apps/drawing/display_record.h"

namespace app {

void draw_frontal(const View &view, const tagPOINTPA &record, const SceneOptions &options, Drawn &drawn) {
  constexpr int tenths = 4;
  tagPOINTPA copy = record;
  DisplayRecord settings;
  settings.frontal_look(options.palette().cranial, 0);
  settings.line_width(tenths);
  CCalcTool::Draw_PA_Profiro1(&view.sheet().context(), view.origin(), view.magnification(), &copy,
                              settings.address());
  drawn.legend.push_back({"Frontal profilogram", options.palette().cranial, tenths, 0});
}

}  // namespace app
