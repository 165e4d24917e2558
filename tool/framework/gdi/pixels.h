#pragma once
// Pictures in memory: rows of 32-bit pixels from the top down. A pixel is 0xFFRRGGBB; the highest byte
// carries nothing. A COLORREF (0x00BBGGRR) is converted at the door.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tool/framework/types.h"

namespace framework {

constexpr std::uint32_t to_pixel(COLORREF color) {
  return 0xFF000000U | (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}
constexpr COLORREF to_color(std::uint32_t pixel) {
  return (pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF);
}

/// Borrowed pixels; `stride` pixels lie between the starts of two rows.
template <typename Pixel>
struct PixelArea {
  Pixel *pixels = nullptr;
  int width = 0;
  int height = 0;
  std::ptrdiff_t stride = 0;

  Pixel *row(int y) const { return pixels + y * stride; }
  bool holds(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
};
using PixelSpan = PixelArea<std::uint32_t>;
using PixelView = PixelArea<const std::uint32_t>;

/// A picture that owns its pixels. A size that is not positive, or beyond `max_side`, gives an empty picture.
class Picture {
 public:
  static constexpr int max_side = 32767;
  static constexpr std::int64_t max_pixels = std::int64_t{1} << 28;

  Picture() = default;
  Picture(int width, int height, COLORREF color = 0xFFFFFF);

  bool empty() const { return pixels_.empty(); }
  int width() const { return width_; }
  int height() const { return height_; }
  PixelSpan span() { return {pixels_.data(), width_, height_, width_}; }
  PixelView view() const { return {pixels_.data(), width_, height_, width_}; }
  /// The colour at (x, y); CLR_INVALID outside.
  COLORREF color(int x, int y) const;

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint32_t> pixels_;
};

}  // namespace framework
