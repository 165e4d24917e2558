#include "tool/geometry/growth_weight.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "tool/framework/text/numbers.h"

namespace geometry {

namespace {

/// Weight = slope x height + intercept.
struct WeightLine {
  double slope;
  double intercept;
};

struct WeightRow {
  WeightLine male;
  WeightLine female;
};

constexpr int first_row_age = 6;
constexpr std::array<WeightRow, 12> weight_rows{{
    {{0.461, -32.382}, {0.458, -32.079}},  // 6
    {{0.513, -38.878}, {0.508, -38.367}},
    {{0.592, -48.804}, {0.561, -45.006}},
    {{0.687, -61.390}, {0.652, -56.992}},
    {{0.752, -70.461}, {0.730, -68.091}},  // 10
    {{0.782, -75.106}, {0.803, -78.846}},
    {{0.783, -75.642}, {0.796, -76.934}},
    {{0.815, -81.348}, {0.655, -54.234}},
    {{0.832, -83.695}, {0.594, -43.264}},
    {{0.766, -70.989}, {0.560, -37.002}},  // 15
    {{0.656, -51.822}, {0.578, -39.057}},
    {{0.672, -53.642}, {0.598, -42.339}},  // 17 and older
}};

}  // namespace

double standard_weight(double age, double height, int sex) {
  const int years = framework::to_int(age);
  const bool male = sex == 1;
  if (years < 1) return 0.0;
  if (years < first_row_age) {
    return male ? 0.00206 * height * height - 0.1166 * height + 6.5273
                : 0.00249 * height * height - 0.1858 * height + 9.036;
  }
  const auto row = std::min(static_cast<std::size_t>(years - first_row_age), weight_rows.size() - 1);
  const WeightLine &line = male ? weight_rows[row].male : weight_rows[row].female;
  return line.slope * height + line.intercept;
}

}  // namespace geometry
