#pragma once
// Coordinate frames laid on anatomical lines: coordinates in a frame, points at given coordinates, origins.

#include <optional>

#include "tool/geometry/CPointD.h"

namespace geometry {

/// Millimetres along the two axes of a frame.
struct AxisOffsets {
  double horizontal;  ///< from axis ac, positive while d projects inside segment ab
  double vertical;    ///< from axis ab, positive while d projects inside segment ac
};

/// Coordinates of d in the frame with origin a and axes ab and ac (meant to be perpendicular). The feet on
/// the axes are whole pixels. A horizontal axis ab measures a.y - d.y and a horizontal ac a.x - d.x instead.
AxisOffsets axis_offsets(CPoint a, CPoint b, CPoint c, CPoint d, double scale);

/// The point `along` and `across` millimetres from a in a frame whose first axis lies on line ab and points
/// to +x (down for a vertical line); positive `across` lies counter-clockwise of it on the screen. Scale 0
/// gives (0, 0), `along` 0 gives a whatever `across` is.
CPointD offset_in_frame(CPointD a, CPointD b, double scale, double along, double across);

/// Landmarks that carry the origin where the cranial base meets the facial axis.
struct FacialAxisLandmarks {
  CPointD basion;
  CPointD nasion;
  CPointD pterygoid;
  CPointD gonion;  ///< on the lower border
  CPointD menton;
  CPointD pogonion;
};

/// Basion-nasion crossed with the line from the pterygoid point to the constructed gnathion, which is the
/// mandibular plane crossed with nasion-pogonion. Empty when one of the two crossings does not exist.
std::optional<CPointD> facial_axis_origin(const FacialAxisLandmarks &at);

}  // namespace geometry
