#include "backends/qt/raster/stroker.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace raster {

namespace {

using framework::LineCap;
using framework::LineJoin;

// A mitre longer than this many pen widths is cut off.
constexpr double miter_limit = 10;
// How far the corners of a round shape may leave the circle, pixels.
constexpr double round_tolerance = 0.05;

Point operator+(Point a, Point b) {
  return {a.x + b.x, a.y + b.y};
}
Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}
Point operator*(Point a, double factor) {
  return {a.x * factor, a.y * factor};
}
double dot(Point a, Point b) {
  return a.x * b.x + a.y * b.y;
}
double cross(Point a, Point b) {
  return a.x * b.y - a.y * b.x;
}
double distance(Point a, Point b) {
  return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
}
Point direction(Point a, Point b) {
  const double length = distance(a, b);
  return {(b.x - a.x) / length, (b.y - a.y) / length};
}
Point normal(Point direction) {
  return {-direction.y, direction.x};
}
bool same(Point a, Point b) {
  return a.x == b.x && a.y == b.y;
}

/// Part of a line, 0 its start and 1 its end.
struct Stretch {
  double from;
  double to;
};

/// Cuts a stretch to where start + t * change lies between two bounds.
void cut(Stretch &stretch, double start, double change, double low, double high) {
  if (change == 0) {
    if (start < low || start > high) stretch = {1, 0};
    return;
  }
  const double t_low = ((change > 0 ? low : high) - start) / change;
  const double t_high = ((change > 0 ? high : low) - start) / change;
  stretch = {std::max(stretch.from, t_low), std::min(stretch.to, t_high)};
}

Stretch part_near(Point a, Point b, const RECT &view, double margin) {
  Stretch stretch{0, 1};
  cut(stretch, a.x, b.x - a.x, view.left - margin, view.right + margin);
  cut(stretch, a.y, b.y - a.y, view.top - margin, view.bottom + margin);
  return stretch;
}

}  // namespace

void Stroker::set_pen(double width, LineCap cap, LineJoin join) {
  cap_ = cap;
  join_ = join;
  if (half_ == width / 2 && !disc_.empty()) return;
  half_ = width / 2;
  const double step = std::acos(1 - std::min(0.5, round_tolerance / half_));
  const int quarter = std::clamp(static_cast<int>(std::ceil(std::numbers::pi / 4 / step)), 2, 256);
  disc_.clear();
  for (int i = 0; i < 4 * quarter; ++i) {
    const double angle = std::numbers::pi / 2 * i / quarter;
    disc_.push_back({half_ * std::cos(angle), half_ * std::sin(angle)});
  }
}

void Stroker::add_disc(Point centre) {
  piece_.clear();
  for (const Point &point : disc_) piece_.push_back(centre + point);
  target_.add_convex(piece_);
}

void Stroker::add_line(Point a, Point b) {
  const Point side = normal(direction(a, b)) * half_;
  const std::array corners{a + side, b + side, b - side, a - side};
  target_.add_convex(corners);
}

void Stroker::add_join(Point before, Point joint, Point after) {
  const Point in = direction(before, joint);
  const Point out = direction(joint, after);
  const double turn = cross(in, out);
  const double along = dot(in, out);
  if (turn == 0 && along > 0) return;
  const double outward = turn > 0 ? -half_ : half_;  // the wedge opens on the outer side of the turn
  const Point a = normal(in) * outward;
  const Point b = normal(out) * outward;
  // A miter's length over the width is 1 / cos(half the turn).
  const double half_turn_cosine = std::sqrt(std::max(0.0, (1 + along) / 2));
  if (join_ == LineJoin::miter && half_turn_cosine * miter_limit > 1) {
    const std::array corners{joint, joint + a, joint + (a + b) * (1 / (1 + along)), joint + b};
    target_.add_convex(corners);
  } else if (join_ == LineJoin::round && half_ * (1 - half_turn_cosine) > round_tolerance) {
    add_disc(joint);
  } else {
    const std::array corners{joint, joint + a, joint + b};
    target_.add_convex(corners);
  }
}

void Stroker::stroke_open(std::span<const Point> points) {
  const std::size_t last = points.size() - 1;
  for (std::size_t i = 0; i < last; ++i) {
    Point from = points[i];
    Point to = points[i + 1];
    if (i > 0) add_join(points[i - 1], from, to);
    if (cap_ == LineCap::square && (i == 0 || i + 1 == last)) {
      const Point reach = direction(from, to) * half_;
      if (i == 0) from = from - reach;
      if (i + 1 == last) to = to + reach;
    }
    add_line(from, to);
  }
  if (cap_ == LineCap::round) {
    add_disc(points.front());
    add_disc(points.back());
  }
}

void Stroker::stroke(std::span<const Point> points, bool closed) {
  clean_.clear();
  for (const Point &point : points) {
    if (clean_.empty() || !same(clean_.back(), point)) clean_.push_back(point);
  }
  while (closed && clean_.size() > 1 && same(clean_.front(), clean_.back())) clean_.pop_back();
  if (clean_.empty()) return;
  if (clean_.size() == 1) {
    if (cap_ == LineCap::round) add_disc(clean_[0]);
    if (cap_ == LineCap::square) add_line(clean_[0] - Point{half_, 0}, clean_[0] + Point{half_, 0});
    return;
  }
  if (!closed || clean_.size() == 2) {
    stroke_open(clean_);
    return;
  }
  const std::size_t count = clean_.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Point &here = clean_[i];
    const Point &next = clean_[(i + 1) % count];
    add_line(here, next);
    add_join(here, next, clean_[(i + 2) % count]);
  }
}

void Stroker::end_dash() {
  if (dash_.size() > 1) stroke_open(dash_);
  dash_.clear();
}

void Stroker::add_dashes(Point a, Point b, DashWalker &dashes) {
  const double length = distance(a, b);
  if (length == 0) return;
  const Stretch seen = part_near(a, b, view_, 2 * half_ + 2);
  if (seen.from >= seen.to) {
    end_dash();
    dashes.advance(length);
    return;
  }
  double at = seen.from * length;
  const double end = seen.to * length;
  if (at > 0) end_dash();
  dashes.advance(at);
  if (dashes.on() && dash_.empty()) dash_.push_back(a + (b - a) * seen.from);
  while (at < end) {
    const bool was_on = dashes.on();
    const bool runs_out = dashes.left() <= end - at;
    const double step = runs_out ? dashes.left() : end - at;
    at += step;
    const Point here = at < length ? a + (b - a) * (at / length) : b;
    if (was_on && (dash_.empty() || !same(dash_.back(), here))) dash_.push_back(here);
    dashes.advance(step);
    if (!runs_out) break;
    if (was_on) end_dash();
    if (dashes.on()) dash_.push_back(here);
  }
  if (end < length) {
    end_dash();
    dashes.advance(length - end);
  }
}

void Stroker::stroke_dashes(std::span<const Point> points, bool closed, DashWalker dashes) {
  const std::size_t lines = points.size() < 2 ? 0 : points.size() - (closed ? 0 : 1);
  dash_.clear();
  for (std::size_t i = 0; i < lines; ++i) add_dashes(points[i], points[(i + 1) % points.size()], dashes);
  end_dash();
}

}  // namespace raster
