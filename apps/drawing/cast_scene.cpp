#include "apps/drawing/cast_scene.h"

#include <array>
#include <cmath>

#include "apps/drawing/lateral_scene.h"

namespace app {
namespace {

constexpr int positions = 6;     // teeth of one side that are measured, from the front
constexpr int wire_points = 11;  // of one side
constexpr int upper_family = 5;
constexpr int lower_family = 4;
constexpr int molar_position = 5;
constexpr int generic_crown = -1;

struct Jaw {
  const POINT (*teeth)[4];
  int family;
};

tagDPOINT as_double(CPoint p) {
  return {static_cast<double>(p.x), static_cast<double>(p.y)};
}

/// Width points of a side from the front tooth's mesial one to the last distal one; empty when one is
/// missing.
std::vector<CPoint> contacts(const Jaw &jaw, int side) {
  std::vector<CPoint> points;
  for (int i = 0; i < positions; ++i) {
    const CPoint mesial = jaw.teeth[i][2 * side];
    const CPoint distal = jaw.teeth[i][2 * side + 1];
    if (!is_placed(mesial) || !is_placed(distal)) return {};
    if (i == 0) points.push_back(mesial);
    points.push_back(distal);
  }
  return points;
}

/// The point at a fraction of the way along a polyline.
CPoint along(const std::vector<CPoint> &line, double fraction) {
  double whole = 0;
  for (std::size_t i = 1; i < line.size(); ++i)
    whole += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
  double rest = whole * fraction;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double length = std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
    if (rest <= length && length > 0)
      return {static_cast<int>(std::lround(line[i - 1].x + (line[i].x - line[i - 1].x) * rest / length)),
              static_cast<int>(std::lround(line[i - 1].y + (line[i].y - line[i - 1].y) * rest / length))};
    rest -= length;
  }
  return line.back();
}

/// From the last tooth to the front, without the front point.
std::array<CPoint, wire_points> wire_side(const std::vector<CPoint> &line) {
  std::array<CPoint, wire_points> side;
  for (int k = 0; k < wire_points; ++k)
    side[static_cast<std::size_t>(k)] = along(line, 1.0 - static_cast<double>(k) / wire_points);
  return side;
}

void draw_crowns(const View &view, const Jaw &jaw, COLORREF color) {
  for (int i = 0; i < positions; ++i) {
    for (int side = 0; side < 2; ++side) {
      const CPoint mesial = jaw.teeth[i][2 * side];
      const CPoint distal = jaw.teeth[i][2 * side + 1];
      if (!is_placed(mesial) || !is_placed(distal)) continue;
      tagDPOINT a = as_double(mesial), b = as_double(distal);
      CModelTool::DrawTooth(&view.sheet().context(), view.origin(), view.magnification(), 0.0, jaw.family, 0,
                            side == 1, i == molar_position ? generic_crown : i, &a, &b, color);
    }
  }
}

void draw_wire(const View &view, const Jaw &jaw, COLORREF color) {
  const std::vector<CPoint> first = contacts(jaw, 0), second = contacts(jaw, 1);
  if (first.empty() || second.empty()) return;
  std::array<CPoint, wire_points> a = wire_side(first), b = wire_side(second);
  tagDPOINT front = as_double(first.front());
  CModelTool::DrawWire(&view.sheet().context(), view.origin(), view.magnification(), 0.0, &front, nullptr,
                       nullptr, 0.0, 0.0, a.data(), b.data(), color);
}

}  // namespace

std::vector<CPoint> cast_points(const tagPOINTMO &record) {
  std::vector<CPoint> points;
  for (int i = 0; i < positions; ++i)
    for (int k = 0; k < 4; ++k) {
      points.emplace_back(record.upper[i][k]);
      points.emplace_back(record.lower[i][k]);
    }
  return points;
}

void draw_cast(const View &view, const tagPOINTMO &record, const SceneOptions &options, Drawn &drawn) {
  const Palette &palette = options.palette();
  for (const Jaw &jaw : {Jaw{record.upper, upper_family}, Jaw{record.lower, lower_family}}) {
    draw_crowns(view, jaw, palette.tooth);
    draw_wire(view, jaw, palette.second);
  }
  constexpr int bold_tenths = 2;
  drawn.legend.push_back({"Crowns", palette.tooth, bold_tenths, 0});
  drawn.legend.push_back({"Arch", palette.second, bold_tenths, 0});
}

}  // namespace app
