#include "tool/framework/gdi/mapping.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tool/framework/gdi/drawing_device.h"

namespace framework {
namespace {

constexpr double mm_per_inch = 25.4;

/// Logical units in a millimetre of the fixed metric modes; 0 for the others.
double units_per_mm(int mode) {
  switch (mode) {
    case MM_LOMETRIC:
      return 10;
    case MM_HIMETRIC:
      return 100;
    case MM_LOENGLISH:
      return 100 / mm_per_inch;
    case MM_HIENGLISH:
      return 1000 / mm_per_inch;
    case MM_TWIPS:
      return 1440 / mm_per_inch;
    default:
      return 0;
  }
}

std::int32_t moved_coordinate(LONG logical, LONG window, LONG viewport) {
  const std::int64_t moved = std::int64_t{logical} - window + viewport;
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(moved, -max_device_coordinate, max_device_coordinate));
}

std::int32_t scaled_coordinate(LONG logical, LONG window, LONG viewport, double scale) {
  // Rounded before the viewport origin is added: moving the origin moves the picture, never its rounding.
  const double pixels = std::round((static_cast<double>(logical) - window) * scale);
  return round_within(pixels + viewport, max_device_coordinate);
}

std::int32_t logical_coordinate(LONG device, LONG window, LONG viewport, double scale) {
  const double units = (static_cast<double>(device) - viewport) / scale;
  return round_within(std::round(units) + window, std::numeric_limits<std::int32_t>::max());
}

}  // namespace

std::int32_t round_within(double value, std::int32_t limit) {
  if (std::isnan(value)) return 0;
  return static_cast<std::int32_t>(std::round(std::clamp<double>(value, -limit, limit)));
}

RECT sized_rect(int x, int y, int width, int height) {
  using Limits = std::numeric_limits<std::int32_t>;
  const auto sum = [](int a, int b) {
    return static_cast<LONG>(std::clamp<std::int64_t>(std::int64_t{a} + b, Limits::min(), Limits::max()));
  };
  return {x, y, sum(x, width), sum(y, height)};
}

bool Mapping::set_mode(int mode, const DeviceCapabilities &device) {
  if (mode < MM_TEXT || mode > MM_ANISOTROPIC) return false;
  if (mode == mode_) return true;
  if (mode == MM_ANISOTROPIC && units_per_mm(mode_) > 0) use_metric_extents(units_per_mm(mode_), device);
  if (mode == MM_ISOTROPIC) use_metric_extents(units_per_mm(MM_LOMETRIC), device);
  mode_ = mode;
  if (takes_extents()) {
    scale_by_extents(device);
  } else if (mode == MM_TEXT) {
    window_extent_ = viewport_extent_ = {1, 1};
    scale_x_ = scale_y_ = 1;
  } else {
    scale_x_ = device.pixels_per_mm_x / units_per_mm(mode);
    scale_y_ = -device.pixels_per_mm_y / units_per_mm(mode);
  }
  return true;
}

bool Mapping::set_window_extent(SIZE extent, const DeviceCapabilities &device) {
  if (!takes_extents() || extent.cx == 0 || extent.cy == 0) return false;
  window_extent_ = extent;
  scale_by_extents(device);
  return true;
}

bool Mapping::set_viewport_extent(SIZE extent, const DeviceCapabilities &device) {
  if (!takes_extents() || extent.cx == 0 || extent.cy == 0) return false;
  viewport_extent_ = extent;
  scale_by_extents(device);
  return true;
}

void Mapping::use_metric_extents(double units, const DeviceCapabilities &device) {
  // One metre, so that whole numbers are fine enough.
  const LONG metre = round_within(1000 * units, max_device_coordinate);
  window_extent_ = {metre, metre};
  viewport_extent_ = {round_within(1000 * device.pixels_per_mm_x, max_device_coordinate),
                      -round_within(1000 * device.pixels_per_mm_y, max_device_coordinate)};
}

void Mapping::scale_by_extents(const DeviceCapabilities &device) {
  scale_x_ = static_cast<double>(viewport_extent_.cx) / window_extent_.cx;
  scale_y_ = static_cast<double>(viewport_extent_.cy) / window_extent_.cy;
  if (mode_ != MM_ISOTROPIC) return;
  // A unit is as long in x as in y: the smaller of the two lengths, in millimetres.
  const double length =
      std::min(std::abs(scale_x_) / device.pixels_per_mm_x, std::abs(scale_y_) / device.pixels_per_mm_y);
  scale_x_ = std::copysign(length * device.pixels_per_mm_x, scale_x_);
  scale_y_ = std::copysign(length * device.pixels_per_mm_y, scale_y_);
}

POINT Mapping::to_device(POINT logical) const {
  POINT device;
  to_device({&logical, 1}, {&device, 1});
  return device;
}

void Mapping::to_device(std::span<const POINT> logical, std::span<POINT> device) const {
  const POINT from = window_origin, to = viewport_origin;
  if (is_unscaled())
    std::ranges::transform(logical, device.begin(), [&](POINT p) {
      return POINT{moved_coordinate(p.x, from.x, to.x), moved_coordinate(p.y, from.y, to.y)};
    });
  else
    std::ranges::transform(logical, device.begin(), [&](POINT p) {
      return POINT{scaled_coordinate(p.x, from.x, to.x, scale_x_),
                   scaled_coordinate(p.y, from.y, to.y, scale_y_)};
    });
}

POINT Mapping::to_logical(POINT device) const {
  return {logical_coordinate(device.x, window_origin.x, viewport_origin.x, scale_x_),
          logical_coordinate(device.y, window_origin.y, viewport_origin.y, scale_y_)};
}

RECT Mapping::box_to_device(const RECT &logical) const {
  const POINT a = to_device({logical.left, logical.top});
  const POINT b = to_device({logical.right, logical.bottom});
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

int Mapping::width_to_device(double logical) const {
  return round_within(std::abs(logical * scale_x_), max_device_coordinate);
}

int Mapping::height_to_device(double logical) const {
  return round_within(std::abs(logical * scale_y_), max_device_coordinate);
}

int Mapping::width_to_logical(int device) const {
  return round_within(std::abs(device / scale_x_), std::numeric_limits<std::int32_t>::max());
}

int Mapping::height_to_logical(int device) const {
  return round_within(std::abs(device / scale_y_), std::numeric_limits<std::int32_t>::max());
}

}  // namespace framework
