#include <cstddef>

#include "tool/api/CTools.h"
#include "tool/tracing/spline_drawing.h"

void CTools::Draw_SPLine(CDC *dc, CPoint org, double mag, const tagPOINT *points, short count, COLORREF color,
                         unsigned style, unsigned char closed, int width, int flip, int step) {
  if (!dc || !points || count <= 0) return;
  tracing::draw_spline(*dc, {{points, static_cast<std::size_t>(count)}, tracing::curve_ends(closed), step},
                       {org, mag, flip != 0}, {width, color, static_cast<int>(style)});
}

void CTools::Draw_SPLine_Image(CDC *dc, CPoint org, double mag, const tagPOINT *points, short count,
                               COLORREF color, unsigned style, unsigned char closed, int /*width*/, int flip,
                               int step, int imageWidth, int /*imageHeight*/) {
  if (!dc || !points || count <= 0) return;
  const int width = tracing::image_line_width(imageWidth);
  tracing::draw_spline_image(*dc,
                             {{points, static_cast<std::size_t>(count)}, tracing::curve_ends(closed), step},
                             {org, mag, flip != 0}, {width, color, static_cast<int>(style)});
}
