#pragma once
// Two numbers in one register, for the measurements that are made by the thousand. Operators work on both at
// once, with the very results of the plain operators.

#include "tool/geometry/CPointD.h"

namespace geometry {

using Pair [[gnu::vector_size(16)]] = double;

constexpr Pair both(double value) {
  return Pair{value, value};
}

/// The coordinates of a point.
constexpr Pair pair_of(const CPointD &p) {
  return Pair{p.x, p.y};
}
constexpr Pair pair_of(const POINT &p) {
  return Pair{static_cast<double>(p.x), static_cast<double>(p.y)};
}

}  // namespace geometry
