#include "apps/drawing/landmark_marks.h"

#include <algorithm>

#include "apps/drawing/label_places.h"
#include "apps/drawing/lateral_scene.h"
#include "tool/analysis/landmarks.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

constexpr double dot_radius_mm = 0.55;
constexpr double label_gap_mm = 0.9;
constexpr TextLook label_look{2.6, 0, false, TextSide::left};

struct Mark {
  std::string name;  ///< UTF-8
  CPoint film;
};

/// A display-setting file names the landmarks that it wants; none means all.
bool is_wanted(std::string_view name, const SceneOptions &options) {
  if (!options.style || options.style->points.empty()) return true;
  const auto &wanted = options.style->points;
  return std::find(wanted.begin(), wanted.end(), name) != wanted.end();
}

std::vector<Mark> marks_of(const TracingFile &tracing, const SceneOptions &options) {
  std::vector<Mark> marks;
  const auto names = analysis::vocabulary(tracing.kind());
  const analysis::Tracing points = tracing.tracing();
  for (std::size_t k = 0; k < names.size() && k < points.landmarks().size(); ++k)
    if (is_placed(points.landmarks()[k]) && is_wanted(names[k], options))
      marks.push_back({std::string(names[k]), points.landmarks()[k]});
  for (std::size_t i = 0; i < tracing.user_points.size(); ++i) {
    const analysis::UserPoint user = points.user_point(i);
    if (is_placed(user.position) && is_wanted(user.name, options))
      marks.push_back({framework::utf8_for_display(user.name), user.position});
  }
  return marks;
}

void draw_names(const View &view, std::span<const Mark> marks, COLORREF color, const Drawn &drawn) {
  TextLook look = label_look;
  look.color = color;
  std::vector<LabelRequest> requests;
  for (const Mark &mark : marks)
    requests.push_back({view.on_sheet(mark.film), view.sheet().text_width(mark.name, look), look.height});
  const std::vector<SheetPoint> places = place_labels(requests, label_gap_mm, drawn.occupied);
  for (std::size_t i = 0; i < marks.size(); ++i) view.sheet().text(places[i], marks[i].name, look);
}

}  // namespace

void draw_landmarks(const View &view, const TracingFile &tracing, const SceneOptions &options,
                    const Drawn &drawn) {
  const std::vector<Mark> marks = marks_of(tracing, options);
  const Palette &palette = options.palette();
  const auto radius = static_cast<short>(view.sheet().pixels(dot_radius_mm));
  for (const Mark &mark : marks)
    CTools::Spot2(&view.sheet().context(), view.origin(), view.magnification(), mark.film, radius,
                  palette.landmark, 0);
  if (options.labels) draw_names(view, marks, palette.label, drawn);
}

}  // namespace app
