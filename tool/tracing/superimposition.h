#pragma once
// From a tracing to the display: turned, scaled and moved onto a base point, turned with the display, zoomed
// and scrolled. Angles of the superimposition are radians, of the display degrees. Whole results truncate
// toward zero.

#include <optional>
#include <span>

#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"

namespace tracing {

/// How a tracing is laid on the displayed frame. A point of the tracing enters as its offset from the
/// tracing's own reference point (for instance its sella).
struct Superimposition {
  CPointD base{};         ///< where the reference point falls, image pixels
  double angle = 0.0;     ///< radians; positive turns counter-clockwise on the screen
  double scale = 1.0;     ///< factor on every offset; 0 shows nothing
  double rotation = 0.0;  ///< of the display about `centre`, degrees; positive turns clockwise
  CPoint centre{};        ///< porion
  CPoint offset{};        ///< image pixels, subtracted before magnification
  double mag = 1.0;
  CPoint origin{};    ///< device pixels, subtracted after magnification
  int ysign = 1;      ///< factor on the base's y; -1 for map modes whose y axis points up
  bool flip = false;  ///< device y runs upward from the origin
};

/// Where an offset falls in the displayed frame, image pixels. An offset of exactly 0 along an axis counts as
/// 0.1, and half and whole turns as 3.1415 and 6.283 radians: results carry these constants.
CPointD placed(const Superimposition &on, CPointD offset);

/// Device coordinates before truncation. Defined for scale 0 as well.
CPointD device_coordinates(const Superimposition &on, CPointD offset);

/// The device pixel; (0, 0) for scale 0.
CPoint device_point(const Superimposition &on, CPointD offset);

/// In unzoomed pixels, for finding what the user points at; (0, 0) for scale 0. Magnification, ysign and flip
/// are not used.
CPoint image_point(const Superimposition &on, CPointD offset);

/// How one point of a spline comes to the device.
struct SplinePlacement {
  double factor = 1.0;  ///< on the magnification
  bool printing = false;
  unsigned code = 0;  ///< of the view that asks; some have a y axis of their own
};
/// Device coordinates of a spline point: `ysign` is -1 for codes -1 and -2, and for 15111 and 15210 when
/// printing, else 1, whatever `on` says; `flip` counts when printing only. Scale 0 gives the base.
CPointD spline_device_coordinates(const Superimposition &on, CPointD offset,
                                  const SplinePlacement &placement);

// Where to superimpose
// ----------------------------------------------------------------------------------------------------------
/// How the reference line and point of a superimposition are chosen.
struct ReferenceChoice {
  unsigned mode;                 ///< 0: landmarks first-second; 1, 2: basion-nasion
  unsigned first, second, c, d;  ///< landmark numbers; c and d belong to the point of mode 0
};

/// The reference point in landmarks in lateral order. Mode 0: projection of landmark c onto the parallel of
/// first-second through d; 1: on the facial axis; 2: nasion. Empty in other modes, for numbers outside the
/// lateral list and for crossings that do not exist.
std::optional<CPointD> reference_point(const tagPOINT *landmarks, const ReferenceChoice &choice);

/// The turn from tracing A's reference line to tracing B's, radians by the factor 3.1415 / 180, each line
/// directed to its larger x: positive when B's lies counter-clockwise of A's on the screen. `frankfort`
/// adds B's Frankfort line (porion to orbitale) against the horizontal and subtracts it against A's line.
/// Empty for other modes and numbers outside the lateral list.
std::optional<double> reference_angle(const tagPOINT *landmarks_a, const void *record_b,
                                      const ReferenceChoice &choice, bool frankfort);

}  // namespace tracing
