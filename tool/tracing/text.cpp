#include "tool/tracing/text.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "tool/framework/text/cp932.h"
#include "tool/tracing/drawing_scope.h"
#include "tool/tracing/primitives.h"

namespace tracing {

namespace {

constexpr auto gothic_face = framework::cp932("ＭＳ ゴシック");
constexpr std::string_view serif_face = "Times New Roman";

LOGFONTA scaled(LOGFONTA font, double zoom) {
  font.lfHeight = framework::to_int(font.lfHeight * zoom);
  font.lfWidth = framework::to_int(font.lfWidth * zoom);
  return font;
}

/// Draws with what the scope has selected; the width of the text.
int draw_in(DrawingScope &scope, RECT box, const BoxText &text, UINT format) {
  scope.text_color(text.color, true);
  const int width = scope.dc().GetTextExtent(text.text, static_cast<int>(std::strlen(text.text))).cx;
  scope.dc().DrawText(text.text, -1, &box, text.format | format);
  return width;
}

}  // namespace

LOGFONTA font_of(const TextStyle &style, BYTE quality) {
  LOGFONTA font{};
  font.lfHeight = style.height;
  font.lfWeight = style.weight;
  font.lfItalic = style.italic;
  font.lfUnderline = style.underline;
  font.lfStrikeOut = style.strike_out;
  font.lfCharSet = SHIFTJIS_CHARSET;
  font.lfQuality = quality;
  const std::string_view face = style.font_kind == serif_font ? serif_face : gothic_face.view();
  face.copy(font.lfFaceName, LF_FACESIZE - 1);
  return font;
}

void draw_text(CDC &dc, CPoint at, const char *text, const TextStyle &style, bool flip) {
  if (!text) return;
  DrawingScope scope(dc, style.background_mode);
  if (style.height != 0) scope.font(font_of(style, NONANTIALIASED_QUALITY));
  scope.text_color(style.color, false);
  const LONG y = flip ? geometry::integer_difference(0, at.y) : at.y;
  RECT box{at.x, y, at.x, y};
  dc.DrawText(text, -1, &box, DT_NOCLIP | DT_NOPREFIX);
}

void draw_text_out(CDC &dc, CPoint at, const char *text, const TextStyle &style) {
  if (!text) return;
  DrawingScope scope(dc, style.background_mode);
  if (style.height != 0) {
    TextStyle plain = style;
    plain.font_kind = 0;
    plain.underline = plain.strike_out = false;
    scope.font(font_of(plain, PROOF_QUALITY));
  }
  scope.text_color(style.color, false);
  dc.TextOut(at.x, at.y, text, static_cast<int>(std::strlen(text)));
}

void draw_text_in_view(CDC &dc, CPoint point, int offset, const geometry::ViewMapping &view, const char *text,
                       TextStyle style) {
  style.height = framework::to_int(style.height * view.zoom);
  draw_text(dc, view(CPointD(point) + CPointD(offset, offset)), text, style);
}

int draw_text_in_box(CDC &dc, const RECT &rect, const geometry::ViewMapping &view, const BoxText &text,
                     int height, int weight, bool flip) {
  if (!text.text) return 0;
  DrawingScope scope(dc);
  if (height != 0) {
    const TextStyle style{.height = framework::to_int(height * view.zoom), .weight = weight};
    scope.font(font_of(style, PROOF_QUALITY));
  }
  const geometry::ViewMapping upward{view.origin, view.zoom, flip};
  RECT box = mapped(rect, upward);
  box.left = view(CPointD(rect.left, rect.top) + CPointD(2, 0)).x;
  return draw_in(scope, box, text, DT_NOPREFIX);
}

void draw_text_in_box(CDC &dc, const RECT &rect, const geometry::ViewMapping &view, const BoxText &text,
                      const LOGFONTA &font) {
  if (!text.text) return;
  DrawingScope scope(dc);
  scope.font(scaled(font, view.zoom));
  draw_in(scope, mapped(rect, view), text, DT_NOPREFIX);
}

void draw_text_from_box(CDC &dc, const RECT &rect, const geometry::ViewMapping &view, const BoxText &text,
                        const LOGFONTA &font) {
  const RECT raised{std::max(rect.left, 0), std::max(rect.top, 0), std::max(rect.right, 0),
                    std::max(rect.bottom, 0)};
  BoxText unclipped = text;
  unclipped.format |= DT_NOCLIP;
  draw_text_in_box(dc, raised, view, unclipped, font);
}

}  // namespace tracing
