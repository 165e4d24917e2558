#pragma once
// Text in code page 932. A font height of 0 keeps the font that is selected. Null text paints nothing.
// Selections, background mode and raster operation are left as found; the text colour as stated.

#include "tool/framework/gdi/CDC.h"
#include "tool/geometry/view_mapping.h"

namespace tracing {

/// Font kind: "Times New Roman"; every other kind is the Japanese gothic.
inline constexpr int serif_font = 9;

struct TextStyle {
  int height = 0;  ///< of a character cell, device units
  int weight = FW_NORMAL;
  int font_kind = 0;
  bool italic = false;
  bool strike_out = false;
  bool underline = false;
  COLORREF color = 0;
  int background_mode = TRANSPARENT;
};

/// The font of a style: Shift-JIS, output quality PROOF_QUALITY or NONANTIALIASED_QUALITY.
LOGFONTA font_of(const TextStyle &style, BYTE quality);

/// One line whose first cell has its top left corner at `at`. Leaves the text colour set.
void draw_text(CDC &dc, CPoint at, const char *text, const TextStyle &style, bool flip = false);
/// The same in proof quality, through TextOut: no font kind, strike-out, underline or flip.
void draw_text_out(CDC &dc, CPoint at, const char *text, const TextStyle &style);
/// At an image point, moved `offset` image pixels right and down; the height is in image pixels.
void draw_text_in_view(CDC &dc, CPoint point, int offset, const geometry::ViewMapping &view, const char *text,
                       TextStyle style);

struct BoxText {
  const char *text;
  COLORREF color;
  UINT format;  ///< DT_...; '&' is always an ordinary character
};
/// Text in a rectangle of image pixels, 2 pixels inside its left edge; gives the text's width in device
/// units. `height` is in image pixels. `flip`: y upward from the origin. Restores the text colour.
int draw_text_in_box(CDC &dc, const RECT &rect, const geometry::ViewMapping &view, const BoxText &text,
                     int height, int weight, bool flip);
/// The same with the caller's font, scaled with the view, and without the inset.
void draw_text_in_box(CDC &dc, const RECT &rect, const geometry::ViewMapping &view, const BoxText &text,
                      const LOGFONTA &font);
/// The same with negative coordinates raised to 0, and never cut at the rectangle.
void draw_text_from_box(CDC &dc, const RECT &rect, const geometry::ViewMapping &view, const BoxText &text,
                        const LOGFONTA &font);

}  // namespace tracing
