#pragma once
// Where along a line a dash pattern stands.

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>
#include <vector>

#include "tool/framework/gdi/drawing_device.h"

namespace raster {

class DashWalker {
 public:
  /// Entries on, off, on, off ...; an odd count is gone through twice. A pattern without length: always on.
  explicit DashWalker(std::span<const int> pattern) {
    for (int round = 0; round < (pattern.size() % 2 == 0 ? 1 : 2); ++round) {
      for (int length : pattern) lengths_.push_back(std::max(length, 0));
    }
    total_ = std::accumulate(lengths_.begin(), lengths_.end(), 0.0);
    if (total_ > 0) settle();
  }
  explicit DashWalker(const framework::DevicePen &pen)
      : DashWalker(std::span(pen.dashes)
                       .first(static_cast<std::size_t>(
                           std::clamp(pen.dash_count, 0, static_cast<int>(pen.dashes.size()))))) {}

  bool dashed() const { return total_ > 0; }
  bool on() const { return index_ % 2 == 0; }
  /// What is left of the present entry.
  double left() const { return lengths_[index_] - position_; }

  void advance(double length) {
    if (!dashed()) return;
    position_ += length < total_ ? length : std::fmod(length, total_);
    settle();
  }

 private:
  void settle() {
    while (position_ >= lengths_[index_]) {
      position_ -= lengths_[index_];
      index_ = (index_ + 1) % lengths_.size();
    }
  }

  std::vector<double> lengths_;
  double total_ = 0;
  double position_ = 0;
  std::size_t index_ = 0;
};

}  // namespace raster
