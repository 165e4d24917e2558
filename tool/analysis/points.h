#pragma once
// From a point name to coordinates: built-in landmarks, user points, and virtual points constructed from
// others.

#include <optional>
#include <span>
#include <string_view>

#include "tool/analysis/reason.h"
#include "tool/analysis/tracing.h"
#include "tool/geometry/CPointD.h"

namespace analysis {

/// Coordinates in pixels; (0, 0) when the name cannot be resolved. `reason`, when given and still empty,
/// receives why the point should not be trusted.
CPointD point_position(std::string_view name, const Tracing &tracing,
                       std::optional<Reason> *reason = nullptr);

/// What a virtual point may be built from.
struct PointTables {
  Mode mode;
  double scale;  ///< millimetres per pixel
  std::span<const tagKPOINT> virtual_points;
  std::span<const tagUPOINT> user_points;
  const POINT *user_positions;  ///< parallel to user_points; null: no user points
  const POINT *landmarks;       ///< landmark 0 of the mode's vocabulary; null: none
};

/// The point that a definition constructs; empty when a reference cannot be resolved, when lines do not meet,
/// or when the definition leads back to itself. `reason` as above.
std::optional<CPointD> virtual_point(const tagKPOINT &definition, const PointTables &tables,
                                     std::optional<Reason> *reason = nullptr);

/// The point on the bisector of the angle p1-vertex-p2, `distance` pixels from the vertex; a distance of 0
/// stands for the midpoint of the two points that lie 100 pixels from the vertex on either arm.
CPointD bisector_point(const CPointD &p1, const CPointD &vertex, const CPointD &p2, double distance);

}  // namespace analysis
