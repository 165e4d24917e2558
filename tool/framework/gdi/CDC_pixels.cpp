// Single pixels, transfers and flood fills of a context.

#include <algorithm>

#include "tool/framework/gdi/context_calls.h"
#include "tool/framework/gdi/device_pen.h"
#include "tool/framework/gdi/raster_operations.h"

using framework::DeviceContext;
using framework::DrawingDevice;
using framework::PixelView;

namespace {

/// Pixels of another context, and where its pixel (0, 0) lies in them.
struct SourcePixels {
  PixelView view;
  POINT origin{0, 0};
  std::vector<std::uint32_t> copy;
};

RECT normalised(const RECT &r) {
  return {std::min(r.left, r.right), std::min(r.top, r.bottom), std::max(r.left, r.right),
          std::max(r.top, r.bottom)};
}

/// A bitmap lends its pixels; other devices are read where the part lies on them.
std::optional<SourcePixels> read_source(DeviceContext &source, const RECT &part) {
  if (const framework::PixelSpan bitmap = source.bitmap_pixels(); bitmap.pixels)
    return SourcePixels{{bitmap.pixels, bitmap.width, bitmap.height, bitmap.stride}, {0, 0}, {}};
  const DrawingDevice *device = source.device();
  if (!device) return std::nullopt;
  const framework::DeviceCapabilities able = device->capabilities();
  const RECT box = normalised(part);
  const RECT shown{std::max<LONG>(box.left, 0), std::max<LONG>(box.top, 0),
                   std::min<LONG>(box.right, able.width), std::min<LONG>(box.bottom, able.height)};
  if (!able.read_pixels || shown.left >= shown.right || shown.top >= shown.bottom) return std::nullopt;
  const int width = shown.right - shown.left, height = shown.bottom - shown.top;
  SourcePixels pixels;
  pixels.copy.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  if (!device->read_pixels(shown, {pixels.copy.data(), width, height, width})) return std::nullopt;
  pixels.view = {pixels.copy.data(), width, height, width};
  pixels.origin = {-shown.left, -shown.top};
  return pixels;
}

/// A box given by corner and size, not sorted: a negative size mirrors. An axis pointing up does not.
RECT transfer_box(const DeviceContext &dc, int x, int y, int width, int height) {
  const framework::Mapping &mapping = dc.state().mapping;
  const RECT logical = framework::sized_rect(x, y, width, height);
  RECT box = mapping.box_to_device(logical);
  if (width < 0) std::swap(box.left, box.right);
  if (height < 0) std::swap(box.top, box.bottom);
  return box;
}

}  // namespace

COLORREF CDC::GetPixel(int x, int y) const {
  const DeviceContext &dc = context();
  if (!dc.device()) return CLR_INVALID;
  return dc.device()->pixel(dc.state().mapping.to_device({x, y})).value_or(CLR_INVALID);
}

COLORREF CDC::SetPixel(int x, int y, COLORREF color) {
  DeviceContext &dc = context();
  if (!dc.device()) return color;
  const framework::DeviceCapabilities able = dc.device()->capabilities();
  const POINT at = dc.state().mapping.to_device({x, y});
  if (at.x < 0 || at.y < 0 || at.x >= able.width || at.y >= able.height) return CLR_INVALID;
  dc.device()->set_pixel(at, color, dc.paint());
  return color;
}

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC *source, int source_x, int source_y,
                 DWORD operation) {
  return StretchBlt(x, y, width, height, source, source_x, source_y, width, height, operation);
}

BOOL CDC::StretchBlt(int x, int y, int width, int height, CDC *source, int source_x, int source_y,
                     int source_width, int source_height, DWORD operation) {
  if (!framework::TernaryRop(operation).uses_source()) return PatBlt(x, y, width, height, operation);
  if (!source) return FALSE;
  DeviceContext &dc = context();
  DeviceContext &from = source->context();
  if (!dc.device()) return TRUE;
  RECT part = transfer_box(from, source_x, source_y, source_width, source_height);
  const std::optional<SourcePixels> pixels = read_source(from, part);
  if (!pixels) return FALSE;
  const auto [dx, dy] = pixels->origin;
  part = {part.left + dx, part.top + dy, part.right + dx, part.bottom + dy};
  RECT box = transfer_box(dc, x, y, width, height);
  if (part.left > part.right) std::swap(box.left, box.right);
  if (part.top > part.bottom) std::swap(box.top, box.bottom);
  dc.device()->put_pixels(box, pixels->view, normalised(part), operation, dc.state().stretch_mode,
                          dc.paint());
  return TRUE;
}

BOOL CDC::PatBlt(int x, int y, int width, int height, DWORD operation) {
  const framework::TernaryRop rop(operation);
  if (rop.uses_source()) return FALSE;
  DeviceContext &dc = context();
  const RECT box = normalised(transfer_box(dc, x, y, width, height));
  if (!dc.device() || box.left == box.right || box.top == box.bottom) return TRUE;
  framework::Paint paint = dc.paint();
  if (!rop.uses_pattern()) paint.brush = framework::solid_brush(operation == WHITENESS ? 0xFFFFFF : 0);
  paint.rop = operation == BLACKNESS || operation == WHITENESS ? R2_COPYPEN : rop.binary();
  dc.device()->fill_region(framework::Region::rectangle(box), paint);
  return TRUE;
}

BOOL CDC::ExtFloodFill(int x, int y, COLORREF color, UINT kind) {
  if (kind != FLOODFILLBORDER && kind != FLOODFILLSURFACE) return FALSE;
  DeviceContext &dc = context();
  if (!dc.device()) return TRUE;
  dc.device()->flood_fill(dc.state().mapping.to_device({x, y}), color, kind, dc.paint());
  return dc.device()->capabilities().flood_fill;
}
