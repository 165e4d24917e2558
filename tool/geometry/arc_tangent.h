#pragma once
// The arc tangent that every measured angle goes through, inline and as short as it can be.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "tool/geometry/pair.h"

namespace geometry {

namespace detail {

/// atan(q) for |q| <= tan(pi / 8), to within 1e-17 of the value before rounding: the Chebyshev fit of degree
/// 10 to (atan(sqrt z) / sqrt z - 1) / z.
inline double small_arc_tangent(double q) {
  const double z = q * q;
  const double z2 = z * z;
  const double z4 = z2 * z2;
  const Pair low_and_middle = (Pair{-0.33333333333333330156, -0.090909045753064890845} +
                               Pair{0.19999999999995516545, 0.076921831253768920895} * both(z)) +
                              (Pair{-0.14285714284665680761, -0.066645105255089365988} +
                               Pair{0.11111111015187018721, 0.058581409048663282818} * both(z)) *
                                  both(z2);
  const double high = (-0.050854078345894842573 + 0.039230447784793095235 * z) - 0.019175404711104933678 * z2;
  return q + q * z * (low_and_middle[0] + (low_and_middle[1] + high * z4) * z4);
}

}  // namespace detail

/// The angle in radians, [0, pi], of a right triangle with legs `opposite` (not negative) and `adjacent`:
/// what atan2 gives, within two units of the last place. The legs must not both be 0.
inline double angle_of_legs(double opposite, double adjacent) {
  const double along = std::abs(adjacent);
  const double small = std::min(opposite, along);
  const double large = std::max(opposite, along);
  // Beyond 22.5 degrees measure from 45 degrees, beyond 45 from the other leg, beyond 90 from 180.
  const double within_octant =
      small > large * (std::numbers::sqrt2 - 1.0)
          ? std::numbers::pi / 4.0 + detail::small_arc_tangent((small - large) / (large + small))
          : detail::small_arc_tangent(small / large);
  const double within_quadrant = std::abs((opposite > along ? std::numbers::pi / 2.0 : 0.0) - within_octant);
  return std::abs((adjacent < 0.0 ? std::numbers::pi : 0.0) - within_quadrant);
}

}  // namespace geometry
