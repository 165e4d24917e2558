#pragma once
// Crown outlines of the cast: a template laid onto the two width points of a tooth by turning, uniform
// scaling and shifting.

#include <array>
#include <span>

#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"

namespace model {

/// How the application names a crown.
struct CrownChoice {
  int family;  ///< 5, or any other
  int code;    ///< 11, or any other
  bool mirror;
  int tooth;  ///< -1 to 4
};

/// A template and which of its points go onto the two width points.
struct CrownTemplate {
  std::span<const POINT> points;
  std::size_t anchor_1 = 0;
  std::size_t anchor_2 = 0;
};

/// Tooth -1 has one template for all. Mirroring, like changing the code to or from 11, exchanges the anchors
/// of every other. Empty for a tooth without a template: family other than 5 and tooth outside -1 to 4.
CrownTemplate crown_template(const CrownChoice &choice);

/// The placed outline, whole pixels (truncated), closed.
class Crown {
 public:
  static constexpr std::size_t most_points = 12;

  Crown() = default;
  /// The anchors lie exactly on the truncated width points. Coinciding width points collapse the outline.
  Crown(const CrownTemplate &shape, CPointD width_1, CPointD width_2);
  std::span<const POINT> points() const { return std::span(points_).first(count_); }

 private:
  std::array<POINT, most_points> points_{};
  std::size_t count_ = 0;
};

}  // namespace model
