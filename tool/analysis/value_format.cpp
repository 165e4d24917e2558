#include "tool/analysis/value_format.h"

#include <cmath>

#include "tool/framework/text/decimal.h"

namespace analysis {

double nearest_half(double value) {
  const double magnitude = std::fabs(value);
  const double whole = std::floor(magnitude);
  const double fraction = magnitude - whole;
  if (fraction < 0.25) return std::copysign(whole, value);
  if (fraction < 0.75) return std::copysign(whole + 0.5, value);
  return std::copysign(whole + 1.0, value);
}

double to_precision(double value, int digit) {
  const auto read_back = [](double v, int decimals) {
    return framework::decimal_value(framework::fixed(v, decimals));
  };
  if (!std::isfinite(value)) return value;
  switch (digit) {
    case 0:
      return read_back(value, 0);
    case 1:
      return read_back(value, 1);
    case 9:
      return read_back(nearest_half(value), 1);
    default:
      return read_back(value, 2);
  }
}

std::string format_value(double value, int precision) {
  if (std::isnan(value)) return "nan";  // its sign means nothing
  switch (precision) {
    case 2:
      return framework::fixed(value, 2);
    case 9:
      return framework::fixed(std::isfinite(value) ? nearest_half(value) : value, 1);
    default:
      return framework::fixed(value, 1);
  }
}

}  // namespace analysis
