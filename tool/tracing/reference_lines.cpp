#include "tool/tracing/reference_lines.h"

#include "tool/framework/text/numbers.h"

namespace tracing {

namespace {

using framework::to_int;

SpanningLine vertical_line(double x, const RECT &clip) {
  return {{to_int(x), clip.top}, {to_int(x), clip.bottom}, std::nullopt, true};
}

/// From the clip's top to its bottom or from its left to its right. The half is added on the slope itself, so
/// that lines falling to the right are steep from 1.5 on only.
SpanningLine sloping_line(double m, CPointD p, const RECT &clip) {
  const double c = p.y - p.x * m;
  const bool steep = to_int(m + 0.5) != 0;
  if (steep)
    return {{to_int((clip.top - c) / m + 0.5), clip.top},
            {to_int((clip.bottom - c) / m + 0.5), clip.bottom},
            std::nullopt};
  return {{clip.left, to_int(clip.left * m + c + 0.5)},
          {clip.right, to_int(c + clip.right * m + 0.5)},
          std::nullopt};
}

}  // namespace

SpanningLine parallel_line(CPointD a, CPointD b, CPointD p, const RECT &clip) {
  const double dx = b.x - a.x;
  SpanningLine line = dx == 0.0 ? vertical_line(p.x, clip) : sloping_line((b.y - a.y) / dx, p, clip);
  line.label_end = line.to.x > line.from.x ? line.to : line.from;
  return line;
}

SpanningLine perpendicular_line(CPointD a, CPointD b, CPointD p, const RECT &clip) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  if (dy == 0.0) return vertical_line(p.x, clip);
  if (dx == 0.0) return {{clip.left, to_int(p.y)}, {clip.right, to_int(p.y)}, std::nullopt, true};
  SpanningLine line = sloping_line(-1.0 / (dy / dx), p, clip);
  line.label_end = line.from.y < line.to.y ? line.from : line.to;
  return line;
}

}  // namespace tracing
