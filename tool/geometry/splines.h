#pragma once
// Curves through control points: traced outlines and the dental arch. A curve passes through every control
// point; span i runs from point i to point i + 1. It is walked as a chain of chords between kept points,
// which lie at least 10 units apart except at the control points; for drawing the spacing is the caller's and
// the control points between the ends count like any other sample. Units are those of the control points;
// lengths are units times the scale.

#include <optional>
#include <vector>

#include "tool/geometry/CPointD.h"

namespace geometry {

enum class SplineBasis {
  catmull_rom,  ///< uniform Catmull-Rom
  lagrange,     ///< cubic through all four points, at -1, 0, 1 and 2
};

/// The point at t on the span from p1 (t = 0) to p2 (t = 1), exact at both ends.
CPointD spline_point(CPointD p0, CPointD p1, CPointD p2, CPointD p3, double t,
                     SplineBasis basis = SplineBasis::catmull_rom);

/// A borrowed array of control points in whole pixels or doubles; a negative count is none.
class ControlPoints {
 public:
  ControlPoints(const tagPOINT *points, int count)
      : whole_(points), count_(points && count > 0 ? count : 0) {}
  ControlPoints(const tagDPOINT *points, int count)
      : real_(points), count_(points && count > 0 ? count : 0) {}

  int count() const { return count_; }
  CPointD operator[](int i) const {
    return whole_ ? CPointD(whole_[i].x, whole_[i].y) : CPointD(real_[i].x, real_[i].y);
  }

 private:
  const tagPOINT *whole_ = nullptr;
  const tagDPOINT *real_ = nullptr;
  int count_;
};

/// The piece between two consecutive kept points.
struct Chord {
  CPointD from;
  CPointD to;
  int span;  ///< the span it belongs to; the chord into control point i belongs to span i
};

enum class CurveEnds { open, closed };
enum class StepFloor { none, thousandth };  ///< whether a span takes at most 1000 steps
enum class KeptKnots { all, ends };         ///< which control points are kept whatever their distance

/// How a curve is cut into chords.
struct Sampling {
  double spacing = 10.0;  ///< units between kept points; a span takes one step per half of it, at least 10
  StepFloor floor = StepFloor::none;
  KeptKnots knots = KeptKnots::all;
};

/// Yields the chords of a curve of three or more points in order. The first chord starts at point 0 (closed:
/// at point 1, and the last one returns there). Over a whole curve the steps beyond 10 in a span are limited
/// to a million, whatever the coordinates are.
class CurveWalk {
 public:
  explicit CurveWalk(ControlPoints points, const Sampling &sampling = {}, CurveEnds ends = CurveEnds::open);
  std::optional<Chord> next();

 private:
  CPointD knot(int i) const;
  void begin_span();

  ControlPoints points_;
  Sampling sampling_;
  bool closed_;
  int span_;
  int last_span_;
  double step_budget_;
  double step_ = 0.0;
  double t_ = 0.0;
  CPointD kept_;
  CPointD p0_, p1_, p2_, p3_;  // of the current span
};

/// Every kept point in order. Two points or one: just these. A closed curve starts with point 0 and ends with
/// point 1; it holds point 0 twice.
std::vector<CPointD> kept_points(ControlPoints points, CurveEnds ends);

/// A range of spans start <= i < end. Span 0 counts when start is 0, whatever the end.
struct SpanRange {
  int start;
  int end;
  constexpr bool holds(int span) const { return span == 0 ? start == 0 : start <= span && span < end; }
};

/// Length over a range of spans. Two points: their distance, whatever the range; fewer: 0.
double curve_length(ControlPoints points, SpanRange range, double scale);

/// Where the first chord crosses the infinite line cd.
std::optional<CPointD> curve_crossing(ControlPoints points, CPointD c, CPointD d);

/// a at length l0, b at length l1, in between (or beyond) in proportion; b when l0 equals l1.
CPointD point_between(CPointD a, CPointD b, double l0, double l1, double target);

struct ReachedPoint {
  double length = 0.0;  ///< at the end of the chord where the target was reached, or the whole length
  std::optional<CPointD> point;  ///< empty when the range ends before the target
};
ReachedPoint point_at_length(ControlPoints points, SpanRange range, double scale, double target);

/// The whole curve measured once, for many questions about positions along it.
class ArcPositions {
 public:
  ArcPositions(ControlPoints points, double scale);
  /// What point_at_length gives for the whole curve.
  std::optional<CPointD> at(double target) const;

 private:
  struct Stretch {
    Chord chord;
    double before;  ///< length at the chord's start
    double total;   ///< length at its end
    double reach;   ///< the greatest total so far
  };
  std::vector<Stretch> stretches_;
};

struct DistanceSearch {
  CPointD from;
  double distance;  ///< straight, millimetres
  bool forward;
  double limit;  ///< of the position, for a forward search
};

/// Steps `position` (arc length, by max(position / 1000, 0.1)) until the curve's point there lies at least
/// `distance` from `from`. Empty when a forward search passes its limit. A search that can no longer come to
/// an end (backward without approaching, or forward behind the curve's end under an endless limit) is empty
/// too. Before any point is reached the curve's last control point stands in.
std::optional<CPointD> search_distance(ControlPoints points, double scale, const DistanceSearch &search,
                                       double &position);

}  // namespace geometry
