#include "tool/tracing/drawing_scope.h"

namespace tracing {

namespace {

BOOL create(CPen &pen, const PenSpec &wanted) {
  if (wanted.kind == PenSpec::Kind::standard) return pen.CreatePen(wanted.style, wanted.width, wanted.color);
  const LOGBRUSH brush{BS_SOLID, wanted.color, 0};
  return pen.CreatePen(wanted.style, wanted.width, &brush, wanted.dash_count,
                       wanted.dash_count > 0 ? wanted.dashes.data() : nullptr);
}

}  // namespace

DrawingScope::DrawingScope(CDC &dc, int background_mode)
    : dc_(dc), old_background_mode_(dc.SetBkMode(background_mode)) {}

DrawingScope::~DrawingScope() {
  if (old_pen_) dc_.SelectObject(old_pen_);
  if (old_brush_) dc_.SelectObject(old_brush_);
  if (old_font_) dc_.SelectObject(old_font_);
  if (old_text_color_ != CLR_INVALID) dc_.SetTextColor(old_text_color_);
  if (old_raster_operation_ != 0) dc_.SetROP2(old_raster_operation_);
  if (old_background_mode_ != 0) dc_.SetBkMode(old_background_mode_);
}

DrawingScope &DrawingScope::pen(const PenSpec &wanted) {
  if (create(pen_, wanted)) old_pen_ = dc_.SelectObject(&pen_);
  return *this;
}

DrawingScope &DrawingScope::solid_brush(COLORREF color) {
  if (brush_.CreateSolidBrush(color)) old_brush_ = dc_.SelectObject(&brush_);
  return *this;
}

DrawingScope &DrawingScope::hollow_brush() {
  if (brush_.CreateStockObject(HOLLOW_BRUSH)) old_brush_ = dc_.SelectObject(&brush_);
  return *this;
}

DrawingScope &DrawingScope::font(const LOGFONTA &font) {
  if (font_.CreateFontIndirect(&font)) old_font_ = dc_.SelectObject(&font_);
  return *this;
}

DrawingScope &DrawingScope::exclusive_or(bool wanted) {
  if (wanted) old_raster_operation_ = dc_.SetROP2(R2_XORPEN);
  return *this;
}

DrawingScope &DrawingScope::text_color(COLORREF color, bool restored) {
  const COLORREF before = dc_.SetTextColor(color);
  if (restored) old_text_color_ = before;
  return *this;
}

}  // namespace tracing
