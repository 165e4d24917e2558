// Selected objects, modes and the clip of a context.

#include <utility>

#include "tool/framework/gdi/context_calls.h"
#include "tool/framework/gdi/object_data.h"
#include "tool/framework/gdi/raw_drawing.h"

using framework::DeviceContext;
using framework::HandleTable;
using framework::Region;

namespace {

/// Sets one value of the state when it lies within [low, high]; the value before, or 0.
template <typename Value>
Value set_mode(DeviceContext &dc, Value framework::DrawingState::*member, Value value, Value low,
               Value high) {
  if (value < low || value > high) return 0;
  return std::exchange(dc.change().*member, value);
}

template <typename Object>
Object *object_of(HGDIOBJ handle) {
  return dynamic_cast<Object *>(CGdiObject::FromHandle(handle));
}

}  // namespace

// Objects
// ------------------------------------------------------------------------------------------------------------
CPen *CDC::SelectObject(CPen *pen) {
  if (!pen) return nullptr;
  return object_of<CPen>(change_both([pen](DeviceContext &dc) { return dc.select(pen->m_hObject); }));
}

CBrush *CDC::SelectObject(CBrush *brush) {
  if (!brush) return nullptr;
  return object_of<CBrush>(change_both([brush](DeviceContext &dc) { return dc.select(brush->m_hObject); }));
}

CFont *CDC::SelectObject(CFont *font) {
  if (!font) return nullptr;
  return object_of<CFont>(change_both([font](DeviceContext &dc) { return dc.select(font->m_hObject); }));
}

CBitmap *CDC::SelectObject(CBitmap *bitmap) {
  if (!bitmap) return nullptr;
  return object_of<CBitmap>(context().select(bitmap->m_hObject));
}

int CDC::SelectObject(CRgn *clip) {
  return SelectClipRgn(clip);
}

CGdiObject *CDC::SelectStockObject(int index) {
  if (index == framework::default_bitmap) return nullptr;
  const HGDIOBJ stock = HandleTable::instance().stock(index);
  return CGdiObject::FromHandle(change_both([stock](DeviceContext &dc) { return dc.select(stock); }));
}

CPen *CDC::GetCurrentPen() const {
  return object_of<CPen>(attributes().state().pen);
}

CBrush *CDC::GetCurrentBrush() const {
  return object_of<CBrush>(attributes().state().brush);
}

CFont *CDC::GetCurrentFont() const {
  return object_of<CFont>(attributes().state().font);
}

CBitmap *CDC::GetCurrentBitmap() const {
  return object_of<CBitmap>(context().state().bitmap);
}

// Modes
// ------------------------------------------------------------------------------------------------------------
int CDC::SetBkMode(int mode) {
  return change_both([mode](DeviceContext &dc) {
    return set_mode(dc, &framework::DrawingState::background_mode, mode, TRANSPARENT, OPAQUE);
  });
}

int CDC::GetBkMode() const {
  return attributes().state().background_mode;
}

COLORREF CDC::SetBkColor(COLORREF color) {
  return change_both(
      [color](DeviceContext &dc) { return std::exchange(dc.change().background_color, color); });
}

COLORREF CDC::GetBkColor() const {
  return attributes().state().background_color;
}

COLORREF CDC::SetTextColor(COLORREF color) {
  return change_both([color](DeviceContext &dc) { return std::exchange(dc.change().text_color, color); });
}

COLORREF CDC::GetTextColor() const {
  return attributes().state().text_color;
}

int CDC::SetROP2(int operation) {
  return change_both([operation](DeviceContext &dc) {
    return set_mode(dc, &framework::DrawingState::rop, operation, R2_BLACK, R2_WHITE);
  });
}

int CDC::GetROP2() const {
  return attributes().state().rop;
}

int CDC::SetPolyFillMode(int mode) {
  return change_both([mode](DeviceContext &dc) {
    return set_mode(dc, &framework::DrawingState::poly_fill_mode, mode, ALTERNATE, WINDING);
  });
}

int CDC::GetPolyFillMode() const {
  return attributes().state().poly_fill_mode;
}

int CDC::SetStretchBltMode(int mode) {
  return change_both([mode](DeviceContext &dc) {
    return set_mode(dc, &framework::DrawingState::stretch_mode, mode, BLACKONWHITE, HALFTONE);
  });
}

UINT CDC::SetTextAlign(UINT alignment) {
  return change_both(
      [alignment](DeviceContext &dc) { return std::exchange(dc.change().text_align, alignment); });
}

UINT CDC::GetTextAlign() const {
  return attributes().state().text_align;
}

// Clip
// ------------------------------------------------------------------------------------------------------------
int CDC::SelectClipRgn(CRgn *region) {
  if (!region) {
    context().set_clip(nullptr);
    return SIMPLEREGION;
  }
  const auto selected = HandleTable::instance().get<std::shared_ptr<Region>>(region->m_hObject);
  if (!selected) return ERROR_REGION;
  context().set_clip(std::make_shared<Region>(**selected));
  return framework::region_complexity(**selected);
}

int CDC::IntersectClipRect(int left, int top, int right, int bottom) {
  DeviceContext &dc = context();
  Region clip = Region::rectangle(dc.state().mapping.box_to_device({left, top, right, bottom}));
  if (const Region *before = dc.state().clip.get()) clip = Region::combined(*before, clip, RGN_AND);
  const int complexity = framework::region_complexity(clip);
  dc.set_clip(std::make_shared<Region>(std::move(clip)));
  return complexity;
}

int CDC::GetClipBox(RECT *box) const {
  if (!box) return ERROR_REGION;
  const DeviceContext &dc = context();
  const framework::DeviceCapabilities device = dc.capabilities();
  const framework::PixelSpan pixels = dc.bitmap_pixels();
  const RECT whole =
      dc.is_memory() ? RECT{0, 0, pixels.width, pixels.height} : RECT{0, 0, device.width, device.height};
  Region visible = Region::rectangle(whole);
  if (const Region *clip = dc.state().clip.get()) visible = Region::combined(*clip, visible, RGN_AND);
  *box = visible.bounds();
  DPtoLP(box);
  return framework::region_complexity(visible);
}
