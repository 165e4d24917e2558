// One full redraw of a tracing onto an X-ray picture's pixels through a device context, against the same
// finished primitives painted by Qt directly; and the same redraw on a device that only writes down, against
// painting.

#include <benchmark/benchmark.h>

#include <cstdlib>

#include "backends/qt/image_device.h"
#include "bench/qt/direct_painter.h"
#include "tests/support/film_drawing.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

constexpr int film_width = 1935, film_height = 2400;

void redraw(support::FilmDrawing &film, CDC &dc) {
  film.reference_lines(dc);
  film.profilogram(dc, RGB(0, 0, 200), film.real(analysis::lateral::S), film.real(analysis::lateral::S));
  film.hand_drawn_traces(dc);
  film.teeth(dc, RGB(0, 90, 200), 0);
  film.landmarks(dc, 5);
  film.landmark_names(dc, 28);
  CTools::TextMake(&dc, 60, 60, "Lateral head film, life size 1.1", 48, 700, 9, 0, RGB(0, 0, 0), TRANSPARENT,
                   0, 0, 0);
}

void redraw_through_context(benchmark::State &state) {
  support::FilmDrawing film("adult.json");
  framework::Picture picture(film_width, film_height);
  qt_backend::ImageDevice device(picture.span());
  CDC dc(device);
  for (auto _ : state) redraw(film, dc);
}
BENCHMARK(redraw_through_context)->Name("Redraw/ours")->Unit(benchmark::kMicrosecond);

void redraw_by_qt(benchmark::State &state) {
  support::FilmDrawing film("adult.json");
  framework::Picture picture(film_width, film_height);
  qt_backend::ImageDevice device(picture.span());
  framework::RecordingDevice recorder(device);
  CDC dc(recorder);
  redraw(film, dc);
  bench::DirectPainter painter(recorder, picture.span());
  for (auto _ : state) painter.paint();
  state.counters["primitives"] = static_cast<double>(recorder.size());
}
BENCHMARK(redraw_by_qt)->Name("Redraw/baseline")->Unit(benchmark::kMicrosecond);

void record(benchmark::State &state) {
  support::FilmDrawing film("adult.json");
  framework::RecordingDevice recorder;
  CDC dc(recorder);
  for (auto _ : state) {
    recorder.clear();
    redraw(film, dc);
  }
}
BENCHMARK(record)->Name("Recording/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(redraw_through_context)->Name("Recording/baseline")->Unit(benchmark::kMicrosecond);

}  // namespace
