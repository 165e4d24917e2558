#pragma once
// Reproducible random points for laws; the seed goes into every failure message through SCOPED_TRACE.

#include <random>

#include "tool/geometry/CPointD.h"

namespace support {

class RandomPoints {
 public:
  explicit RandomPoints(unsigned seed) : engine_(seed) {}

  CPoint whole(int limit = 3000) {
    std::uniform_int_distribution<int> value(-limit, limit);
    const int x = value(engine_);
    return {x, value(engine_)};
  }
  CPointD real(double limit = 3000.0) {
    const double x = number(-limit, limit);
    return {x, number(-limit, limit)};
  }
  double number(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(engine_);
  }

 private:
  std::mt19937 engine_;
};

}  // namespace support
