#pragma once
// The arch wire of the cast: eleven points on each side that meet at a front point. Image pixels.

#include <array>
#include <span>

#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"

namespace model {

inline constexpr int wire_side_points = 11;
inline constexpr int wire_points = 2 * wire_side_points + 1;
inline constexpr int wire_ratios = 10;

/// One side of the wire's frame and how far the two wires lie from it.
struct WireFrame {
  CPointD p, q;            ///< the walk goes from q towards p in tenths
  CPointD r;               ///< front of the arch
  bool exchanged = false;  ///< the wires' sides exchanged
  double offset_a = 0.0;   ///< pixels
  double offset_b = 0.0;
};
struct WirePair {
  CPointD a;
  CPointD b;
};

/// The pair at tenth k. k = -1: at the offsets from r, perpendicular to r-p; k from 10 on, and below -1: p
/// for both; else at the offsets times the ratios of k, perpendicular to q-p. Points that coincide where a
/// direction is needed give not-a-number.
WirePair wire_pair(const WireFrame &frame, int k, const double *ratios_a, const double *ratios_b);

/// The whole wire: side a outward to inward, the front point truncated, side b inward to outward.
std::array<POINT, wire_points> wire_curve(std::span<const POINT, wire_side_points> a, CPointD front,
                                          std::span<const POINT, wire_side_points> b);

}  // namespace model
