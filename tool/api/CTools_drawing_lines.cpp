#include "tool/api/CTools.h"
#include "tool/tracing/arrows.h"
#include "tool/tracing/drawing_scope.h"
#include "tool/tracing/print_mapping.h"

using geometry::ViewMapping;

void CTools::Draw_Line(CDC *dc, int x1, int y1, int x2, int y2, int width, COLORREF color, int style,
                       int flip) {
  if (dc) tracing::draw_line(*dc, {x1, y1}, {x2, y2}, {width, color, style}, flip != 0);
}

void CTools::Draw_Line2(CDC *dc, int x1, int y1, int x2, int y2, int width, COLORREF color, int style) {
  if (dc) tracing::draw_line_system_dashes(*dc, {x1, y1}, {x2, y2}, {width, color, style});
}

void CTools::Draw_Line_Image(CDC *dc, int x1, int y1, int x2, int y2, int width, COLORREF color, int style,
                             int flip) {
  if (dc) tracing::draw_line_image(*dc, {x1, y1}, {x2, y2}, {width, color, style}, flip != 0);
}

void CTools::Line_MakeH(HDC handle, int x1, int y1, int x2, int y2, int width, COLORREF color, int style) {
  CDC dc;
  if (!dc.Attach(handle)) return;
  Draw_Line(&dc, x1, y1, x2, y2, width, color, style, 0);
  dc.Detach();
}

void CTools::Line_Make2(CDC *dc, CPoint p1, CPoint p2, double mag, CPoint org, int width, COLORREF color,
                        int style, int exclusiveOr) {
  if (!dc) return;
  tracing::DrawingScope scope(*dc);
  scope.exclusive_or(exclusiveOr != 0);
  Draw_LineF(dc, org, mag, p1, p2, width, color, style);
}

void CTools::Line_Make2_Image(CDC *dc, CPoint p1, CPoint p2, double mag, CPoint org, int /*width*/,
                              COLORREF color, int style, int exclusiveOr, int imageWidth,
                              int /*imageHeight*/) {
  if (!dc) return;
  const ViewMapping view{org, mag, false};
  tracing::DrawingScope scope(*dc);
  scope.exclusive_or(exclusiveOr != 0);
  tracing::draw_line_image(*dc, view(p1), view(p2), {tracing::image_line_width(imageWidth), color, style});
}

void CTools::Line_Maked(CDC *dc, tagDPOINT *p1, tagDPOINT *p2, double mag, CPoint org, int width,
                        COLORREF color, int style) {
  if (!dc || !p1 || !p2) return;
  const ViewMapping view{org, mag, false};
  const int scaled = framework::to_int(width * mag);
  tracing::draw_line(*dc, view(geometry::value(p1)), view(geometry::value(p2)), {scaled, color, style});
}

void CTools::Draw_LineF(CDC *dc, CPoint org, double mag, CPoint p1, CPoint p2, int width, COLORREF color,
                        int style) {
  const ViewMapping view{org, mag, false};
  if (dc) tracing::draw_line(*dc, view(p1), view(p2), {width, color, style});
}

void CTools::Draw_LineF(CDC *dc, int x1, int y1, int x2, int y2, double mag, int width, COLORREF color,
                        int style) {
  Draw_LineF(dc, CPoint(), mag, CPoint(x1, y1), CPoint(x2, y2), width, color, style);
}

void CTools::P_Line(CDC *dc, double baseX, double baseY, double magX, double magY, double x1, double y1,
                    double x2, double y2, int width, COLORREF color, int style) {
  const tracing::PrintMapping page{{baseX, baseY}, magX, magY};
  if (dc) tracing::draw_line(*dc, page({x1, y1}), page({x2, y2}), {width, color, style});
}

void CTools::DrawArrowLine(CDC *dc, CPoint p1, CPoint p2, double headLength, int heads, double mag,
                           CPoint org, int width, COLORREF color, int style) {
  if (!dc) return;
  tracing::draw_arrow(*dc, p1, p2, {headLength, (heads & 1) != 0, (heads & 2) != 0}, {org, mag, false},
                      {width, color, style});
}
