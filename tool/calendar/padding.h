#pragma once
// Whole numbers filled up on the left to a width.

#include <string>

namespace calendar {

/// With zeros after the sign: the text of printf("%0*d").
std::string zero_padded(int value, int width);
/// With blanks: the text of printf("%*d").
std::string blank_padded(int value, int width);

}  // namespace calendar
