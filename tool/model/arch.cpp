#include "tool/model/arch.h"

#include "tool/geometry/distances.h"
#include "tool/geometry/splines.h"

namespace model {

double position_of_second_point(const tagDPOINT *arch, double limit, double scale) {
  constexpr double step = 0.1;
  constexpr int most_steps = 1'000'000;
  if (!(limit > 0.0)) return 0.0;
  const geometry::ControlPoints points(arch, arch_points);
  const geometry::ArcPositions arc(points, scale);
  double nearest = limit;
  double nearest_position = 0.0;
  double position = 0.0;
  // The position is a published sum of steps. NOLINTNEXTLINE(cert-flp30-c)
  for (int steps = 0; position < limit && steps < most_steps; ++steps, position += step) {
    const auto point = arc.at(position);
    if (!point) break;  // behind the end of the arch nothing comes nearer
    const double distance = geometry::length(*point, points[1], scale);
    if (distance < nearest) {
      nearest = distance;
      nearest_position = position;
    }
  }
  return nearest_position;
}

}  // namespace model
