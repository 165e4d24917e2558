#pragma once
// From doubles to whole pixels, and arithmetic on whole pixels that stays defined at the 32-bit limits.

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "tool/framework/text/numbers.h"
#include "tool/geometry/CPointD.h"

namespace geometry {

/// Each coordinate toward zero (2.9 becomes 2, -2.9 becomes -2); not-a-number becomes 0.
constexpr CPoint truncate(CPointD p) {
  return {framework::to_int(p.x), framework::to_int(p.y)};
}

/// a - b in 32 bits; a difference that needs more wraps around.
constexpr std::int32_t integer_difference(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

/// a + b, held at the 32-bit limits.
constexpr std::int32_t integer_sum(std::int32_t a, std::int32_t b) {
  const std::int64_t sum = std::int64_t{a} + b;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, INT32_MIN, INT32_MAX));
}

/// The exact quotient toward zero, before any rounding to double: 3 / 0.1 is 29, because the double nearest
/// to 0.1 lies a little above it. A zero divisor gives the 32-bit limits, 0 / 0 gives 0.
inline std::int32_t truncated_quotient(double dividend, double divisor) {
  const double size = std::abs(dividend);
  const double step = std::abs(divisor);
  double whole = std::floor(size / step);
  // The rounded quotient can only err upward across a whole number; fma shows the exact sign of the
  // remainder.
  if (std::fma(whole, step, -size) > 0.0) whole -= 1.0;
  return framework::to_int(std::signbit(dividend) == std::signbit(divisor) ? whole : -whole);
}

}  // namespace geometry
