#pragma once
// Positions along the dental arch: a curve of twelve control points in image pixels.

#include "tool/geometry/CPointD.h"

namespace model {

inline constexpr int arch_points = 12;

/// Arc length, millimetres in steps of 0.1 below `limit`, at which the arch comes nearest to its control
/// point 1. Only distances below `limit` count; 0 when there is none.
double position_of_second_point(const tagDPOINT *arch, double limit, double scale);

}  // namespace model
