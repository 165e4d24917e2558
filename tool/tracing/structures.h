#pragma once
// The anatomical structures of a tracing: each hand-drawn, or else drawn from up to two stored splines.

#include "tool/framework/gdi/CDC.h"
#include "tool/tracing/spline_drawing.h"
#include "tool/tracing/superimposed_line.h"

namespace tracing {

inline constexpr int spline_capacity = 33;

/// One stored spline; a count beyond the capacity is not believed and gives no points.
struct StructureSpline {
  bool closed = false;
  int count = 0;
  POINT points[spline_capacity];  ///< image pixels
};

/// The structure spline record.
class StructureRecord {
 public:
  explicit StructureRecord(const void *record) : record_(record) {}
  bool enabled(int structure) const;                       ///< to be drawn from its splines
  StructureSpline spline(int structure, int which) const;  ///< which: 0 first, 1 second

 private:
  const void *record_;
};

/// Older records end behind the first splines. The newer one gets these and no second splines; what it holds
/// behind its splines stays.
void convert_structure_record(const void *older, void *newer);

/// What is drawn of a superimposed tracing.
struct Outlines {
  CPointD reference;  ///< of the superimposition
  const void *traces;
  const void *splines;  ///< the structure spline record
  int only = -1;        ///< one structure or kind of trace; -1: all
};
/// Traces of structures and other outlines, then the splines of structures without a trace. Teeth are drawn
/// with tracing/teeth.h.
void draw_outlines(CDC &dc, const Outlines &outlines, const Superimposition &on, const LineStyle &line,
                   Stroke stroke);

}  // namespace tracing
