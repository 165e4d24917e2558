#pragma once
// The tracing itself on the display, without superimposition: turned about porion, zoomed, scrolled; on
// paper, when wanted, in life size.

#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"
#include "tool/tracing/record_views.h"

namespace tracing {

struct DisplayMapping {
  CPoint origin{};  ///< device pixels, subtracted after magnification
  double mag = 1.0;
  double rotation = 0.0;  ///< degrees about porion, clockwise; its fraction does not count
  double factor = 1.0;    ///< on the magnification, except in life size
  /// One millimetre of the patient is one logical unit; y runs upward from the origin.
  bool life_size = false;
};

/// Life size is used on paper when it is wanted and not overruled.
bool life_size(const CDC &dc, bool wanted, bool overruled);

/// Device point of a point of the tracing, image pixels; truncated toward zero. Distances from porion count
/// in life size, millimetres by the record's scale.
CPoint device_point(const DisplayMapping &mapping, const LateralRecord &record, CPointD p);

/// A landmark's label, standing on the height of `size` device units above the point.
struct Label {
  const char *text;  ///< code page 932
  int size;          ///< device units
  COLORREF color;
};
void draw_label(CDC &dc, const DisplayMapping &mapping, const LateralRecord &record, CPointD p,
                const Label &label);

}  // namespace tracing
