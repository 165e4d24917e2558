#pragma once
// Coordinates that can be counted with: differences and their products stay within 64 bits, differences
// within 32.

#include <algorithm>

#include "tool/framework/gdi/mapping.h"
#include "tool/framework/types.h"

namespace raster {

constexpr LONG within_reach(LONG coordinate) {
  constexpr LONG limit = framework::max_device_coordinate;
  return std::clamp(coordinate, -limit, limit);
}
constexpr POINT within_reach(POINT point) {
  return {within_reach(point.x), within_reach(point.y)};
}
constexpr RECT within_reach(const RECT &box) {
  return {within_reach(box.left), within_reach(box.top), within_reach(box.right), within_reach(box.bottom)};
}

}  // namespace raster
