#pragma once
// The one home of truncation from double to 32-bit integer.

#include <cstdint>
#include <limits>

namespace framework {

/// Truncates toward zero. Not-a-number gives 0; a value outside the 32-bit range gives the nearer limit.
constexpr std::int32_t to_int(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (value != value) return 0;
  if (value >= Limits::max()) return Limits::max();
  if (value <= Limits::min()) return Limits::min();
  return static_cast<std::int32_t>(value);
}

}  // namespace framework
