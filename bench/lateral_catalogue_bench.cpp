// The 148 items of the lateral catalogue, asked for one by one as an application does, against the same
// numbers computed straight through by hand-written geometry: no dispatch, one item's result reused by the
// next, the published rules for angles (parallel lines included) and feet, the sign of an angle by the cross
// product.

#include <benchmark/benchmark.h>

#include <cmath>

#include "tests/support/lateral_film.h"
#include "tests/support/straight_line_catalogue.h"
#include "tool/analysis/lateral_catalogue.h"

namespace {

struct PublishedGeometry {
  static double turn(support::Spot p, support::Spot q, support::Spot r, support::Spot t) {
    const double ux = q.x - p.x, uy = q.y - p.y, vx = t.x - r.x, vy = t.y - r.y;
    if (ux == vx && uy == vy) return 0;
    if (ux == -vx && uy == -vy) return 180;
    if (uy != 0 && vy != 0 && vx / vy == ux / uy) return 0;
    if (ux != 0 && vx != 0 && uy / ux == vy / vx) return 0;
    const double cosine = (ux * vx + uy * vy) / (std::sqrt(ux * ux + uy * uy) * std::sqrt(vx * vx + vy * vy));
    if (cosine >= 1) return 0;
    if (cosine <= -1) return 180;
    const double angle = std::acos(cosine);
    return (ux * vy - uy * vx <= 0 ? angle : -angle) / 3.141592654 * 180;
  }
  static support::Spot foot(support::Spot p, support::Spot a, support::Spot b) {
    if (a.x == b.x) return {a.x, p.y};
    if (a.y == b.y) return {p.x, a.y};
    const double m = (b.y - a.y) / (b.x - a.x), k = a.y - a.x * m, w = p.x / m + p.y - k;
    return {w * m / (1 + m * m), k + m * m * w / (1 + m * m)};
  }
  static support::Spot crossing(support::Spot a, support::Spot b, support::Spot c, support::Spot d) {
    const double ux = b.x - a.x, vx = d.x - c.x;
    if (ux == 0 && vx == 0) return {0, 0};
    const double mu = (b.y - a.y) / ux, mv = (d.y - c.y) / vx;
    if (ux == 0) return {a.x, c.y - c.x * mv + a.x * mv};
    const double ku = a.y - a.x * mu;
    if (vx == 0) return {c.x, ku + c.x * mu};
    if (mu == mv) return {0, 0};
    const double x = (c.y - c.x * mv - ku) / (mu - mv);
    return {x, ku + x * mu};
  }
};

void catalogue_by_item(benchmark::State &state) {
  tagPOINTLAT film = support::lateral_film();
  for (auto _ : state) {
    benchmark::DoNotOptimize(film);
    for (int number = 0; number < 9; ++number) {
      for (int item = 0; item < analysis::lateral_catalogue_sizes[number]; ++item) {
        benchmark::DoNotOptimize(analysis::lateral_catalogue(film, number, item, true));
      }
    }
  }
}
BENCHMARK(catalogue_by_item)->Name("LateralCatalogue/ours");

void straight_line(benchmark::State &state) {
  tagPOINTLAT film = support::lateral_film();
  for (auto _ : state) {
    benchmark::DoNotOptimize(film);
    benchmark::DoNotOptimize(support::straight_line_catalogue<PublishedGeometry>(film, true));
  }
}
BENCHMARK(straight_line)->Name("LateralCatalogue/baseline");

}  // namespace
