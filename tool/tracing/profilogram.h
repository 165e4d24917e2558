#pragma once
// Profilograms: polygons through the landmarks of a tracing, drawn to compare two of them by shape.

#include "tool/framework/gdi/CDC.h"
#include "tool/geometry/view_mapping.h"
#include "tool/tracing/superimposed_line.h"
#include "tool/tracing/teeth.h"

namespace tracing {

/// The lateral profilogram of a superimposed tracing.
struct Profilogram {
  const tagPOINT *landmarks;  ///< lateral order, image pixels
  CPointD reference;          ///< of the superimposition
  SettingsRecord settings;    ///< vertices and lines to draw
  bool polygon;
  bool teeth;
  int tooth_type;  ///< -1: no teeth
  const void *adjust;
  const void *traces;
};

/// Polygon, palatal line, incisor axes, occlusal line, in this order; then the teeth: lower incisor, lower
/// molar, upper incisor, upper molar. A vertex is joined to the next one enabled, the last to the first.
void draw_profilogram(CDC &dc, const Profilogram &profilogram, const Superimposition &on,
                      const LateralRecord &record, const ToothInk &ink);

/// The nine lines of the frontal profilogram; midpoints are whole pixels. `image_width` not 0: into an image
/// bitmap of this width, which sets the line width.
void draw_frontal_profilogram(CDC &dc, const FrontalRecord &record, const geometry::ViewMapping &view,
                              const LineStyle &line);
void draw_frontal_profilogram_image(CDC &dc, const FrontalRecord &record, const geometry::ViewMapping &view,
                                    LineStyle line, int image_width);

}  // namespace tracing
