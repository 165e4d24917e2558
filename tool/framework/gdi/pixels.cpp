#include "tool/framework/gdi/pixels.h"

#include "tool/framework/gdi/constants.h"

namespace framework {

Picture::Picture(int width, int height, COLORREF color) {
  if (width <= 0 || height <= 0 || width > max_side || height > max_side) return;
  if (std::int64_t{width} * height > max_pixels) return;
  width_ = width;
  height_ = height;
  pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), to_pixel(color));
}

COLORREF Picture::color(int x, int y) const {
  const PixelView pixels = view();
  return pixels.holds(x, y) ? to_color(pixels.row(y)[x]) : CLR_INVALID;
}

}  // namespace framework
