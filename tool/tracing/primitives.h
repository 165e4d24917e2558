#pragma once
// Lines, rectangles, ellipses and spots on a context, in its logical units (device units below). Callers map
// image pixels first (geometry/view_mapping.h, tracing/print_mapping.h).
//
// Every primitive leaves pen, brush, font, background mode and raster operation as it found them, and paints
// with a transparent background. `flip` negates y, for map modes whose y axis points up.

#include <span>

#include "tool/framework/gdi/CDC.h"
#include "tool/geometry/view_mapping.h"
#include "tool/tracing/line_style.h"

namespace tracing {

/// The corners of a rectangle of image pixels in a view.
RECT mapped(const RECT &rect, const geometry::ViewMapping &view);

// Lines: every pixel from the first point on, the last one not (one pixel wide); wider ones are the stroked
// shape.
// ----------------------------------------------------------------------------------------------------------
/// With the reference pen: the line that adapts to printers.
void draw_line(CDC &dc, CPoint from, CPoint to, const LineStyle &line, bool flip = false);
/// With system dashes, never adapted.
void draw_line_system_dashes(CDC &dc, CPoint from, CPoint to, const LineStyle &line);
/// In an image bitmap, with its cosmetic pen.
void draw_line_image(CDC &dc, CPoint from, CPoint to, const LineStyle &line, bool flip = false);
/// One line through all points in device units, with the pen of transferred outlines. A single point paints
/// nothing when one pixel wide.
void draw_polyline(CDC &dc, std::span<const POINT> points, const LineStyle &line);

// Rectangles: outline and corners included, that is one pixel further right and down than the box of a
// filled rectangle, whose right and bottom edges do not belong to it.
// ----------------------------------------------------------------------------------------------------------
/// The closed path along the four edges, unfilled.
void draw_outline(CDC &dc, const RECT &box, const LineStyle &line);
/// The same as exclusive or: drawing it twice erases it.
void draw_outline_xor(CDC &dc, const RECT &box, const LineStyle &line);
/// A filled rectangle with a solid outline, right and bottom edges excluded.
void draw_rectangle(CDC &dc, const RECT &box, int width, COLORREF pen_color, COLORREF fill_color);

/// The outline of `rect` (image pixels) in a view. Without height or width it is one line, last pixel
/// excluded.
void draw_view_rectangle(CDC &dc, const RECT &rect, const geometry::ViewMapping &view, const LineStyle &line,
                         bool exclusive_or);

struct RoundedRectangle {
  RECT rect;   ///< image pixels
  int corner;  ///< both corner diameters, image pixels
  bool filled;
  COLORREF fill_color;
};
/// Right and bottom edges excluded; without height or width one line, as above.
void draw_rounded_rectangle(CDC &dc, const RoundedRectangle &shape, const geometry::ViewMapping &view,
                            const LineStyle &line);

/// Fills from `seed` up to pixels of the border colour. Nothing on devices that cannot read pixels back.
void flood_fill(CDC &dc, CPoint seed, COLORREF fill_color, COLORREF border_color);

// Ellipses, arcs and spots: left and top edge of the box belong to the figure, right and bottom do not.
// ----------------------------------------------------------------------------------------------------------
void draw_ellipse(CDC &dc, const RECT &box, const LineStyle &line, COLORREF fill_color, bool flip = false);
/// Unfilled, with system dashes.
void draw_ellipse_outline(CDC &dc, const RECT &box, const LineStyle &line);
/// Counter-clockwise from the ray through `start` to the ray through `end`.
void draw_arc(CDC &dc, const RECT &box, CPoint start, CPoint end, const LineStyle &line);
/// The circle about `centre` through `point`, its radius in whole units; adapted to printers, system dashes.
void draw_circle(CDC &dc, CPoint centre, CPoint point, const LineStyle &line, bool flip = false);

/// A filled disc about an image point whose radius (image pixels) is scaled with the view. A box that
/// shrinks to nothing is made two pixels wide or high.
void draw_spot(CDC &dc, CPoint centre, int radius, const geometry::ViewMapping &view, COLORREF color,
               bool flip = false);
/// The same with the radius in device units.
void draw_fixed_spot(CDC &dc, CPoint centre, int radius, const geometry::ViewMapping &view, COLORREF color,
                     bool flip = false);

// Printing
// ----------------------------------------------------------------------------------------------------------
/// The magnification at which a page extent fits on the device; 0 when neither side limits it.
double print_magnification(const CDC &dc, SIZE extent);

}  // namespace tracing
