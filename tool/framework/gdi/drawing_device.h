#pragma once
// The seam between a device context and whatever paints. A context (CDC) keeps the state and resolves it; a
// device receives finished primitives: whole device pixels, x to the right, y downward, with the pen, brush,
// raster operation and clip they are painted with.
//
// What a back end supplies is the list of pure virtual functions below. Which pixels a primitive paints is
// said at each one; image and window devices do exactly that, paper and SVG devices come as near as lines
// without pixels can.

#include <array>
#include <optional>
#include <span>
#include <string_view>

#include "tool/framework/gdi/constants.h"
#include "tool/framework/gdi/pixels.h"
#include "tool/framework/gdi/records.h"
#include "tool/framework/gdi/region.h"

namespace framework {

enum class LineCap { round, square, flat };
enum class LineJoin { round, bevel, miter };

/// A pen in device pixels. Dashes: on, off, on, off ...; with square or round caps each dash grows by half
/// the width at both ends. A pen 1 pixel wide has neither caps nor joins.
struct DevicePen {
  bool visible = true;
  bool inside_frame = false;  ///< wide outlines of closed shapes stay inside their box
  LineCap cap = LineCap::round;
  LineJoin join = LineJoin::round;
  COLORREF color = 0;
  int width = 1;       ///< at least 1
  int dash_count = 0;  ///< entries of `dashes`; 0: a solid line
  std::array<int, 16> dashes{};
  std::optional<COLORREF> gap_color;  ///< paints the gaps of a dashed line as well (opaque background mode)

  friend bool operator==(const DevicePen &, const DevicePen &) = default;
};

struct DeviceBrush {
  enum class Kind { none, solid, hatched };
  Kind kind = Kind::solid;
  int hatch = HS_HORIZONTAL;
  COLORREF color = 0xFFFFFF;
  std::optional<COLORREF> gap_color;  ///< between the lines of a hatch (opaque background mode)

  friend bool operator==(const DeviceBrush &, const DeviceBrush &) = default;
};

/// What every primitive is painted with.
struct Paint {
  DevicePen pen;
  DeviceBrush brush;
  int rop = R2_COPYPEN;          ///< R2_...; a device without raster operations paints as R2_COPYPEN,
                                 ///< but under R2_NOP nothing
  const Region *clip = nullptr;  ///< device pixels; null: the whole device. Lives as long as the call
};

/// What a device can do and how large it is. On a device without a capability the call paints nothing, except
/// that a raster operation is taken as a copy.
struct DeviceCapabilities {
  bool raster_operations = false;
  bool flood_fill = false;
  bool read_pixels = false;
  bool printer = false;
  int width = 0;   ///< pixels
  int height = 0;  ///< pixels
  double pixels_per_mm_x = 96 / 25.4;
  double pixels_per_mm_y = 96 / 25.4;
};

/// One line of text.
struct TextRun {
  POINT top_left;         ///< of the first character's cell (before escapement, which turns about this point)
  std::string_view text;  ///< code page 932, no control characters
  const LOGFONTA *font;   ///< height and width in device pixels
  COLORREF color;
};

class DrawingDevice {
 public:
  DrawingDevice() = default;
  virtual ~DrawingDevice() = default;
  DrawingDevice(const DrawingDevice &) = delete;
  DrawingDevice &operator=(const DrawingDevice &) = delete;

  virtual DeviceCapabilities capabilities() const = 0;

  /// Straight lines from point to point. One pixel wide: every pixel of each line but the last point of the
  /// polyline (a polyline of one point, or of equal points, paints nothing); no pixel twice where two lines
  /// meet. Wider: the stroked shape, each pixel once.
  virtual void polyline(std::span<const POINT> points, const Paint &paint) = 0;
  /// Closed outline with the pen, inside with the brush. The outline's pixels are those of the closed
  /// polyline.
  virtual void polygon(std::span<const POINT> points, FillRule rule, const Paint &paint) = 0;
  /// Left and top edge belong to the figure, right and bottom do not: with a pen 1 pixel wide the outline
  /// runs from (left, top) to (right - 1, bottom - 1). A box without width or height paints nothing. Each
  /// pixel is painted once, by the pen or else by the brush. The same holds for the next two.
  virtual void rectangle(const RECT &box, const Paint &paint) = 0;
  /// `corner`: diameters of the corner ellipses.
  virtual void rounded_rectangle(const RECT &box, SIZE corner, const Paint &paint) = 0;
  virtual void ellipse(const RECT &box, const Paint &paint) = 0;
  /// The part of the box's ellipse counter-clockwise (as seen) from the ray through `start` to the ray
  /// through `end`; the whole ellipse when both are one ray.
  virtual void arc(const RECT &box, POINT start, POINT end, const Paint &paint) = 0;
  /// The region's pixels in the brush.
  virtual void fill_region(const Region &region, const Paint &paint) = 0;
  /// Text in its colour; of the paint only raster operation and clip count. The background of opaque text
  /// comes before, as a region.
  virtual void text(const TextRun &run, const Paint &paint) = 0;

  /// Width of a text in pixels, and the font's cell.
  virtual SIZE text_extent(std::string_view text, const LOGFONTA &font) const = 0;
  virtual TEXTMETRICA text_metrics(const LOGFONTA &font) const = 0;

  /// Fills with the brush from `seed` up to pixels of `color` (border) or over pixels of `color` (surface),
  /// over edges, not corners, inside the clip.
  virtual void flood_fill(POINT seed, COLORREF color, UINT kind, const Paint &paint) = 0;
  /// Empty outside the device and where pixels cannot be read back.
  virtual std::optional<COLORREF> pixel(POINT point) const = 0;
  /// Copies the colour; of the paint only the clip counts.
  virtual void set_pixel(POINT point, COLORREF color, const Paint &paint) = 0;
  /// Copies or stretches pixels into `target` (right or bottom less than left or top: mirrored) under a
  /// ternary raster operation (SRCCOPY ...); of the paint the brush (pattern) and the clip count.
  virtual void put_pixels(const RECT &target, PixelView source, const RECT &part, DWORD operation,
                          int stretch_mode, const Paint &paint) = 0;
  /// Reads the pixels of `from` into `target`, whose size it has; false where pixels cannot be read back.
  virtual bool read_pixels(const RECT &from, PixelSpan target) const = 0;

  // Documents: only a printer has more than one page.
  virtual bool begin_document(std::string_view) { return true; }
  virtual bool begin_page() { return true; }
  virtual bool end_page() { return true; }
  virtual bool end_document() { return true; }
};

}  // namespace framework
