#include "tool/calendar/padding.h"

#include <array>
#include <cstdio>

namespace calendar {

std::string zero_padded(int value, int width) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%0*d", width, value);
  return text.data();
}

std::string blank_padded(int value, int width) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%*d", width, value);
  return text.data();
}

}  // namespace calendar
