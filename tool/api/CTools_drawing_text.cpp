#include <algorithm>
#include <climits>

#include "tool/api/CTools.h"
#include "tool/tracing/print_mapping.h"
#include "tool/tracing/text.h"

namespace {

int held(unsigned int value) {
  return static_cast<int>(std::min<unsigned int>(value, INT_MAX));
}

}  // namespace

void CTools::TextMake(CDC *dc, int x, int y, const char *text, unsigned int height, unsigned int weight,
                      int fontKind, int italic, COLORREF color, int backgroundMode, int flip,
                      unsigned char strikeOut, unsigned char underline) {
  if (!dc) return;
  tracing::draw_text(*dc, {x, y}, text,
                     {.height = held(height),
                      .weight = held(weight),
                      .font_kind = fontKind,
                      .italic = italic != 0,
                      .strike_out = strikeOut != 0,
                      .underline = underline != 0,
                      .color = color,
                      .background_mode = backgroundMode},
                     flip == 1);
}

void CTools::TextMakeOut(CDC *dc, int x, int y, const char *text, unsigned int height, unsigned int weight,
                         int /*unused*/, int italic, COLORREF color, int backgroundMode) {
  if (!dc) return;
  tracing::draw_text_out(*dc, {x, y}, text,
                         {.height = held(height),
                          .weight = held(weight),
                          .italic = italic != 0,
                          .color = color,
                          .background_mode = backgroundMode});
}

void CTools::Draw_Text(CDC *dc, CPoint org, double mag, CPoint p, short offset, const char *text, int height,
                       COLORREF color, int weight, int fontKind, int italic) {
  if (!dc) return;
  tracing::draw_text_in_view(
      *dc, p, offset, {org, mag, false}, text,
      {.height = height, .weight = weight, .font_kind = fontKind, .italic = italic != 0, .color = color});
}

void CTools::P_Text(CDC *dc, double baseX, double baseY, double magX, double magY, double dx, double dy,
                    const char *text, int height, int weight, int fontKind, int italic, COLORREF color) {
  if (!dc) return;
  const tracing::PrintMapping page{{baseX, baseY}, magX, magY};
  tracing::draw_text(*dc, page({dx, dy}), text,
                     {.height = framework::to_int(height * magX),
                      .weight = framework::to_int(weight * magX),
                      .font_kind = fontKind,
                      .italic = italic != 0,
                      .color = color});
}

int CTools::Rect_Text(CDC *dc, CRect rect, double mag, CPoint org, const char *text, int height,
                      COLORREF color, unsigned int format, int weight, int flip) {
  if (!dc) return 0;
  return tracing::draw_text_in_box(*dc, rect, {org, mag, false}, {text, color, format}, height, weight,
                                   flip == 1);
}

void CTools::Rect_Text(CDC *dc, CRect rect, double mag, CPoint org, const char *text, LOGFONTA font,
                       COLORREF color, unsigned int format) {
  if (dc) tracing::draw_text_in_box(*dc, rect, {org, mag, false}, {text, color, format}, font);
}

void CTools::Rect_Text_LF(CDC *dc, tagRECT rect, double mag, CPoint org, const char *text, LOGFONTA font,
                          COLORREF color, unsigned int format) {
  if (dc) tracing::draw_text_from_box(*dc, rect, {org, mag, false}, {text, color, format}, font);
}
