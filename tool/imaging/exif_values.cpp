#include "tool/imaging/exif_values.h"

#include <array>
#include <bit>

namespace imaging {
namespace {

double fraction(Bytes value, ByteOrder order) {
  const auto numerator = static_cast<std::int32_t>(read32(value, 0, order));
  const auto denominator = static_cast<std::int32_t>(read32(value, 4, order));
  return denominator == 0 ? 0.0 : static_cast<double>(numerator) / denominator;
}

double double_precision(Bytes value, ByteOrder order) {
  const std::uint64_t first = read32(value, 0, order);
  const std::uint64_t second = read32(value, 4, order);
  return std::bit_cast<double>(order == ByteOrder::big ? first << 32 | second : second << 32 | first);
}

}  // namespace

std::size_t component_size(unsigned format) {
  constexpr std::array<std::uint8_t, 13> sizes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8};
  return format < sizes.size() ? sizes[format] : 0;
}

double exif_number(Bytes value, unsigned format, ByteOrder order) {
  if (value.size() < component_size(format)) return 0.0;
  switch (format) {
    case 1:
      return value[0];
    case 3:
      return read16(value, 0, order);
    case 4:
      return read32(value, 0, order);
    case 5:
    case 10:
      return fraction(value, order);
    case 6:
      return static_cast<std::int8_t>(value[0]);
    case 8:
      return static_cast<std::int16_t>(read16(value, 0, order));
    case 9:
      return static_cast<std::int32_t>(read32(value, 0, order));
    case 11:
      return std::bit_cast<float>(read32(value, 0, order));
    case 12:
      return double_precision(value, order);
    default:
      return 0.0;
  }
}

}  // namespace imaging
