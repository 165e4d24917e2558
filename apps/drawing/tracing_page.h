#pragma once
// The page that holds a picture: patient line above, legend and scale bar below.

#include <string>
#include <vector>

#include "apps/drawing/scene.h"

namespace app {

struct TracingPage {
  std::string title;    ///< UTF-8
  std::string patient;  ///< one line about the patient; may be empty
  bool life_size = false;
};

/// Draws the whole page inside `area`. Throws InputError when nothing can be drawn, or when life size does
/// not fit the area.
void draw_tracing_page(const Sheet &sheet, const SheetBox &area, const TracingPage &page,
                       const TracingFile &tracing, const SceneOptions &options);

}  // namespace app
