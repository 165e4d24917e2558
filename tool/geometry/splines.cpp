#include "tool/geometry/splines.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tool/geometry/distances.h"
#include "tool/geometry/lines.h"
#include "tool/geometry/transforms.h"

namespace geometry {

namespace {

constexpr double steps_per_spacing = 2.0;
constexpr double least_steps = 10.0;
constexpr double extra_steps = 1e6;  // for one walk; a thousandfold of what a film needs
constexpr double most_floored_steps = 1000.0;
constexpr int most_search_steps = 1'000'000;

double catmull_rom(double t, double c0, double c1, double c2, double c3) {
  return 0.5 * (-t * (t - 1.0) * (t - 1.0) * c0 + (t - 1.0) * (3.0 * t * t - 2.0 * t - 2.0) * c1 -
                t * (3.0 * t * t - 4.0 * t - 1.0) * c2 + t * t * (t - 1.0) * c3);
}

double lagrange(double t, double c0, double c1, double c2, double c3) {
  return -t * (t - 1.0) * (t - 2.0) / 6.0 * c0 + (t + 1.0) * (t - 1.0) * (t - 2.0) / 2.0 * c1 -
         (t + 1.0) * t * (t - 2.0) / 2.0 * c2 + (t + 1.0) * t * (t - 1.0) / 6.0 * c3;
}

/// A curve too short to be walked, as its only chord.
std::optional<Chord> single_chord(const ControlPoints &points) {
  if (points.count() != 2) return std::nullopt;
  return Chord{points[0], points[1], 0};
}

}  // namespace

CPointD spline_point(CPointD p0, CPointD p1, CPointD p2, CPointD p3, double t, SplineBasis basis) {
  const auto curve = basis == SplineBasis::catmull_rom ? catmull_rom : lagrange;
  return {curve(t, p0.x, p1.x, p2.x, p3.x), curve(t, p0.y, p1.y, p2.y, p3.y)};
}

// Walking -----------------------------------------------------------------------------------------

CurveWalk::CurveWalk(ControlPoints points, const Sampling &sampling, CurveEnds ends)
    : points_(points),
      sampling_(sampling),
      closed_(ends == CurveEnds::closed),
      span_(closed_ ? 1 : 0),
      last_span_(closed_ ? points.count() : points.count() - 2),
      step_budget_(extra_steps) {
  if (points_.count() < 3) {
    last_span_ = span_ - 1;  // nothing to walk
    return;
  }
  kept_ = knot(span_);
  begin_span();
}

CPointD CurveWalk::knot(int i) const {
  if (closed_) return points_[i % points_.count()];
  return points_[std::clamp(i, 0, points_.count() - 1)];
}

void CurveWalk::begin_span() {
  p0_ = knot(closed_ ? span_ - 1 + points_.count() : span_ - 1);
  p1_ = knot(span_);
  p2_ = knot(span_ + 1);
  p3_ = knot(span_ + 2);
  double wanted = norm(p2_ - p1_) / (sampling_.spacing / steps_per_spacing);
  if (sampling_.floor == StepFloor::thousandth && wanted > most_floored_steps) wanted = most_floored_steps;
  const double steps = wanted > least_steps ? std::min(wanted, least_steps + step_budget_) : least_steps;
  step_budget_ -= steps - least_steps;
  step_ = 1.0 / steps;
  t_ = 0.0;
}

std::optional<Chord> CurveWalk::next() {
  while (span_ <= last_span_) {
    while (t_ <= 1.0) {
      const CPointD sample = spline_point(p0_, p1_, p2_, p3_, t_);
      t_ += step_;
      if (norm(sample - kept_) >= sampling_.spacing) {
        const Chord chord{kept_, sample, span_};
        kept_ = sample;
        return chord;
      }
    }
    ++span_;
    const bool ended = span_ > last_span_;
    if (!ended) begin_span();
    if (!ended && sampling_.knots == KeptKnots::ends) continue;
    const Chord chord{kept_, knot(span_), span_};
    kept_ = chord.to;
    return chord;
  }
  return std::nullopt;
}

std::vector<CPointD> kept_points(ControlPoints points, CurveEnds ends) {
  std::vector<CPointD> kept;
  const bool walked = points.count() > 2;
  // What comes before the first chord: an open curve's start, or both ends of a closed curve's span 0.
  const int leading = !walked ? points.count() : ends == CurveEnds::closed ? 2 : 1;
  kept.reserve(static_cast<std::size_t>(points.count()));
  for (int i = 0; i < leading; ++i) kept.push_back(points[i]);
  CurveWalk walk(points, {}, ends);
  while (const auto chord = walk.next()) kept.push_back(chord->to);
  return kept;
}

// Measuring ---------------------------------------------------------------------------------------

double curve_length(ControlPoints points, SpanRange range, double scale) {
  if (const auto chord = single_chord(points)) return length(chord->from, chord->to, scale);
  double total = 0.0;
  CurveWalk walk(points, {.floor = StepFloor::thousandth});
  while (const auto chord = walk.next()) {
    if (range.holds(chord->span)) total += length(chord->from, chord->to, scale);
  }
  return total;
}

std::optional<CPointD> curve_crossing(ControlPoints points, CPointD c, CPointD d) {
  if (const auto chord = single_chord(points)) return segment_crossing(chord->from, chord->to, c, d);
  CurveWalk walk(points);
  while (const auto chord = walk.next()) {
    if (const auto crossing = segment_crossing(chord->from, chord->to, c, d)) return crossing;
  }
  return std::nullopt;
}

CPointD point_between(CPointD a, CPointD b, double l0, double l1, double target) {
  if (l0 == l1) return b;
  return moved(a, b, a, (target - l0) / (l1 - l0));
}

ReachedPoint point_at_length(ControlPoints points, SpanRange range, double scale, double target) {
  ReachedPoint reached;
  const auto passes = [&](const Chord &chord) {
    const double size = length(chord.from, chord.to, scale);
    reached.length += size;
    if (!(reached.length >= target)) return false;
    reached.point = point_between(chord.from, chord.to, reached.length - size, reached.length, target);
    return true;
  };
  if (const auto chord = single_chord(points)) {
    passes(*chord);
    return reached;
  }
  CurveWalk walk(points);
  while (const auto chord = walk.next()) {
    if (range.holds(chord->span) && passes(*chord)) break;
  }
  return reached;
}

ArcPositions::ArcPositions(ControlPoints points, double scale) {
  double total = 0.0;
  double reach = -std::numeric_limits<double>::infinity();
  CurveWalk walk(points);
  while (const auto chord = walk.next()) {
    const double size = length(chord->from, chord->to, scale);
    total += size;
    if (total > reach) reach = total;
    stretches_.push_back({*chord, total - size, total, reach});
  }
}

std::optional<CPointD> ArcPositions::at(double target) const {
  if (std::isnan(target)) return std::nullopt;
  const auto found = std::lower_bound(stretches_.begin(), stretches_.end(), target,
                                      [](const Stretch &s, double value) { return s.reach < value; });
  if (found == stretches_.end()) return std::nullopt;
  return point_between(found->chord.from, found->chord.to, found->before, found->total, target);
}

std::optional<CPointD> search_distance(ControlPoints points, double scale, const DistanceSearch &search,
                                       double &position) {
  if (points.count() < 3) return std::nullopt;
  const ArcPositions arc(points, scale);
  const double step = position / 1000.0 > 0.1 ? position / 1000.0 : 0.1;
  std::optional<CPointD> reached = arc.at(position);
  CPointD point = reached.value_or(points[points.count() - 1]);
  for (int steps = 0; length(search.from, point, scale) < search.distance; ++steps) {
    if (steps == most_search_steps) return std::nullopt;
    position += search.forward ? step : -step;
    if (search.forward && position > search.limit) return std::nullopt;
    reached = arc.at(position);
    if (reached) point = *reached;
  }
  return point;
}

}  // namespace geometry
