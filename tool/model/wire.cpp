#include "tool/model/wire.h"

#include <algorithm>

#include "tool/geometry/distances.h"
#include "tool/geometry/transforms.h"
#include "tool/geometry/truncation.h"

namespace model {

using geometry::rotated_scaled;

WirePair wire_pair(const WireFrame &frame, int k, const double *ratios_a, const double *ratios_b) {
  const double quarter_turn = frame.exchanged ? -90.0 : 90.0;
  const auto &[p, q, r, exchanged, offset_a, offset_b] = frame;
  if (k == -1) {
    const double distance = geometry::length(p, r, 1.0);
    return {rotated_scaled(r, p, -quarter_turn, offset_a / distance),
            rotated_scaled(r, p, quarter_turn, offset_b / distance)};
  }
  if (k < 0 || k >= wire_ratios) return {p, p};
  const double distance = geometry::length(p, q, 1.0);
  const CPointD a = rotated_scaled(q, p, -quarter_turn, offset_a / distance);
  const CPointD b = rotated_scaled(q, p, quarter_turn, offset_b / distance);
  const CPointD tenths = (p - q) / 10.0 * static_cast<double>(k);
  return {rotated_scaled(q, a, 0.0, ratios_a[k]) + tenths, rotated_scaled(q, b, 0.0, ratios_b[k]) + tenths};
}

std::array<POINT, wire_points> wire_curve(std::span<const POINT, wire_side_points> a, CPointD front,
                                          std::span<const POINT, wire_side_points> b) {
  std::array<POINT, wire_points> curve{};
  auto next = std::copy(a.begin(), a.end(), curve.begin());
  *next++ = geometry::truncate(front);
  std::reverse_copy(b.begin(), b.end(), next);
  return curve;
}

}  // namespace model
