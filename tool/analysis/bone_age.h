#pragma once
// Bone age from the cervical vertebrae: a linear regression on three ratios of vertebral dimensions
// (Mito, Sato, Mitani 2002 for girls; the defaults of the coefficient file).

#include <array>

#include "tool/analysis/records.h"

namespace analysis {

/// c0 to c3 for a sex from section "CVB_AGE" of "cvba.dat" at a code page 932 path, key by key, with
/// defaults.
std::array<double, 4> bone_age_coefficients(const char *path, int sex);

/// Bone age in years; infinite or not a number for coincident points.
double bone_age(const tagCVBA &record, const std::array<double, 4> &coefficients);

}  // namespace analysis
