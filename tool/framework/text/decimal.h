#pragma once
// Numbers as text, the same in every locale.

#include <string>
#include <string_view>

namespace framework {

/// The number at the start of a text, as the C library's text-to-double conversion reads it but limited to
/// decimal input: white space, a sign, digits with at most one point, an exponent. "0x10" reads 0, "inf" and
/// "nan" read 0. Text that does not start with a number reads 0; what follows the number is ignored. A value
/// beyond the range of a double reads as infinity, one below it as 0.
double decimal_value(std::string_view text);

/// The whole number at the start of a text: white space, a sign, digits; 0 without digits. A value beyond 32
/// bits gives the nearer limit.
int whole_number(std::string_view text);

/// The value in fixed notation, the very text of printf("%.*f", decimals, value): rounded from the exact
/// binary value, ties to even. Negative zero keeps its sign; not-a-number and infinity read "nan" and "inf".
/// A negative number of decimals means 6, as for printf; more than 340 are cut to 340.
std::string fixed(double value, int decimals);

}  // namespace framework
