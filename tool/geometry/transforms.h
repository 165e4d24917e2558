#pragma once
// Points placed at a distance and angle, moved and rotated. Angles are image angles in degrees: positive
// turns clockwise on the screen. Lengths are millimetres where a scale (millimetres per pixel) is given, else
// pixels.

#include "tool/geometry/CPointD.h"

namespace geometry {

/// From c, `len` millimetres in the direction a -> b turned by `angle`. When a and b coincide the direction
/// is straight down before turning. Scale 0 gives b.
CPointD turned_offset(CPointD a, CPointD b, CPointD c, double len, double angle, double scale);

/// The same from b.
CPointD turned_offset(CPointD a, CPointD b, double len, double angle, double scale);

/// The same from c with `len` in pixels.
CPointD turned_offset_px(CPointD a, CPointD b, CPointD c, double len, double angle);

/// c + k (b - a).
constexpr CPointD moved(CPointD a, CPointD b, CPointD c, double k) {
  return {c.x + k * (b.x - a.x), c.y + k * (b.y - a.y)};
}

/// The same in whole pixels, k (b - a) truncated.
CPoint integer_moved(CPoint a, CPoint b, CPoint c, double k);

/// p turned about the centre. An angle of 0 returns p bit for bit; scale 0 returns the centre.
CPointD rotated(CPointD centre, CPointD p, double angle, double scale);

/// p turned about the centre and placed at |factor| times its distance.
CPointD rotated_scaled(CPointD centre, CPointD p, double angle, double factor);

/// About r pixels from a towards b, both offsets truncated to whole pixels. Towards a itself: straight up.
CPointD whole_pixel_step(CPointD a, CPointD b, double r);

/// `len` pixels from a towards b in whole pixels; coordinates that are not positive become 0.
CPoint near_trace_point(CPoint a, CPoint b, double len);

}  // namespace geometry
