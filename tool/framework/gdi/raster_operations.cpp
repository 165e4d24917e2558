#include "tool/framework/gdi/raster_operations.h"

#include "tool/framework/gdi/pixel_device.h"

namespace framework {
namespace {

constexpr LONG hatch_distance = 8;

/// 0 to 7 also left of zero.
LONG in_cell(LONG value) {
  return value & (hatch_distance - 1);
}

bool on_hatch(int hatch, POINT at) {
  const bool horizontal = in_cell(at.y) == 0, vertical = in_cell(at.x) == 0;
  const bool falling = in_cell(at.x - at.y) == 0, rising = in_cell(at.x + at.y) == 0;
  switch (hatch) {
    case HS_HORIZONTAL:
      return horizontal;
    case HS_VERTICAL:
      return vertical;
    case HS_FDIAGONAL:
      return falling;
    case HS_BDIAGONAL:
      return rising;
    case HS_CROSS:
      return horizontal || vertical;
    default:
      return falling || rising;
  }
}

}  // namespace

std::uint32_t apply_rop2(int rop, std::uint32_t pen, std::uint32_t pixel) {
  return BinaryRop(rop)(pen, pixel);
}

int TernaryRop::binary() const {
  // The rows of the table without source: neither, pixel, pattern, both.
  const unsigned bits = (table_ & 3U) | (table_ >> 2 & 0xCU);
  return R2_BLACK + static_cast<int>(bits);
}

std::uint32_t TernaryRop::operator()(std::uint32_t pattern, std::uint32_t source, std::uint32_t pixel) const {
  std::uint32_t result = 0xFF000000U;
  if (is_copy()) return result | source;
  for (unsigned bit = 0; bit < 8; ++bit)
    if (table_ >> bit & 1U)
      result |= (bit & 4U ? pattern : ~pattern) & (bit & 2U ? source : ~source) & (bit & 1U ? pixel : ~pixel);
  return result;
}

std::optional<std::uint32_t> brush_pixel(const DeviceBrush &brush, POINT at) {
  switch (brush.kind) {
    case DeviceBrush::Kind::none:
      return std::nullopt;
    case DeviceBrush::Kind::solid:
      return to_pixel(brush.color);
    case DeviceBrush::Kind::hatched:
      break;
  }
  if (on_hatch(brush.hatch, at)) return to_pixel(brush.color);
  return brush.gap_color ? std::optional(to_pixel(*brush.gap_color)) : std::nullopt;
}

}  // namespace framework
