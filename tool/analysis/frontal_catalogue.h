#pragma once
// The fixed catalogue of 18 frontal measurements.

#include "tool/analysis/records.h"

namespace analysis {

inline constexpr int frontal_catalogue_size = 18;

/// Item 0 to 17, millimetres or degrees (items 7 and 12); 0 for any other number.
double frontal_catalogue(const tagPOINTPA &record, int item);

/// What an item measures, in English; null for an unknown item.
const char *frontal_catalogue_name(int item);
bool frontal_catalogue_is_angle(int item);

}  // namespace analysis
