#pragma once
// A template tooth fitted onto the points of a tracing: which piece goes onto which two points. Everything is
// in the target's coordinates, usually device pixels; nothing is drawn here.

#include <array>
#include <span>

#include "tool/geometry/CPointD.h"
#include "tool/tracing/outline_transfer.h"
#include "tool/tracing/record_views.h"
#include "tool/tracing/tooth_templates.h"

namespace tracing {

struct FittedPiece {
  StoredOutline outline;
  OutlineFit fit;
};

class FittedTooth {
 public:
  void add(const FittedPiece &piece) { pieces_[count_++] = piece; }
  std::span<const FittedPiece> pieces() const { return std::span(pieces_).first(count_); }

 private:
  std::array<FittedPiece, 6> pieces_{};
  std::size_t count_ = 0;
};

/// An incisor between its tip and its root apex. The side points, where the outline is widest, are whole
/// pixels built from the truncated tip and apex; `mirrored` exchanges the sides they lie on.
FittedTooth fitted_incisor(const IncisorTemplate &shape, CPointD tip, CPointD apex,
                           const IncisorAdjustment &adjustment, bool mirrored);

/// The points of a molar. Upper: A the distal end of the crown, B on the chewing surface, C where the roots
/// part. Lower: A on the chewing surface, B the distal end, C where the roots part.
struct MolarPoints {
  CPointD a;
  CPointD b;
  CPointD c;
};
/// How the constructed points of a molar are formed.
struct MolarFit {
  bool upward = false;        ///< y runs upward: the crown's other end is turned the other way
  bool whole_pixels = false;  ///< midpoints in whole pixels
};
FittedTooth fitted_upper_molar(const MolarTemplate &shape, const MolarPoints &at, const MolarFit &fit);
FittedTooth fitted_lower_molar(const MolarTemplate &shape, const MolarPoints &at, const MolarFit &fit);

}  // namespace tracing
