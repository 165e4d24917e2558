#pragma once
// The four teeth of a lateral tracing: hand-drawn where the user has traced them, else a template.

#include <optional>

#include "tool/framework/gdi/CDC.h"
#include "tool/tracing/display_mapping.h"
#include "tool/tracing/superimposed_line.h"
#include "tool/tracing/tooth_outlines.h"
#include "tool/tracing/trace_store.h"

namespace tracing {

enum class Tooth { upper_incisor, lower_incisor, upper_molar, lower_molar };

/// An incisor's tip (a) and root apex (b); a molar's three points.
using ToothPoints = MolarPoints;

/// A template's shape.
struct TemplateChoice {
  int type = 0;                  ///< 0 or 1; any other draws nothing
  const void *adjust = nullptr;  ///< the template adjustment record; incisors only
  bool mirrored = false;         ///< the incisors' sides exchanged
};

/// How a superimposed tooth is drawn.
struct ToothInk {
  COLORREF color = 0;
  int style = PS_SOLID;
  Stroke stroke = Stroke::ink;  ///< a template's rubber band is 1 wide; a molar's white and solid as well
};

/// The template at offsets from the superimposition's reference point; nothing for scale 0.
void draw_superimposed_template(CDC &dc, Tooth tooth, const ToothPoints &offsets,
                                const TemplateChoice &choice, const Superimposition &on,
                                const LateralRecord &record, const ToothInk &ink);

/// A tooth on a superimposed tracing, image pixels. Traces of the tooth were drawn at `traced_a` and
/// `traced_b` and follow to a and b; without one the template is drawn.
struct MovedTooth {
  ToothPoints at;
  CPointD traced_a;
  CPointD traced_b;
  CPointD reference;  ///< of the superimposition
};
void draw_superimposed_tooth(CDC &dc, Tooth tooth, const MovedTooth &points, const TemplateChoice &choice,
                             const Superimposition &on, const LateralRecord &record, const void *traces,
                             const ToothInk &ink);

/// How a tooth of the tracing itself is drawn.
struct OwnToothStyle {
  LineStyle line;
  int image_width = 0;            ///< not 0: into an image bitmap of this width, which sets the line width
  std::optional<COLORREF> spots;  ///< discs on the points of a hand-drawn tooth
};
/// In life size templates are built for a y axis that runs upward. Hand-drawn teeth are not mirrored.
void draw_own_tooth(CDC &dc, Tooth tooth, const ToothPoints &at, const TemplateChoice &choice,
                    const DisplayMapping &mapping, const LateralRecord &record, const void *traces,
                    const OwnToothStyle &style);

}  // namespace tracing
