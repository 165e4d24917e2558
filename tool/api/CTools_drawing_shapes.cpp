#include "tool/api/CTools.h"
#include "tool/tracing/print_mapping.h"

using geometry::ViewMapping;

namespace {

/// Only scaled, for callers that have moved the origin themselves.
ViewMapping scaling(double mag) {
  return {CPoint(), mag, false};
}

}  // namespace

// Rectangles and areas

void CTools::Area_Make(CDC *dc, int x1, int y1, int x2, int y2, int width, COLORREF color, int style) {
  if (dc) tracing::draw_outline(*dc, {x1, y1, x2, y2}, {width, color, style});
}

void CTools::Area_Make(CDC *dc, CRect rect, int width, COLORREF color, int style) {
  Area_Make(dc, rect.left, rect.top, rect.right, rect.bottom, width, color, style);
}

void CTools::Area_MakeF(CDC *dc, int x1, int y1, int x2, int y2, double mag, int width, COLORREF color,
                        int style) {
  if (dc) tracing::draw_outline(*dc, tracing::mapped({x1, y1, x2, y2}, scaling(mag)), {width, color, style});
}

void CTools::DrawRect(CDC *dc, CRect rect, double mag, int width, COLORREF color, int style) {
  Area_MakeF(dc, rect.left, rect.top, rect.right, rect.bottom, mag, width, color, style);
}

void CTools::P_Area(CDC *dc, double baseX, double baseY, double magX, double magY, double x1, double y1,
                    double x2, double y2, int width, COLORREF color, int style) {
  const tracing::PrintMapping page{{baseX, baseY}, magX, magY};
  const CPoint first = page({x1, y1});
  const CPoint second = page({x2, y2});
  Area_Make(dc, first.x, first.y, second.x, second.y, width, color, style);
}

void CTools::Frame_Make(CDC *dc, CRect rect, int width, COLORREF color, int style) {
  if (dc) tracing::draw_outline_xor(*dc, rect, {width, color, style});
}

void CTools::Rect_Make(CDC *dc, CRect rect, int width, COLORREF penColor, COLORREF brushColor) {
  if (dc) tracing::draw_rectangle(*dc, rect, width, penColor, brushColor);
}

void CTools::Rect_Make(CDC *dc, tagRECT rect, double mag, CPoint org, int width, COLORREF color, int style,
                       int exclusiveOr) {
  if (!dc) return;
  tracing::draw_view_rectangle(*dc, rect, {org, mag, false}, {width, color, style}, exclusiveOr != 0);
}

void CTools::Rect_MakeEx(CDC *dc, tagRECT rect, double mag, CPoint org, int corner, int width,
                         COLORREF penColor, int style, int fill, COLORREF fillColor) {
  if (!dc) return;
  tracing::draw_rounded_rectangle(*dc, {rect, corner, fill != 0, fillColor}, {org, mag, false},
                                  {width, penColor, style});
}

void CTools::Box_MakeH(HDC handle, int x1, int y1, int x2, int y2, int width, COLORREF penColor,
                       COLORREF brushColor) {
  CDC dc;
  if (!dc.Attach(handle)) return;
  tracing::draw_rectangle(dc, {x1, y1, x2, y2}, width, penColor, brushColor);
  dc.Detach();
}

void CTools::DrawRect(CDC *dc, int x, int y, COLORREF fillColor, COLORREF borderColor) {
  if (dc) tracing::flood_fill(*dc, {x, y}, fillColor, borderColor);
}

// Ellipses, arcs, spots

void CTools::Ellipse(CDC *dc, int x1, int y1, int x2, int y2, int width, COLORREF penColor,
                     COLORREF brushColor, int style, int flip) {
  if (dc) tracing::draw_ellipse(*dc, {x1, y1, x2, y2}, {width, penColor, style}, brushColor, flip == 1);
}

void CTools::EllipseF(CDC *dc, int x1, int y1, int x2, int y2, double mag, int width, COLORREF color,
                      int style) {
  if (!dc) return;
  tracing::draw_ellipse_outline(*dc, tracing::mapped({x1, y1, x2, y2}, scaling(mag)), {width, color, style});
}

void CTools::Arc_MakeF(CDC *dc, int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4, double mag,
                       int width, COLORREF color, int style) {
  if (!dc) return;
  const ViewMapping view = scaling(mag);
  tracing::draw_arc(*dc, tracing::mapped({x1, y1, x2, y2}, view), view(CPoint(x3, y3)), view(CPoint(x4, y4)),
                    {width, color, style});
}

void CTools::Draw_Circle(CDC *dc, int cx, int cy, int px, int py, int width, COLORREF color, int style,
                         int flip) {
  if (dc) tracing::draw_circle(*dc, {cx, cy}, {px, py}, {width, color, style}, flip != 0);
}

void CTools::Spot(CDC *dc, CPoint org, double mag, CPoint centre, short radius, COLORREF color, int flip) {
  if (dc) tracing::draw_spot(*dc, centre, radius, {org, mag, false}, color, flip == 1);
}

void CTools::Spot2(CDC *dc, CPoint org, double mag, CPoint centre, short radius, COLORREF color, int flip) {
  if (dc) tracing::draw_fixed_spot(*dc, centre, radius, {org, mag, false}, color, flip == 1);
}

// Printing

double CTools::GetPrintMag(CDC *dc, CSize extent) {
  return dc ? tracing::print_magnification(*dc, extent) : 0.0;
}
