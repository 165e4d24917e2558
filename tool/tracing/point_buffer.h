#pragma once
// A list of points that needs no allocation while it is short, as the curves of a film are.

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "tool/framework/types.h"

namespace tracing {

class PointBuffer {
 public:
  PointBuffer() = default;
  PointBuffer(const PointBuffer &) = delete;
  PointBuffer &operator=(const PointBuffer &) = delete;

  void push_back(POINT point) {
    if (count_ < inline_.size()) {
      inline_[count_++] = point;
      return;
    }
    if (long_.empty()) long_.assign(inline_.begin(), inline_.end());
    long_.push_back(point);
  }
  std::span<const POINT> points() const {
    return long_.empty() ? std::span(inline_).first(count_) : std::span(long_);
  }

 private:
  static constexpr std::size_t most_inline = 512;
  std::array<POINT, most_inline> inline_;  // only the first count_ are set
  std::size_t count_ = 0;
  std::vector<POINT> long_;  // takes over when the inline points run out
};

}  // namespace tracing
