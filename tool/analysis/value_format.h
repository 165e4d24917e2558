#pragma once
// How measured values are brought to a precision and written.

#include <string>

namespace analysis {

/// The nearest half: of the absolute value, a fraction below 0.25 is dropped, from 0.25 to below 0.75 becomes
/// .5, from 0.75 goes up to the next whole number. The sign stays.
double nearest_half(double value);

/// The value brought to the precision that the digit of angle3 and angle4 asks for: 0 whole degrees, 1 one
/// decimal, 9 the nearest half, any other two decimals. The value is written and read back.
double to_precision(double value, int digit);

/// How a value is written: 2 two decimals, 9 the nearest half with one decimal, any other one decimal.
std::string format_value(double value, int precision);

}  // namespace analysis
