#include "tool/framework/gdi/gdi_objects.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "tool/framework/gdi/CDC.h"
#include "tool/framework/gdi/device_context.h"
#include "tool/framework/gdi/object_data.h"
#include "tool/framework/gdi/raw_drawing.h"

using namespace framework;

namespace {

/// The wrapper of one kind, or null when the handle names something else.
template <typename Object, typename Handle>
Object *wrapper_of(Handle handle) {
  return dynamic_cast<Object *>(CGdiObject::FromHandle(handle));
}

/// A new handle for an object, which gives up the one it has.
BOOL renew(CGdiObject &object, HandleEntry entry) {
  object.DeleteObject();
  return object.Attach(HandleTable::instance().insert(std::move(entry)));
}

}  // namespace

// Any object
// ------------------------------------------------------------------------------------------------------------
BOOL CGdiObject::Attach(HGDIOBJ object) {
  if (m_hObject || !is_drawing_object(object)) return FALSE;
  m_hObject = object;
  HandleTable::instance().set_owner(object, this);
  return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
  if (HandleTable::instance().owner(m_hObject) == this) HandleTable::instance().set_owner(m_hObject, nullptr);
  return std::exchange(m_hObject, nullptr);
}

BOOL CGdiObject::DeleteObject() {
  return m_hObject && ::DeleteObject(std::exchange(m_hObject, nullptr));
}

BOOL CGdiObject::CreateStockObject(int index) {
  if (index == default_bitmap) return FALSE;
  return Attach(HandleTable::instance().stock(index));
}

int CGdiObject::GetObject(int size, void *record) const {
  return ::GetObject(m_hObject, size, record);
}

CGdiObject *CGdiObject::FromHandle(HGDIOBJ object) {
  return object ? HandleTable::instance().object(object) : nullptr;
}

// Pens
// ------------------------------------------------------------------------------------------------------------
BOOL CPen::CreatePen(int style, int width, COLORREF color) {
  return renew(*this, standard_pen_data(style, width, color));
}

BOOL CPen::CreatePen(int style, int width, const LOGBRUSH *brush, int count, const DWORD *dashes) {
  if (!brush || count < 0 || (count > 0 && !dashes)) return FALSE;
  PenData pen;
  if (count > static_cast<int>(pen.dashes.size())) return FALSE;
  if ((style & PS_STYLE_MASK) == PS_USERSTYLE && count == 0) return FALSE;
  pen.style = brush->lbStyle == BS_NULL ? (style & ~PS_STYLE_MASK) | PS_NULL : style;
  pen.width = style & PS_GEOMETRIC ? width : 0;
  pen.color = brush->lbColor;
  pen.dash_count = count;
  std::copy_n(dashes, count, pen.dashes.begin());
  return renew(*this, pen);
}

BOOL CPen::CreatePenIndirect(const LOGPEN *pen) {
  return pen && CreatePen(static_cast<int>(pen->lopnStyle), pen->lopnWidth.x, pen->lopnColor);
}

CPen *CPen::FromHandle(HPEN pen) {
  return wrapper_of<CPen>(pen);
}

// Brushes
// ------------------------------------------------------------------------------------------------------------
BOOL CBrush::CreateSolidBrush(COLORREF color) {
  return renew(*this, BrushData{BS_SOLID, color, 0});
}

BOOL CBrush::CreateHatchBrush(int hatch, COLORREF color) {
  if (hatch < HS_HORIZONTAL || hatch > HS_DIAGCROSS) return FALSE;
  return renew(*this, BrushData{BS_HATCHED, color, static_cast<std::uintptr_t>(hatch)});
}

BOOL CBrush::CreateBrushIndirect(const LOGBRUSH *brush) {
  if (!brush || brush->lbStyle > BS_HATCHED) return FALSE;
  if (brush->lbStyle == BS_HATCHED && brush->lbHatch > static_cast<std::uintptr_t>(HS_DIAGCROSS))
    return FALSE;
  return renew(*this, *brush);
}

CBrush *CBrush::FromHandle(HBRUSH brush) {
  return wrapper_of<CBrush>(brush);
}

// Fonts
// ------------------------------------------------------------------------------------------------------------
BOOL CFont::CreateFontIndirect(const LOGFONTA *font) {
  if (!font) return FALSE;
  FontData data = *font;
  data.lfFaceName[LF_FACESIZE - 1] = '\0';
  return renew(*this, data);
}

BOOL CFont::CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic,
                       BYTE underline, BYTE strike_out, BYTE charset, BYTE out_precision, BYTE clip_precision,
                       BYTE quality, BYTE pitch_and_family, const char *face) {
  LOGFONTA font{height,     width,   escapement,    orientation,    weight,  italic,           underline,
                strike_out, charset, out_precision, clip_precision, quality, pitch_and_family, {}};
  if (face) std::strncpy(font.lfFaceName, face, LF_FACESIZE - 1);
  return CreateFontIndirect(&font);
}

BOOL CFont::CreatePointFont(int tenths, const char *face, CDC *context) {
  const int per_inch = context ? context->GetDeviceCaps(LOGPIXELSY) : 96;
  LOGFONTA font{};
  POINT size{0, round_within(tenths / 720.0 * per_inch, max_device_coordinate)};
  if (context) {
    POINT origin{0, 0};
    context->DPtoLP(&size);
    context->DPtoLP(&origin);
    size.y = std::abs(size.y - origin.y);
  }
  font.lfHeight = -size.y;
  font.lfCharSet = DEFAULT_CHARSET;
  if (face) std::strncpy(font.lfFaceName, face, LF_FACESIZE - 1);
  return CreateFontIndirect(&font);
}

int CFont::GetLogFont(LOGFONTA *font) const {
  return GetObject(sizeof(LOGFONTA), font);
}

CFont *CFont::FromHandle(HFONT font) {
  return wrapper_of<CFont>(font);
}
