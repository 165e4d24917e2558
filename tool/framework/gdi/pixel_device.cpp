#include "tool/framework/gdi/pixel_device.h"

#include <algorithm>

#include "tool/framework/gdi/cell_metrics.h"
#include "tool/framework/gdi/flood_fill.h"
#include "tool/framework/gdi/pixel_transfer.h"
#include "tool/framework/gdi/raster_operations.h"

namespace framework {
namespace {

/// The rectangles of an area that the clip leaves.
std::vector<RECT> visible_parts(const Region &region, const Region *clip, PixelSpan pixels) {
  const RECT whole{0, 0, pixels.width, pixels.height};
  if (!clip) return region.rectangles(whole);
  const Region shown = Region::combined(*clip, Region::rectangle(whole), RGN_AND);
  return Region::combined(region, shown, RGN_AND).rectangles();
}

}  // namespace

PixelDevice::PixelDevice(PixelSpan pixels, double pixels_per_mm)
    : pixels_(pixels), pixels_per_mm_(pixels_per_mm) {}

DeviceCapabilities PixelDevice::capabilities() const {
  DeviceCapabilities able;
  able.raster_operations = able.flood_fill = able.read_pixels = true;
  able.width = pixels_.width;
  able.height = pixels_.height;
  able.pixels_per_mm_x = able.pixels_per_mm_y = pixels_per_mm_;
  return able;
}

void PixelDevice::fill_region(const Region &region, const Paint &paint) {
  if (paint.brush.kind == DeviceBrush::Kind::none) return;
  const BinaryRop rop(paint.rop);
  const bool solid = paint.brush.kind == DeviceBrush::Kind::solid;
  const std::uint32_t color = to_pixel(paint.brush.color);
  for (const RECT &part : visible_parts(region, paint.clip, pixels_))
    for (LONG y = part.top; y < part.bottom; ++y) {
      std::uint32_t *row = pixels_.row(y);
      for (LONG x = part.left; x < part.right; ++x) {
        const auto pen = solid ? std::optional(color) : brush_pixel(paint.brush, {x, y});
        if (pen) row[x] = rop(*pen, row[x]);
      }
    }
}

SIZE PixelDevice::text_extent(std::string_view text, const LOGFONTA &font) const {
  return cell_text_extent(text, font);
}

TEXTMETRICA PixelDevice::text_metrics(const LOGFONTA &font) const {
  return cell_text_metrics(font);
}

void PixelDevice::flood_fill(POINT seed, COLORREF color, UINT kind, const Paint &paint) {
  framework::flood_fill(pixels_, seed, color, kind, paint);
}

std::optional<COLORREF> PixelDevice::pixel(POINT point) const {
  if (!pixels_.holds(point.x, point.y)) return std::nullopt;
  return to_color(pixels_.row(point.y)[point.x]);
}

void PixelDevice::set_pixel(POINT point, COLORREF color, const Paint &paint) {
  if (!pixels_.holds(point.x, point.y) || (paint.clip && !paint.clip->contains(point))) return;
  pixels_.row(point.y)[point.x] = to_pixel(color);
}

void PixelDevice::put_pixels(const RECT &target, PixelView source, const RECT &part, DWORD operation,
                             int stretch_mode, const Paint &paint) {
  transfer_pixels(pixels_, target, source, part, operation, stretch_mode, paint);
}

bool PixelDevice::read_pixels(const RECT &from, PixelSpan target) const {
  if (from.right - from.left != target.width || from.bottom - from.top != target.height) return false;
  for (int y = 0; y < target.height; ++y)
    for (int x = 0; x < target.width; ++x) {
      const int source_x = from.left + x, source_y = from.top + y;
      target.row(y)[x] = pixels_.holds(source_x, source_y) ? pixels_.row(source_y)[source_x] : 0;
    }
  return true;
}

}  // namespace framework
