#include "backends/qt/raster/box_path.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace raster {

namespace {

constexpr double pi = std::numbers::pi;

struct Ellipse {
  Point centre;
  double a, b;  // half axes
};

Ellipse inscribed(const RealBox &box) {
  return {{(box.left + box.right) / 2, (box.top + box.bottom) / 2},
          (box.right - box.left) / 2,
          (box.bottom - box.top) / 2};
}

/// Points from parameter `from` on over `sweep` radians, both ends included.
void add_curve(std::vector<Point> &points, const Ellipse &ellipse, double from, double sweep) {
  const double radius = std::max({ellipse.a, ellipse.b, 0.5});
  const double step = 2 * std::acos(1 - std::min(0.5, 0.05 / radius));
  const int count = std::clamp(static_cast<int>(std::ceil(sweep / step)), 1, 8192);
  for (int i = 0; i <= count; ++i) {
    const double t = from + sweep * i / count;
    points.push_back(
        {ellipse.centre.x + ellipse.a * std::cos(t), ellipse.centre.y - ellipse.b * std::sin(t)});
  }
}

}  // namespace

RealBox middle_line(const RECT &box, int pen_width, bool inside_frame) {
  const double inset = inside_frame ? (pen_width - 1) / 2.0 : 0;
  RealBox line{box.left + inset, box.top + inset, box.right - 1.0 - inset, box.bottom - 1.0 - inset};
  if (line.left > line.right) line.left = line.right = (line.left + line.right) / 2;
  if (line.top > line.bottom) line.top = line.bottom = (line.top + line.bottom) / 2;
  return line;
}

double direction_of(const RECT &box, POINT point) {
  return std::atan2((double{1} * box.top + box.bottom - 1) / 2 - point.y,
                    point.x - (double{1} * box.left + box.right - 1) / 2);
}

double turn_between(double start, double angle) {
  const double turn = angle - start;
  return turn < 0 ? turn + 2 * pi : turn;
}

double ellipse_parameter(double width, double height, double angle) {
  const double t = std::atan2(std::sin(angle) * width, std::cos(angle) * height);
  return t + 2 * pi * std::round((angle - t) / (2 * pi));
}

std::vector<Point> rectangle_path(const RealBox &box) {
  return {{box.left, box.top}, {box.left, box.bottom}, {box.right, box.bottom}, {box.right, box.top}};
}

std::vector<Point> rounded_rectangle_path(const RealBox &middle, const RECT &box, SIZE corner) {
  const double width = middle.right - middle.left;
  const double height = middle.bottom - middle.top;
  const double a = std::clamp(corner.cx - (box.right - box.left - width), 0.0, width) / 2;
  const double b = std::clamp(corner.cy - (box.bottom - box.top - height), 0.0, height) / 2;
  if (a <= 0 || b <= 0) return rectangle_path(middle);
  std::vector<Point> points;
  add_curve(points, {{middle.left + a, middle.top + b}, a, b}, pi / 2, pi / 2);
  add_curve(points, {{middle.left + a, middle.bottom - b}, a, b}, pi, pi / 2);
  add_curve(points, {{middle.right - a, middle.bottom - b}, a, b}, 3 * pi / 2, pi / 2);
  add_curve(points, {{middle.right - a, middle.top + b}, a, b}, 0, pi / 2);
  return points;
}

std::vector<Point> ellipse_path(const RealBox &box) {
  std::vector<Point> points;
  add_curve(points, inscribed(box), pi / 2, 2 * pi);
  points.pop_back();
  return points;
}

std::vector<Point> arc_path(const RealBox &middle, const RECT &box, POINT start, POINT end, bool &closed) {
  const double from = direction_of(box, start);
  const double turn = turn_between(from, direction_of(box, end));
  closed = turn == 0;
  if (closed) return ellipse_path(middle);
  const Ellipse ellipse = inscribed(middle);
  const double first = ellipse_parameter(ellipse.a, ellipse.b, from);
  std::vector<Point> points;
  add_curve(points, ellipse, first, ellipse_parameter(ellipse.a, ellipse.b, from + turn) - first);
  return points;
}

}  // namespace raster
