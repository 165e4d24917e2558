#pragma once
// The picture of one tracing: film, reference lines, outlines, teeth, landmarks and their names, and a second
// tracing over it.

#include <optional>
#include <string>
#include <vector>

#include "apps/common/tracing_file.h"
#include "apps/drawing/palette.h"
#include "apps/drawing/registration.h"
#include "apps/drawing/view.h"
#include "tool/analysis/display_settings.h"
#include "tool/framework/gdi/pixels.h"

namespace app {

struct SceneOptions {
  const framework::Picture *film = nullptr;
  std::optional<analysis::DisplaySettings> style;  ///< lines, points and texts of a display-setting file
  std::optional<int> teeth = 0;                    ///< template 0 or 1; empty: none
  bool profilogram = false;
  bool labels = false;
  const TracingFile *second = nullptr;
  Registration registration;

  const Palette &palette() const { return film ? film_palette : paper_palette; }
};

/// One line of the legend.
struct LegendEntry {
  std::string text;  ///< UTF-8
  COLORREF color;
  int tenths;  ///< line width, tenths of a millimetre
  int style;   ///< 0 solid, 1 dashed, ...
};

/// The part of the film that the picture shows: the whole film when there is one, else the placed points with
/// 8 mm round them. Throws InputError when no point is placed.
ImageBox scene_box(const TracingFile &tracing, const SceneOptions &options);

/// What has been drawn: what the lines mean, and the places that names should keep away from.
struct Drawn {
  std::vector<LegendEntry> legend;
  std::vector<SheetBox> occupied;  ///< mm

  void add_line(SheetPoint from, SheetPoint to);
};

/// Draws the tracing.
Drawn draw_scene(const View &view, const TracingFile &tracing, const SceneOptions &options);

}  // namespace app
