#pragma once
// Standard body weight for height, by age and sex.

namespace geometry {

/// Kilograms. `age` in years (the fraction does not count), `height` in centimetres; `sex` 1 male, any other
/// value female. 0 before the first birthday; from 17 on the last row of the table serves every age.
double standard_weight(double age, double height, int sex);

}  // namespace geometry
