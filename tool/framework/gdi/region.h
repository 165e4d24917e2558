#pragma once
// An area of device pixels. A polygon or ellipse keeps its outline, so that paper gets a shape rather than a
// staircase; anything combined is a list of rows.
//
// Which pixels belong to it: a rectangle's left and top edge do, its right and bottom edge do not; a pixel
// belongs to a polygon or ellipse when its centre lies inside (a centre on the outline: left and top edges).

#include <span>
#include <vector>

#include "tool/framework/types.h"

namespace framework {

enum class FillRule { alternate, winding };

/// No picture reaches further (Picture::max_side).
inline constexpr RECT raster_limits{-32768, -32768, 32768, 32768};

/// Coordinates are kept within +-2^26.
class Region {
 public:
  enum class Kind { empty, rectangle, polygon, ellipse, rows };

  Region() = default;  ///< empty
  static Region rectangle(const RECT &rect);
  static Region ellipse(const RECT &box);
  static Region polygon(std::span<const POINT> points, FillRule rule);

  Kind kind() const { return kind_; }
  FillRule rule() const { return rule_; }
  const RECT &bounds() const { return bounds_; }             ///< half-open
  std::span<const POINT> points() const { return points_; }  ///< of a polygon
  bool contains(POINT point) const;

  /// The area as disjoint rectangles in rows from the top, left to right, cut to `limits`.
  std::vector<RECT> rectangles(const RECT &limits) const;
  std::vector<RECT> rectangles() const { return rectangles(bounds_); }

  /// RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF, RGN_COPY (of a). Polygons and ellipses are cut to the largest
  /// picture there can be.
  static Region combined(const Region &a, const Region &b, int operation);
  void offset(int dx, int dy);

  friend bool operator==(const Region &a, const Region &b);

 private:
  Kind kind_ = Kind::empty;
  FillRule rule_ = FillRule::alternate;
  RECT bounds_{0, 0, 0, 0};
  std::vector<POINT> points_;
  std::vector<RECT> rows_;
};

}  // namespace framework
