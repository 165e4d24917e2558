#include "backends/qt/raster/thin_line.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "backends/qt/raster/reach.h"

namespace raster {

namespace {

using Wide = std::int64_t;

Wide floor_divide(Wide a, Wide b) {
  return a >= 0 ? a / b : -((-a + b - 1) / b);
}

/// A line along its major axis u; v is the other one.
struct Course {
  Wide u, v;   // start
  Wide step;   // of u: 1 or -1
  Wide count;  // pixels
  Wide rise;   // of v over all of them
  bool steep;

  /// v of pixel i, nearest to the ideal line; a tie goes to the smaller.
  Wide v_at(Wide i) const { return v + floor_divide(2 * i * rise + count - 1, 2 * count); }
};

struct Range {
  Wide first, last;  // half-open
};

/// The pixels whose v is below `bound` (or at least `bound`) are a beginning or an end of the line.
Wide first_with(const Course &course, Range range, bool (*holds)(Wide v, Wide bound), Wide bound) {
  while (range.first < range.last) {
    const Wide middle = range.first + (range.last - range.first) / 2;
    if (holds(course.v_at(middle), bound)) {
      range.last = middle;
    } else {
      range.first = middle + 1;
    }
  }
  return range.first;
}

bool at_least(Wide v, Wide bound) {
  return v >= bound;
}
bool below(Wide v, Wide bound) {
  return v < bound;
}

Range visible(const Course &course, Wide u_low, Wide u_high, Wide v_low, Wide v_high) {
  Range range{0, course.count};
  if (course.step > 0) {
    range = {std::max<Wide>(0, u_low - course.u), std::min(course.count, u_high - course.u)};
  } else {
    range = {std::max<Wide>(0, course.u - (u_high - 1)), std::min(course.count, course.u - u_low + 1)};
  }
  if (range.first >= range.last) return {0, 0};
  if (course.rise >= 0) {
    range.first = first_with(course, range, at_least, v_low);
    range.last = first_with(course, range, at_least, v_high);
  } else {
    range.first = first_with(course, range, below, v_high);
    range.last = first_with(course, range, below, v_low);
  }
  return range;
}

void add_pixels(const Course &course, Range range, DashWalker &dashes, ThinPixels &pixels) {
  const double length = std::hypot(static_cast<double>(course.count), static_cast<double>(course.rise));
  const double unit = length / static_cast<double>(course.count);
  dashes.advance(unit * static_cast<double>(range.first));
  Wide v = course.v_at(range.first);
  // The remainder of v_at's division, carried from pixel to pixel.
  Wide remainder = 2 * range.first * course.rise + course.count - 1 - (v - course.v) * 2 * course.count;
  for (Wide i = range.first; i < range.last; ++i) {
    const int u = static_cast<int>(course.u + course.step * i);
    Spans &target = dashes.on() ? pixels.on : pixels.gaps;
    if (course.steep) {
      add_pixel(target, static_cast<int>(v), u);
    } else {
      add_pixel(target, u, static_cast<int>(v));
    }
    if (dashes.dashed()) dashes.advance(unit);
    remainder += 2 * course.rise;
    if (remainder < 0) {
      remainder += 2 * course.count;
      --v;
    } else if (remainder >= 2 * course.count) {
      remainder -= 2 * course.count;
      ++v;
    }
  }
  dashes.advance(unit * static_cast<double>(course.count - range.last));
}

}  // namespace

void add_line(POINT a, POINT b, const RECT &limits, DashWalker &dashes, ThinPixels &pixels) {
  a = within_reach(a);
  b = within_reach(b);
  const Wide dx = Wide{b.x} - a.x;
  const Wide dy = Wide{b.y} - a.y;
  if (dx == 0 && dy == 0) return;
  if (dy == 0 && !dashes.dashed()) {
    add_span(pixels.on, a.y, dx > 0 ? a.x : b.x + 1, dx > 0 ? b.x : a.x + 1, limits);
    return;
  }
  const bool steep = std::abs(dy) > std::abs(dx);
  const Course course = steep ? Course{a.y, a.x, dy > 0 ? 1 : -1, std::abs(dy), dx, true}
                              : Course{a.x, a.y, dx > 0 ? 1 : -1, std::abs(dx), dy, false};
  const Range range = steep ? visible(course, limits.top, limits.bottom, limits.left, limits.right)
                            : visible(course, limits.left, limits.right, limits.top, limits.bottom);
  add_pixels(course, range, dashes, pixels);
}

void add_chain(std::span<const POINT> chain, const RECT &limits, DashWalker &dashes, ThinPixels &pixels) {
  for (const POINT &point : chain) {
    if (point.x >= limits.left && point.x < limits.right && point.y >= limits.top &&
        point.y < limits.bottom) {
      add_pixel(dashes.on() ? pixels.on : pixels.gaps, point.x, point.y);
    }
    dashes.advance(1);
  }
}

}  // namespace raster
