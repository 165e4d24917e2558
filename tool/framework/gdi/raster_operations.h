#pragma once
// What raster operations do to pixels. A number of the operation is a truth table: one bit for each
// combination of pattern (pen or brush), source and destination bit.

#include <cstdint>
#include <optional>

#include "tool/framework/gdi/drawing_device.h"

namespace framework {

/// An operation of a pen or brush with the pixel (R2_...).
class BinaryRop {
 public:
  explicit BinaryRop(int rop) : table_(static_cast<unsigned>(rop - R2_BLACK) & 0xFU) {}
  std::uint32_t operator()(std::uint32_t pen, std::uint32_t pixel) const {
    if (table_ == R2_COPYPEN - R2_BLACK) return pen | opaque;
    return (chosen(0, ~pen & ~pixel) | chosen(1, ~pen & pixel) | chosen(2, pen & ~pixel) |
            chosen(3, pen & pixel)) |
           opaque;
  }

 private:
  static constexpr std::uint32_t opaque = 0xFF000000U;
  std::uint32_t chosen(unsigned bit, std::uint32_t term) const { return table_ >> bit & 1U ? term : 0; }
  unsigned table_;
};

/// An operation of pattern, source and pixel (SRCCOPY ...).
class TernaryRop {
 public:
  explicit TernaryRop(DWORD operation) : table_(operation >> 16 & 0xFFU) {}
  bool uses_source() const { return (table_ >> 2 & 0x33U) != (table_ & 0x33U); }
  bool uses_pattern() const { return table_ >> 4 != (table_ & 0xFU); }
  bool is_copy() const { return table_ == SRCCOPY >> 16; }
  /// The R2_... that does the same where the source plays no part.
  int binary() const;
  std::uint32_t operator()(std::uint32_t pattern, std::uint32_t source, std::uint32_t pixel) const;

 private:
  unsigned table_;
};

/// The brush's colour at a pixel; empty between the lines of a transparent hatch and for no brush.
std::optional<std::uint32_t> brush_pixel(const DeviceBrush &brush, POINT at);

}  // namespace framework
