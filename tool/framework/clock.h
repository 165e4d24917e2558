#pragma once
// The seam to the clock: the library asks for today's date here and nowhere else, so that "today" is an
// ordinary test row.

#include <string>

namespace framework {

/// A day of the Gregorian calendar; month and day count from 1.
struct CalendarDay {
  int year;
  int month;
  int day;
};

class Clock {
 public:
  virtual ~Clock() = default;
  /// In the user's time zone.
  virtual CalendarDay today() = 0;
};

/// The computer's own clock.
class SystemClock : public Clock {
 public:
  CalendarDay today() override;
};

/// The clock in use.
Clock &current_clock();

/// Installs a clock, which must outlive its use; null brings the computer's own back. Gives the one before
/// (null: the computer's own).
Clock *install_clock(Clock *replacement);

/// Installs a clock for the lifetime of the scope.
class ClockScope {
 public:
  explicit ClockScope(Clock &used) : before_(install_clock(&used)) {}
  ~ClockScope() { install_clock(before_); }
  ClockScope(const ClockScope &) = delete;
  ClockScope &operator=(const ClockScope &) = delete;

 private:
  Clock *before_;
};

/// Today as "MM/DD/YY", the form in which the C library of the host framework tells it.
std::string current_date_text();

}  // namespace framework
