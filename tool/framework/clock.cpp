#include "tool/framework/clock.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <ctime>

namespace framework {
namespace {

std::atomic<Clock *> installed_clock{nullptr};

int last_two_digits(int number) {
  return ((number % 100) + 100) % 100;
}

}  // namespace

CalendarDay SystemClock::today() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday};
}

Clock &current_clock() {
  if (Clock *installed = installed_clock.load(std::memory_order_acquire)) return *installed;
  static SystemClock system_clock;
  return system_clock;
}

Clock *install_clock(Clock *replacement) {
  return installed_clock.exchange(replacement);
}

std::string current_date_text() {
  const CalendarDay today = current_clock().today();
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%02d/%02d/%02d", last_two_digits(today.month),
                last_two_digits(today.day), last_two_digits(today.year));
  return text.data();
}

}  // namespace framework
