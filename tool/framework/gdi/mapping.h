#pragma once
// From logical units to device pixels and back: the map mode with its origins and extents.

#include <cstdint>
#include <span>

#include "tool/framework/gdi/constants.h"
#include "tool/framework/types.h"

namespace framework {

struct DeviceCapabilities;

/// Device coordinates are kept within +-2^26 pixels, so that back ends can add and multiply them safely.
inline constexpr std::int32_t max_device_coordinate = 1 << 26;

/// Rounds half away from zero and stays within the limit. Not-a-number gives 0.
std::int32_t round_within(double value, std::int32_t limit);

/// A rectangle by its corner and size, the far corner within 32 bits.
RECT sized_rect(int x, int y, int width, int height);

class Mapping {
 public:
  int mode() const { return mode_; }
  /// False for an unknown mode. Entering MM_ISOTROPIC starts with the units of MM_LOMETRIC;
  /// MM_ANISOTROPIC keeps the units of the mode before.
  bool set_mode(int mode, const DeviceCapabilities &device);
  /// Only the isotropic and anisotropic modes take extents; zero extents are refused.
  bool set_window_extent(SIZE extent, const DeviceCapabilities &device);
  bool set_viewport_extent(SIZE extent, const DeviceCapabilities &device);

  POINT to_device(POINT logical) const;
  /// Many points; `device` has the length of `logical`.
  void to_device(std::span<const POINT> logical, std::span<POINT> device) const;
  POINT to_logical(POINT device) const;
  /// Both corners, sorted.
  RECT box_to_device(const RECT &logical) const;
  /// Lengths have no sign.
  int width_to_device(double logical) const;
  int height_to_device(double logical) const;
  int width_to_logical(int device) const;
  int height_to_logical(int device) const;
  bool is_unscaled() const { return scale_x_ == 1 && scale_y_ == 1; }

  POINT window_origin{0, 0};
  POINT viewport_origin{0, 0};
  SIZE window_extent() const { return window_extent_; }
  SIZE viewport_extent() const { return viewport_extent_; }

 private:
  bool takes_extents() const { return mode_ == MM_ISOTROPIC || mode_ == MM_ANISOTROPIC; }
  void use_metric_extents(double units_per_mm, const DeviceCapabilities &device);
  void scale_by_extents(const DeviceCapabilities &device);

  int mode_ = MM_TEXT;
  SIZE window_extent_{1, 1};
  SIZE viewport_extent_{1, 1};
  double scale_x_ = 1;  // pixels per logical unit; y is negative where the axis points up
  double scale_y_ = 1;
};

}  // namespace framework
