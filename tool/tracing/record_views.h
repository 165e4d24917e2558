#pragma once
// Reading the application's records, which arrive as untyped pointers. One view for each record; fields are
// copied out, so a record may lie at any address. A null record reads as zeros.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "tool/analysis/landmarks.h"
#include "tool/analysis/records.h"
#include "tool/tracing/line_style.h"

namespace tracing {

/// The T at a byte offset.
template <typename T>
T field(const void *record, std::size_t offset) {
  static_assert(std::is_trivially_copyable_v<T>);
  T value{};
  if (record) std::memcpy(&value, static_cast<const std::byte *>(record) + offset, sizeof value);
  return value;
}

/// The lateral tracing, tagPOINTLAT.
class LateralRecord {
 public:
  explicit LateralRecord(const void *record) : record_(record) {}

  CPoint landmark(int k) const {
    const auto entry = static_cast<std::size_t>(analysis::first_landmark_entry + k);
    return field<POINT>(record_, offsetof(tagPOINTLAT, pt) + entry * sizeof(POINT));
  }
  /// Centre of the display rotation.
  CPoint porion() const { return landmark(analysis::lateral::Po); }
  double scale() const { return field<double>(record_, offsetof(tagPOINTLAT, scale)); }
  /// The tracing's line. Its print width travels in the high half of the width where it is read, under
  /// thick_solid; elsewhere it would only make the pen thousands of pixels wide. Negative widths count as 0.
  LineStyle line(COLORREF color, int style) const {
    const int screen = std::max<int>(field<signed char>(record_, offsetof(tagPOINTLAT, lineWidth)), 0);
    const int print = std::max<int>(field<signed char>(record_, offsetof(tagPOINTLAT, printLineWidth)), 0);
    return {style == thick_solid ? print << 16 | screen : screen, color, style};
  }

 private:
  const void *record_;
};

/// The frontal tracing, tagPOINTPA.
class FrontalRecord {
 public:
  explicit FrontalRecord(const void *record) : record_(record) {}
  CPoint landmark(int k) const {
    const auto entry = static_cast<std::size_t>(analysis::first_landmark_entry + k);
    return field<POINT>(record_, offsetof(tagPOINTPA, pt) + entry * sizeof(POINT));
  }

 private:
  const void *record_;
};

/// What the user changed on an incisor template: 0 leaves it as it is, 5 adds a tenth, -25 halves.
struct IncisorAdjustment {
  int side_3 = 0;      ///< distance of the outline from the axis at the first side point
  int side_4 = 0;      ///< and at the second
  int position_3 = 0;  ///< where along the axis the first side point lies
  int position_4 = 0;

  static double applied(int adjustment, double value) { return value * (adjustment + 50) / 50.0; }
};

/// The template adjustment record.
class AdjustmentRecord {
 public:
  explicit AdjustmentRecord(const void *record) : record_(record) {}
  IncisorAdjustment upper_incisor() const { return {at(904), at(906), at(912), at(914)}; }
  IncisorAdjustment lower_incisor() const { return {at(908), at(910), at(916), at(918)}; }

 private:
  int at(std::size_t offset) const { return field<std::int16_t>(record_, offset); }

  const void *record_;
};

/// The display settings, as far as drawing reads them.
class SettingsRecord {
 public:
  static constexpr int profilogram_vertices = 12;

  explicit SettingsRecord(const void *record) : record_(record) {}

  bool life_size() const { return number(1224) != 0; }
  int life_size_value() const { return number(1224); }
  bool teeth() const { return number(1268) != 0; }
  /// The line of teeth of the tracing itself.
  int line_width() const { return number(1348); }
  LineStyle frontal_line() const { return {number(1348), static_cast<COLORREF>(number(100)), number(636)}; }

  bool profilogram_vertex(int v) const { return flag(1296 + static_cast<std::size_t>(v)); }  ///< v from 0
  bool palatal_line() const { return flag(1308); }
  bool occlusal_line() const { return flag(1309); }
  bool upper_incisor_axis() const { return flag(1310); }
  bool lower_incisor_axis() const { return flag(1311); }
  /// No edge from the upper half of the profilogram down to the lower one.
  bool open_profilogram() const { return flag(1312); }

 private:
  std::int32_t number(std::size_t offset) const { return field<std::int32_t>(record_, offset); }
  bool flag(std::size_t offset) const { return field<unsigned char>(record_, offset) != 0; }

  const void *record_;
};

}  // namespace tracing
