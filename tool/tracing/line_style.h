#pragma once
// What a caller asks of a line, and the pen that the context gets for it. Everything here is a value: the
// rules can be read and tested without a context; DrawingScope (tracing/drawing_scope.h) makes the pen.
//
// Widths are device units. A width argument may carry a second, print width in tenths of a millimetre: its
// low 16 bits, under code thick_solid its high 16 bits.

#include <array>

#include "tool/framework/gdi/CDC.h"

namespace tracing {

/// Codes beside the pen styles PS_SOLID ... PS_INSIDEFRAME. They fix the screen width as well.
inline constexpr int thin_solid = 101;       ///< solid, width 1
inline constexpr int thick_solid = 102;      ///< solid, width 2; its print width has a field of its own
inline constexpr int thin_dot = 103;         ///< dots, width 1
inline constexpr int thin_dash = 104;        ///< dashes, width 1
inline constexpr int thin_dashdot = 105;     ///< width 1
inline constexpr int thin_dashdotdot = 106;  ///< width 1

/// A line as it is asked for.
struct LineStyle {
  int width = 1;  ///< width argument, print width included
  COLORREF color = 0;
  int style = PS_SOLID;  ///< PS_... or one of the codes above

  friend bool operator==(const LineStyle &, const LineStyle &) = default;
};

/// What the pen rules need to know of a context.
struct Medium {
  bool printer = false;
  int map_mode = MM_TEXT;
  int pixels_per_mm = 0;  ///< whole pixels, horizontally; read in MM_TEXT on a printer only

  static Medium of(const CDC &dc);
};

/// A pen to be created.
struct PenSpec {
  enum class Kind {
    standard,       ///< wide ones are always solid
    system_dashes,  ///< geometric, square caps, dashes in multiples of the width
    own_dashes,     ///< geometric, square caps, dashes in device units
  };
  Kind kind = Kind::standard;
  int style = PS_SOLID;
  int width = 1;
  COLORREF color = 0;
  int dash_count = 0;
  std::array<DWORD, 6> dashes{};  ///< on, off, on, off ...

  friend bool operator==(const PenSpec &, const PenSpec &) = default;
};

/// The code's style and screen width; ordinary styles unchanged.
LineStyle resolved_code(const LineStyle &line);

/// The same, with the width in the units of the paper when the medium is a printer. A print width below a
/// tenth of a millimetre counts as a tenth. In MM_TEXT the screen width is the least, and map modes other
/// than MM_TEXT, MM_LOMETRIC and MM_HIMETRIC keep it.
LineStyle adapted(const LineStyle &line, const Medium &medium);

/// Length of one dot of a dash pattern: 3 on a screen and in other map modes; on a printer a millimetre in
/// MM_TEXT (at least 1), MM_LOMETRIC (10) and MM_HIMETRIC (100).
int dash_unit(const Medium &medium);

// The pen rules
// ----------------------------------------------------------------------------------------------------------
/// Style and width as they are; codes have their screen meaning.
PenSpec standard_pen(const LineStyle &line);
/// The pen of draw_line: adapted to a printer, dashes in device units whatever the width.
PenSpec reference_pen(const LineStyle &line, const Medium &medium);
/// The pen of ellipses: dashed wide lines have the system's dashes; no printer adaptation.
PenSpec system_dash_pen(const LineStyle &line);
/// The same for straight lines, where every style but solid has them.
PenSpec system_style_pen(const LineStyle &line);
/// The pen of lines in image bitmaps: cosmetic, with code thick_solid 0.6 mm wide on a printer.
PenSpec image_pen(const LineStyle &line, const Medium &medium);
/// The pen of transferred outlines and spline curves (Line_Pile, Draw_SPLine): adapted to a printer, system
/// dashes.
PenSpec outline_pen(const LineStyle &line, const Medium &medium);

/// Width of a line in an image bitmap that is `image_width` pixels wide: 2 for each whole 750 pixels.
constexpr int image_line_width(int image_width) {
  return image_width > 750 ? 2 * (image_width / 750) : 2;
}

}  // namespace tracing
