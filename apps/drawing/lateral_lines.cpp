// The reference lines of a lateral tracing: our own choice, or those of a display-setting file.

#include <array>
#include <cmath>
#include <string>

#include "apps/drawing/lateral_scene.h"
#include "tool/analysis/landmarks.h"
#include "tool/analysis/points.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

using analysis::lateral::Landmark;
namespace mark = analysis::lateral;

constexpr int plane_tenths = 3;
constexpr int bold_tenths = 5;
constexpr int fine_tenths = 2;
constexpr std::int32_t bold_weight = 102;

CPoint middle(CPoint a, CPoint b) {
  return is_placed(a) && is_placed(b) ? CPoint((a.x + b.x) / 2, (a.y + b.y) / 2) : CPoint(0, 0);
}

/// The line from a to b and `beyond` film pixels further at both ends.
struct Stretch {
  CPoint a, b;
};
Stretch extended(CPoint a, CPoint b, double beyond) {
  const double length = std::hypot(b.x - a.x, b.y - a.y);
  if (length == 0) return {a, b};
  const double dx = (b.x - a.x) / length * beyond;
  const double dy = (b.y - a.y) / length * beyond;
  return {{static_cast<int>(std::lround(a.x - dx)), static_cast<int>(std::lround(a.y - dy))},
          {static_cast<int>(std::lround(b.x + dx)), static_cast<int>(std::lround(b.y + dy))}};
}

void draw_between(const View &view, CPoint a, CPoint b, const LegendEntry &look, Drawn &drawn) {
  drawn.add_line(view.on_sheet(a), view.on_sheet(b));
  const CPoint from = view.at(a);
  const CPoint to = view.at(b);
  CTools::Draw_Line(&view.sheet().context(), from.x, from.y, to.x, to.y, look.tenths, look.color, look.style,
                    0);
}

struct Plane {
  const char *name;
  Landmark from, to;
  COLORREF Palette::*color;
  int style;
};
constexpr std::array<Plane, 5> planes{{
    {"S-N", mark::S, mark::N, &Palette::cranial, 0},
    {"Frankfort plane", mark::Po, mark::Or, &Palette::frankfort, 0},
    {"Palatal plane", mark::PNS, mark::ANS, &Palette::palatal, 0},
    {"Mandibular plane", mark::GoL, mark::Me, &Palette::mandibular, 0},
    {"Aesthetic line", mark::TN, mark::TC, &Palette::aesthetic, 1},
}};

void draw_plane(const View &view, CPoint a, CPoint b, LegendEntry look, Drawn &drawn) {
  if (!is_placed(a) || !is_placed(b)) return;
  const double beyond = 5 / view.scale();
  const Stretch line = extended(a, b, beyond);
  draw_between(view, line.a, line.b, look, drawn);
  drawn.legend.push_back(std::move(look));
}

void draw_our_lines(const View &view, const tagPOINTLAT &record, const Palette &palette, Drawn &drawn) {
  for (const Plane &plane : planes)
    draw_plane(view, lateral_landmark(record, plane.from), lateral_landmark(record, plane.to),
               {plane.name, palette.*plane.color, plane_tenths, plane.style}, drawn);
  draw_plane(view, middle(lateral_landmark(record, mark::UMo), lateral_landmark(record, mark::LMo)),
             middle(lateral_landmark(record, mark::U1), lateral_landmark(record, mark::L1)),
             {"Occlusal plane", palette.occlusal, plane_tenths, 0}, drawn);
}

std::optional<CPoint> resolved_point(const analysis::Tracing &tracing, std::string_view name) {
  std::optional<analysis::Reason> reason;
  const CPointD point = analysis::point_position(name, tracing, &reason);
  if (reason) return std::nullopt;
  return CPoint(static_cast<int>(std::lround(point.x)), static_cast<int>(std::lround(point.y)));
}

void draw_style_lines(const View &view, const TracingFile &tracing, const analysis::DisplaySettings &style,
                      Drawn &drawn) {
  const analysis::Tracing points = tracing.tracing();
  for (const analysis::DisplaySegment &segment : style.segments) {
    const std::optional<CPoint> a = resolved_point(points, segment.from);
    const std::optional<CPoint> b = resolved_point(points, segment.to);
    if (!a || !b) continue;
    LegendEntry look{
        framework::utf8_for_display(segment.from) + "-" + framework::utf8_for_display(segment.to),
        segment.color, segment.weight == bold_weight ? bold_tenths : fine_tenths, 0};
    draw_between(view, *a, *b, look, drawn);
    drawn.legend.push_back(std::move(look));
  }
}

}  // namespace

void draw_lateral_lines(const View &view, const TracingFile &tracing, const SceneOptions &options,
                        Drawn &drawn) {
  if (options.style)
    draw_style_lines(view, tracing, *options.style, drawn);
  else
    draw_our_lines(view, *tracing.lateral(), options.palette(), drawn);
}

}  // namespace app
