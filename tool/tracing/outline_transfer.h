#pragma once
// Fitting a stored outline (a template tooth, a bone) onto two points of a tracing.

#include "tool/framework/gdi/CDC.h"
#include "tool/geometry/CPointD.h"
#include "tool/tracing/line_style.h"

namespace tracing {

/// Most points of a stored outline.
inline constexpr int outline_capacity = 50;
using StoredOutline = const int (*)[2];

/// How an outline is fitted. The source segment s1-s2 (coordinates of the outline) goes onto the target
/// segment a-b: s1 to a, s2 to b, the other points keep their angle at the pivot and, relative to the
/// segment, their distance from it. On which side of the segment a point lies is told by its x alone: an
/// outline whose pivot lies below the other end keeps its shape, one whose pivot lies above comes out as its
/// mirror image.
struct OutlineFit {
  CPointD target_a;
  CPointD target_b;
  CPoint source_1;           ///< the same as source_2: the outline's ends, first to a, last to b;
  CPoint source_2;           ///< with x -1: last to a, first to b
  bool pivot_first = false;  ///< the pivot is the pair s1 and a instead of s2 and b
};

/// How fitted points come to the device.
struct OutlineView {
  CPoint origin{};
  double mag = 1.0;
  CPoint centre{};        ///< of the turn, image pixels
  double turn = 0.0;      ///< degrees, clockwise on the screen
  double scale = 1.0;     ///< 0: every point falls on the centre. Mirrored: factor on the distance from it
  bool mirrored = false;  ///< life-size printing: distances scaled, y upward from the origin
};

/// How many points an outline has: up to, not including, a (0, 0) after the first; at most 50.
int outline_size(StoredOutline outline);

/// Device points of an outline, written to `device`, which holds outline_capacity points; gives their number.
/// A source segment without length puts every other point onto the pivot.
int transfer_outline(StoredOutline outline, const OutlineFit &fit, const OutlineView &view, POINT *device);

/// Draws the fitted outline as one open polyline, with the pen of outlines; last pixel excluded.
void draw_transferred_outline(CDC &dc, StoredOutline outline, const OutlineFit &fit, const OutlineView &view,
                              const LineStyle &line);
/// The same in an image bitmap, segment by segment.
void draw_transferred_outline_image(CDC &dc, StoredOutline outline, const OutlineFit &fit,
                                    const OutlineView &view, const LineStyle &line);

}  // namespace tracing
