#pragma once
// A clock that stands still while it is in scope.

#include "tool/framework/clock.h"

namespace support {

class FixedClock : public framework::Clock {
 public:
  explicit FixedClock(framework::CalendarDay day) : day_(day) {}
  framework::CalendarDay today() override { return day_; }

 private:
  framework::CalendarDay day_;
  framework::ClockScope scope_{*this};
};

}  // namespace support
