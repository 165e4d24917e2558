#include "tool/framework/gdi/raw_drawing.h"

#include <cstring>

#include "tool/framework/gdi/CDC.h"
#include "tool/framework/gdi/device_context.h"
#include "tool/framework/gdi/object_data.h"

namespace framework {
namespace {

template <typename Record>
int write_record(const Record &value, int size, void *record) {
  if (!record) return sizeof(Record);
  if (size < static_cast<int>(sizeof(Record))) return 0;
  std::memcpy(record, &value, sizeof(Record));
  return sizeof(Record);
}

BITMAP bitmap_record(const BitmapData &bitmap) {
  const int width = bitmap.picture.width();
  const int row_bytes = (width * bitmap.bits_per_pixel + 15) / 16 * 2;
  return {0, width, bitmap.picture.height(), row_bytes, 1, static_cast<WORD>(bitmap.bits_per_pixel), nullptr};
}

}  // namespace

}  // namespace framework

using namespace framework;

HPEN CreatePen(int style, int width, COLORREF color) {
  return static_cast<HPEN>(HandleTable::instance().insert(standard_pen_data(style, width, color)));
}

HBRUSH CreateSolidBrush(COLORREF color) {
  return static_cast<HBRUSH>(HandleTable::instance().insert(BrushData{BS_SOLID, color, 0}));
}

HGDIOBJ GetStockObject(int index) {
  return HandleTable::instance().stock(index);
}

int GetObject(HGDIOBJ object, int size, void *record) {
  const HandleEntry entry = HandleTable::instance().find(object);
  if (const auto *pen = std::get_if<PenData>(&entry)) {
    const LOGPEN value{static_cast<UINT>(pen->style), {pen->width, 0}, pen->color};
    return write_record(value, size, record);
  }
  if (const auto *brush = std::get_if<BrushData>(&entry)) return write_record(*brush, size, record);
  if (const auto *font = std::get_if<FontData>(&entry)) return write_record(*font, size, record);
  if (const auto *bitmap = std::get_if<std::shared_ptr<BitmapData>>(&entry))
    return write_record(bitmap_record(**bitmap), size, record);
  return 0;
}

BOOL DeleteObject(HGDIOBJ object) {
  return is_drawing_object(object) && HandleTable::instance().erase(object);
}

HDC CreateCompatibleDC(HDC like) {
  const std::shared_ptr<DeviceContext> model = find_context(like);
  auto context = DeviceContext::memory(model ? model->capabilities() : DeviceContext().capabilities());
  return static_cast<HDC>(HandleTable::instance().insert(std::move(context)));
}

BOOL DeleteDC(HDC context) {
  return delete_context(context);
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ object) {
  const std::shared_ptr<DeviceContext> found = find_context(context);
  if (!found) return nullptr;
  if (const auto region = HandleTable::instance().get<std::shared_ptr<Region>>(object)) {
    found->set_clip(std::make_shared<Region>(**region));
    return reinterpret_cast<HGDIOBJ>(static_cast<std::uintptr_t>(region_complexity(**region)));
  }
  return found->select(object);
}

BOOL Rectangle(HDC context, int left, int top, int right, int bottom) {
  if (!find_context(context)) return FALSE;
  CDC drawing;
  drawing.SetOutputDC(context);
  return drawing.Rectangle(left, top, right, bottom);
}
