#include "apps/drawing/scene.h"

#include <algorithm>
#include <cmath>

#include "apps/drawing/cast_scene.h"
#include "apps/drawing/frontal_scene.h"
#include "apps/drawing/landmark_marks.h"
#include "apps/drawing/lateral_scene.h"
#include "apps/drawing/style_texts.h"
#include "tool/tracing/trace_store.h"

namespace app {
namespace {

constexpr double margin_mm = 8;

std::vector<CPoint> placed_points(const TracingFile &tracing) {
  std::vector<CPoint> points;
  const analysis::Tracing view = tracing.tracing();
  for (const POINT &p : view.landmarks()) points.emplace_back(p);
  if (const tagPOINTMO *cast = tracing.model()) {
    const std::vector<CPoint> teeth = cast_points(*cast);
    points.insert(points.end(), teeth.begin(), teeth.end());
  }
  for (std::size_t i = 0; i < tracing.user_points.size(); ++i)
    points.emplace_back(view.user_point(i).position);
  for (int i = 0; i < tracing::trace_entries && !tracing.traces.empty(); ++i) {
    tracing::TraceRuns runs(tracing::trace_entry(tracing.traces.data(), i));
    while (const auto run = runs.next()) points.insert(points.end(), run->points.begin(), run->points.end());
  }
  return points;
}

/// The points of both tracings, on the film of the first.
std::vector<CPoint> shown_points(const TracingFile &tracing, const SceneOptions &options) {
  std::vector<CPoint> points = placed_points(tracing);
  if (!options.second) return points;
  const Placement place = registered(*tracing.lateral(), *options.second->lateral(), options.registration);
  for (const CPoint &p : placed_points(*options.second))
    if (is_placed(p)) points.push_back(place.on_first_film(p));
  return points;
}

void draw_film(const View &view, const framework::Picture &film) {
  const CPoint corner = view.at({0, 0});
  const CPoint end = view.at({film.width(), film.height()});
  CDC &target = view.sheet().context();
  CBitmap bitmap;
  CDC memory;
  if (!memory.CreateCompatibleDC(&target) ||
      !bitmap.CreateBitmap(film.width(), film.height(), 1, 32, film.view().pixels))
    return;
  CBitmap *before = memory.SelectObject(&bitmap);
  const int mode = target.SetStretchBltMode(HALFTONE);
  target.StretchBlt(corner.x, corner.y, end.x - corner.x, end.y - corner.y, &memory, 0, 0, film.width(),
                    film.height(), SRCCOPY);
  target.SetStretchBltMode(mode);
  memory.SelectObject(before);
}

void draw_lateral(const View &view, const TracingFile &tracing, const SceneOptions &options, Drawn &drawn) {
  draw_lateral_outlines(view, tracing, options, drawn);
  draw_lateral_lines(view, tracing, options, drawn);
  draw_lateral_profilogram(view, tracing, options, drawn);
  draw_lateral_teeth(view, tracing, options);
  draw_superimposed(view, tracing, options, drawn);
}

}  // namespace

CPoint lateral_landmark(const tagPOINTLAT &record, int k) {
  return record.pt[analysis::first_landmark_entry + k];
}

bool is_placed(CPoint point) {
  return point.x != 0 || point.y != 0;
}

void Drawn::add_line(SheetPoint from, SheetPoint to) {
  constexpr double step = 1.5, half = 0.4;  // mm: a chain of small boxes
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  const int count = static_cast<int>(std::min(length / step, 500.0)) + 1;
  for (int i = 0; i <= count; ++i) {
    const double x = from.x + (to.x - from.x) * i / count, y = from.y + (to.y - from.y) * i / count;
    occupied.push_back({x - half, y - half, x + half, y + half});
  }
}

ImageBox scene_box(const TracingFile &tracing, const SceneOptions &options) {
  if (options.film)
    return {0, 0, static_cast<double>(options.film->width()), static_cast<double>(options.film->height())};
  auto box = bounds_of(shown_points(tracing, options));
  if (!box) throw InputError("no point is placed", "", "a tracing with landmarks");
  const double margin = margin_mm / tracing.scale();
  return {box->left - margin, box->top - margin, box->right + margin, box->bottom + margin};
}

Drawn draw_scene(const View &view, const TracingFile &tracing, const SceneOptions &options) {
  Drawn drawn;
  if (options.film) draw_film(view, *options.film);
  switch (tracing.kind()) {
    case analysis::RecordKind::lateral:
      draw_lateral(view, tracing, options, drawn);
      break;
    case analysis::RecordKind::frontal:
      draw_frontal(view, *tracing.frontal(), options, drawn);
      break;
    case analysis::RecordKind::model:
      draw_cast(view, *tracing.model(), options, drawn);
      break;
  }
  draw_landmarks(view, tracing, options, drawn);
  draw_style_texts(view, tracing, options);
  return drawn;
}

}  // namespace app
