#pragma once
// Straight lines of a superimposed tracing.

#include "tool/framework/gdi/CDC.h"
#include "tool/tracing/line_style.h"
#include "tool/tracing/superimposition.h"

namespace tracing {

enum class Stroke {
  ink,          ///< as asked for
  rubber_band,  ///< exclusive or: drawing it twice erases it
};

/// How the application asks for a stroke: 1 is ink, everything else a rubber band.
constexpr Stroke stroke_of(int mode) {
  return mode == 1 ? Stroke::ink : Stroke::rubber_band;
}

/// The line between two offsets; last pixel excluded. A rubber band is white, solid and 1 wide whatever the
/// line is. Nothing for scale 0.
void draw_superimposed_line(CDC &dc, const Superimposition &on, CPointD from, CPointD to,
                            const LineStyle &line, Stroke stroke);

}  // namespace tracing
