#pragma once
// Numbers in an EXIF block: byte orders and component formats of the TIFF 6.0 and EXIF standards. No function
// reads a byte outside the bytes it is given.

#include <cstddef>
#include <cstdint>
#include <span>

namespace imaging {

using Bytes = std::span<const unsigned char>;

enum class ByteOrder { little, big };

/// 16 bits at an offset; 0 where they do not lie whole within the bytes.
constexpr std::uint16_t read16(Bytes bytes, std::size_t offset, ByteOrder order) {
  if (bytes.size() < 2 || offset > bytes.size() - 2) return 0;
  const unsigned first = bytes[offset];
  const unsigned second = bytes[offset + 1];
  return static_cast<std::uint16_t>(order == ByteOrder::big ? first << 8 | second : second << 8 | first);
}

/// 32 bits at an offset; 0 where they do not lie whole within the bytes.
constexpr std::uint32_t read32(Bytes bytes, std::size_t offset, ByteOrder order) {
  if (bytes.size() < 4 || offset > bytes.size() - 4) return 0;
  const std::uint32_t first = read16(bytes, offset, order);
  const std::uint32_t second = read16(bytes, offset + 2, order);
  return order == ByteOrder::big ? first << 16 | second : second << 16 | first;
}

/// Bytes of one component of formats 1 to 12; 0 for every other format.
std::size_t component_size(unsigned format);

/// The first component as a number: integers of 8, 16 and 32 bits, fractions of signed numbers (0 over a zero
/// denominator), 32-bit and 64-bit floating point. 0 for texts, undefined bytes, unknown formats, and where
/// the value is too short for its format.
double exif_number(Bytes value, unsigned format, ByteOrder order);

}  // namespace imaging
