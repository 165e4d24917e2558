#pragma once
// The settings record that the drawing operations read, filled for a sheet. Offsets: docs/formats.md.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace app {

class DisplayRecord {
 public:
  void *address() { return bytes_.data(); }
  void draw_teeth(bool on) { put(1268, on ? 1 : 0); }
  void line_width(int tenths) { put(1348, tenths); }
  void frontal_look(std::uint32_t color, int style) {
    put(100, static_cast<std::int32_t>(color));
    put(636, style);
  }
  /// Every vertex of the profilogram and its extra lines.
  void whole_profilogram() { std::memset(bytes_.data() + 1296, 1, 12 + 4); }

 private:
  void put(std::size_t offset, std::int32_t value) {
    std::memcpy(bytes_.data() + offset, &value, sizeof value);
  }
  std::array<std::byte, 2048> bytes_{};
};

/// Tooth templates as they are: no adjustment.
struct NoAdjustment {
  std::array<std::byte, 1024> bytes{};
};

}  // namespace app
