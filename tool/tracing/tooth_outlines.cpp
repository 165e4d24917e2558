#include "tool/tracing/tooth_outlines.h"

#include "tool/geometry/distances.h"
#include "tool/geometry/lines.h"
#include "tool/geometry/transforms.h"

namespace tracing {

namespace {

using geometry::length;
using geometry::turned_offset;
using geometry::turned_offset_px;

// Ends of a piece that stand for its first and last point.
constexpr CPoint first_to_first{0, 0};
constexpr CPoint last_to_first{-1, -1};

double distance(CPointD a, CPointD b) {
  return length(a, b, 1.0);
}

/// Where a side point of the template lies beside its axis.
struct SidePlace {
  double along;   ///< fraction of the axis from the tip
  double across;  ///< template units from the axis
};

SidePlace side_place(const IncisorTemplate &shape, CPoint side) {
  const CPoint foot = geometry::integer_foot(shape.tip, shape.apex, side);
  return {distance(shape.tip, foot) / distance(shape.tip, shape.apex), distance(side, foot)};
}

/// The side point of the fitted tooth; `turn` degrees from the axis.
CPoint fitted_side(CPoint tip, CPoint apex, double along, double across, double turn) {
  const CPoint on_axis = geometry::integer_moved(tip, apex, tip, along);
  return geometry::truncate(turned_offset(tip, on_axis, across, turn, 1.0));
}

CPointD middle(CPointD a, CPointD b, bool whole_pixels) {
  if (!whole_pixels) return geometry::midpoint(a, b);
  return geometry::integer_midpoint(geometry::truncate(a), geometry::truncate(b));
}

FittedPiece piece(StoredOutline outline, CPoint ends, CPointD a, CPointD b) {
  return {outline, {.target_a = a, .target_b = b, .source_1 = ends, .source_2 = ends}};
}

}  // namespace

FittedTooth fitted_incisor(const IncisorTemplate &shape, CPointD tip, CPointD apex,
                           const IncisorAdjustment &adjustment, bool mirrored) {
  const CPoint whole_tip = geometry::truncate(tip);
  const CPoint whole_apex = geometry::truncate(apex);
  const double size = distance(tip, apex) / distance(shape.tip, shape.apex);
  const double quarter_turn = mirrored ? -90.0 : 90.0;
  const auto adjusted = IncisorAdjustment::applied;
  const SidePlace place_3 = side_place(shape, shape.side_3);
  const SidePlace place_4 = side_place(shape, shape.side_4);
  const CPoint side_3 = fitted_side(whole_tip, whole_apex, adjusted(adjustment.position_3, place_3.along),
                                    adjusted(adjustment.side_3, place_3.across) * size, -quarter_turn);
  const CPoint side_4 = fitted_side(whole_tip, whole_apex, adjusted(adjustment.position_4, place_4.along),
                                    adjusted(adjustment.side_4, place_4.across) * size, quarter_turn);
  FittedTooth tooth;
  tooth.add({shape.pieces[0],
             {.target_a = tip, .target_b = side_3, .source_1 = shape.tip, .source_2 = shape.side_3}});
  tooth.add({shape.pieces[1],
             {.target_a = side_3, .target_b = apex, .source_1 = shape.side_3, .source_2 = shape.apex}});
  tooth.add({shape.pieces[2],
             {.target_a = side_4, .target_b = apex, .source_1 = shape.side_4, .source_2 = shape.apex}});
  tooth.add({shape.pieces[3],
             {.target_a = tip, .target_b = side_4, .source_1 = shape.tip, .source_2 = shape.side_4}});
  return tooth;
}

FittedTooth fitted_upper_molar(const MolarTemplate &shape, const MolarPoints &at, const MolarFit &fit) {
  constexpr double crown_turn = 41.5;
  const auto &[a, b, c] = at;
  const CPointD d =
      turned_offset(a, b, distance(a, b) * shape.d / shape.ab, fit.upward ? crown_turn : -crown_turn, 1.0);
  const double to_c = distance(b, c);
  const CPointD e = turned_offset_px(b, c, middle(a, b, fit.whole_pixels), to_c * shape.e / shape.c, 0.0);
  const CPointD f = turned_offset_px(b, c, middle(b, d, fit.whole_pixels), to_c * shape.f / shape.c, 0.0);
  FittedTooth tooth;
  tooth.add(piece(shape.pieces[0], last_to_first, a, b));
  tooth.add(piece(shape.pieces[1], last_to_first, e, a));
  tooth.add(piece(shape.pieces[2], first_to_first, e, c));
  tooth.add(piece(shape.pieces[3], last_to_first, f, c));
  tooth.add(piece(shape.pieces[4], first_to_first, f, d));
  tooth.add(piece(shape.pieces[5], first_to_first, d, b));
  return tooth;
}

FittedTooth fitted_lower_molar(const MolarTemplate &shape, const MolarPoints &at, const MolarFit &fit) {
  constexpr double crown_turn = 57.0;
  const auto &[a, b, c] = at;
  const CPointD d =
      turned_offset(b, a, distance(a, b) * shape.d / shape.ab, fit.upward ? -crown_turn : crown_turn, 1.0);
  const double to_c = distance(a, c);
  const CPointD e = turned_offset_px(a, c, a, to_c * shape.e / shape.c, 0.0);
  const CPointD f = turned_offset_px(e, c, e, to_c * 0.5, fit.upward ? shape.f : -shape.f);
  FittedTooth tooth;
  tooth.add(piece(shape.pieces[0], first_to_first, a, d));
  tooth.add(piece(shape.pieces[1], first_to_first, d, e));
  tooth.add(piece(shape.pieces[2], last_to_first, c, e));
  tooth.add(piece(shape.pieces[3], first_to_first, c, f));
  tooth.add(piece(shape.pieces[4], last_to_first, b, f));
  tooth.add(piece(shape.pieces[5], last_to_first, a, b));
  return tooth;
}

}  // namespace tracing
