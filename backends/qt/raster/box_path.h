#pragma once
// The middle line of a pen round the figures that are given by their box, as corners close enough together to
// look round. The centre of pixel (x, y) is the point (x, y); the lines run counter-clockwise as seen.

#include <vector>

#include "backends/qt/raster/scan_converter.h"

namespace raster {

struct RealBox {
  double left, top, right, bottom;
};

/// The middle line of a pen of this width: through the centres of the outermost pixels, or, inside the frame,
/// so that the pen's outer edge is the box's.
RealBox middle_line(const RECT &box, int pen_width, bool inside_frame);

/// The direction from the middle of a box to a point, radians counter-clockwise from the right; 0 in the
/// middle.
double direction_of(const RECT &box, POINT point);
/// From `start` on to `angle`, counter-clockwise: 0 <= turn < 2 pi.
double turn_between(double start, double angle);

/// The parameter of an ellipse's point on the ray at an angle, in the same turn.
double ellipse_parameter(double width, double height, double angle);

std::vector<Point> rectangle_path(const RealBox &box);
/// `corner`: diameters of the corner ellipses of the figure; those of the middle line are smaller by as much
/// as its box is.
std::vector<Point> rounded_rectangle_path(const RealBox &middle, const RECT &box, SIZE corner);
std::vector<Point> ellipse_path(const RealBox &box);
/// The part of the ellipse counter-clockwise between two rays from the middle; an open line, or the whole
/// ellipse when the rays are one (`closed`).
std::vector<Point> arc_path(const RealBox &middle, const RECT &box, POINT start, POINT end, bool &closed);

}  // namespace raster
