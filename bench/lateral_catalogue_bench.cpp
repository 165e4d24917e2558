// The 148 items of the lateral catalogue, asked for one by one as an application does, against the same
// numbers computed straight through by hand-written geometry.

#include <benchmark/benchmark.h>

#include "tests/support/lateral_film.h"
#include "tests/support/straight_line_catalogue.h"
#include "tool/analysis/lateral_catalogue.h"

namespace {

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
    benchmark::DoNotOptimize(support::straight_line_catalogue(film, true));
  }
}
BENCHMARK(straight_line)->Name("LateralCatalogue/baseline");

}  // namespace
