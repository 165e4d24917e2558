#pragma once
// Plane geometry as the application calls it: static functions without state.
//
// A point argument is whole pixels (`CPoint`, by value) or doubles (`tagDPOINT *` or `CPointD *`); in the
// families below any mixture is accepted and computed in doubles, unless whole pixels are named. `out` is a
// `tagDPOINT *` or `CPointD *`. Points are image pixels with y downward; `scale` is millimetres per pixel;
// angles are degrees. A line ab is infinite.

#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"
#include "tool/geometry/angles.h"
#include "tool/geometry/distances.h"
#include "tool/geometry/lines.h"
#include "tool/geometry/point_arguments.h"
#include "tool/geometry/transforms.h"

class CCalcTool {
 public:
  CCalcTool &operator=(const CCalcTool &) = default;

  // Distances -------------------------------------------------------------------------------------

  static double Get_Length(CPoint a, CPoint b, double scale);
  template <geometry::PointArgument A, geometry::PointArgument B>
  static double Get_Lengthd(A a, B b, double scale) {
    return geometry::length(geometry::value(a), geometry::value(b), scale);
  }
  /// Distance of p from line ab, never negative.
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::PointArgument P>
  static double Get_Suisen_Length(A a, B b, P p, double scale) {
    return geometry::distance_to_line(geometry::value(a), geometry::value(b), geometry::value(p), scale);
  }
  /// Length of the projection of segment pq onto line ab; signed along ab when `sign` is non-zero.
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::PointArgument P,
            geometry::PointArgument Q>
  static double Get_Touei_Length(A a, B b, P p, Q q, double scale, int sign) {
    return geometry::projected_length(geometry::value(a), geometry::value(b), geometry::value(p),
                                      geometry::value(q), scale, sign != 0);
  }
  /// Area of triangle abc, square millimetres.
  static double Get_Heron(CPoint a, CPoint b, CPoint c, double scale);
  /// Coordinates of d in the frame with origin a and axes ab and ac.
  static void Vartical_Length(CPoint a, CPoint b, CPoint c, CPoint d, double scale, double *horizontal,
                              double *vertical);

  // Angles ----------------------------------------------------------------------------------------

  /// Angle at the vertex, 0 to 180; -1 for an arm without length.
  static double Angle_Cal(CPoint a, CPoint vertex, CPoint c);
  template <geometry::PointArgument A, geometry::PointArgument V, geometry::PointArgument C>
  static double Angle_Cald(A a, V vertex, C c) {
    return geometry::angle_at(geometry::value(a), geometry::value(vertex), geometry::value(c));
  }
  /// Signed angle from line a1a2 to line b1b2, in (-180, 180], positive counter-clockwise on the screen.
  static double Get_Angle(CPoint a1, CPoint a2, CPoint b1, CPoint b2);
  template <geometry::PointArgument A1, geometry::PointArgument A2, geometry::PointArgument B1,
            geometry::PointArgument B2>
  static double Get_Angled(A1 a1, A2 a2, B1 b1, B2 b2) {
    return geometry::signed_angle(geometry::value(a1), geometry::value(a2), geometry::value(b1),
                                  geometry::value(b2));
  }

  // Midpoints and feet ----------------------------------------------------------------------------

  static CPointD Get_Mpoint(CPointD *a, CPointD *b);
  static CPoint Get_Mpoint(CPoint a, CPoint b);  ///< in whole pixels
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::RealPoint Out>
  static void Get_Mpointd(A a, B b, Out *out) {
    geometry::store(geometry::midpoint(geometry::value(a), geometry::value(b)), out);
  }
  /// Foot of the perpendicular from p to line ab.
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::PointArgument P,
            geometry::RealPoint Out>
  static void Get_Pointd(A a, B b, P p, Out *out) {
    geometry::store(geometry::foot(geometry::value(a), geometry::value(b), geometry::value(p)), out);
  }
  static CPointD Get_Pointd(CPointD *a, CPointD *b, CPointD *p);
  static CPoint Get_Point(CPoint a, CPoint b, CPoint p);  ///< in whole pixels, 0.5 added before truncation
  /// Projection of c onto the parallel of ab through d.
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::PointArgument C,
            geometry::PointArgument D, geometry::RealPoint Out>
  static void Get_GPointd(A a, B b, C c, D d, Out *out) {
    geometry::store(
        geometry::projection(geometry::value(a), geometry::value(b), geometry::value(c), geometry::value(d)),
        out);
  }

  // Intersections of line ab with line cd ---------------------------------------------------------

  static CPointD CrossPoint(CPointD *a, CPointD *b, CPointD *c, CPointD *d);  ///< (0, 0) when parallel
  static CPoint CrossPoint(CPoint *a, CPoint *b, CPoint *c, CPoint *d);
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::PointArgument C,
            geometry::PointArgument D, geometry::RealPoint Out>
  static void Pile_Pointd(A a, B b, C c, D d, Out *out) {
    geometry::store(
        geometry::cross_point(geometry::value(a), geometry::value(b), geometry::value(c), geometry::value(d)),
        out);
  }
  /// 1 with the point in `out`, or 0 with `out` untouched.
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::PointArgument C,
            geometry::PointArgument D, geometry::RealPoint Out>
  static int Get_Cross_Pointd(A a, B b, C c, D d, Out *out) {
    const auto crossing = geometry::intersection(geometry::value(a), geometry::value(b), geometry::value(c),
                                                 geometry::value(d));
    if (crossing) geometry::store(*crossing, out);
    return crossing.has_value();
  }
  /// 1 when the intersection, left in `out`, lies within segment ab.
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::PointArgument C,
            geometry::PointArgument D, geometry::RealPoint Out>
  static int Chk_Cross(A a, B b, C c, D d, Out *out) {
    const CPointD from = geometry::value(a);
    const CPointD to = geometry::value(b);
    const auto crossing = geometry::intersection(from, to, geometry::value(c), geometry::value(d));
    if (crossing) geometry::store(*crossing, out);
    return crossing && geometry::in_box(from, to, *crossing);
  }
  /// The first crossing of the curve with line cd: 1 with the point in `out`, or 0.
  static int Get_SPLineCross(tagPOINT *pts, short count, tagDPOINT *c, tagDPOINT *d, tagDPOINT *out);

  // Points at a distance and angle ----------------------------------------------------------------

  /// About r pixels from a towards b, the offsets truncated to whole pixels.
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::RealPoint Out>
  static void Get_CirclePointd(A a, B b, double r, Out *out) {
    geometry::store(geometry::whole_pixel_step(geometry::value(a), geometry::value(b), r), out);
  }
  static CPoint Get_CirclePoint(CPoint a, CPoint b, double r);
  /// c + k (b - a).
  static CPoint V_Move(CPoint a, CPoint b, CPoint c, double k);
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::PointArgument C,
            geometry::RealPoint Out>
  static void V_Moved(A a, B b, C c, Out *out, double k) {
    geometry::store(geometry::moved(geometry::value(a), geometry::value(b), geometry::value(c), k), out);
  }
  /// From c, `len` millimetres in the direction a -> b turned clockwise by `angle`; b when scale is 0.
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::PointArgument C,
            geometry::RealPoint Out>
  static void Trans_Pointd2(A a, B b, C c, double len, double angle, double scale, Out *out) {
    geometry::store(geometry::turned_offset(geometry::value(a), geometry::value(b), geometry::value(c), len,
                                            angle, scale),
                    out);
  }
  /// The same with `len` in pixels.
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::PointArgument C,
            geometry::RealPoint Out>
  static void Trans_Pointd3(A a, B b, C c, double len, double angle, Out *out) {
    geometry::store(
        geometry::turned_offset_px(geometry::value(a), geometry::value(b), geometry::value(c), len, angle),
        out);
  }
  /// Trans_Pointd2 from b.
  template <geometry::PointArgument A, geometry::PointArgument B, geometry::RealPoint Out>
  static void Trans_Pointd(A a, B b, double len, double angle, double scale, Out *out) {
    geometry::store(geometry::turned_offset(geometry::value(a), geometry::value(b), len, angle, scale), out);
  }
  static CPoint Trans_Point(CPoint a, CPoint b, double len, double angle, double scale);
  /// p turned clockwise about the centre; the centre when scale is 0.
  template <geometry::PointArgument C, geometry::PointArgument P, geometry::RealPoint Out>
  static void Lot_Pointd2(C centre, P p, double angle, double scale, Out *out) {
    geometry::store(geometry::rotated(geometry::value(centre), geometry::value(p), angle, scale), out);
  }
  /// p turned clockwise about the centre and placed at `factor` times its distance.
  template <geometry::PointArgument C, geometry::PointArgument P, geometry::RealPoint Out>
  static void Lot_Pointd3(C centre, P p, double angle, double factor, Out *out) {
    geometry::store(geometry::rotated_scaled(geometry::value(centre), geometry::value(p), angle, factor),
                    out);
  }
  template <geometry::RealPoint C, geometry::RealPoint P, geometry::RealPoint Out>
  static void Lot_Pointdd(C *centre, P *p, double angle, double factor, Out *out) {
    Lot_Pointd3(centre, p, angle, factor, out);
  }
  /// `len` pixels from a towards b; coordinates that are not positive become 0.
  static CPoint GetNearTraceLine(CPoint a, CPoint b, double len);

  // Frames ----------------------------------------------------------------------------------------

  /// The point at the offset (along, across), millimetres, from a in the frame of line ab. The third argument
  /// is not read.
  static void Vartical_Pointd(tagDPOINT *a, tagDPOINT *b, const void *ignored, double scale, double along,
                              double across, tagDPOINT *out);
  /// Origin of a lateral frame from landmarks in the order of the lateral list. Mode 0: projection of
  /// landmark i3 onto the parallel of i1-i2 through i4; mode 1: on the facial axis; mode 2: nasion; other
  /// modes, indices outside the list and origins that do not exist leave `out` unchanged.
  static void Get_Org(tagPOINT *landmarks, tagDPOINT *out, unsigned mode, unsigned i1, unsigned i2,
                      unsigned i3, unsigned i4);

  // Growth ----------------------------------------------------------------------------------------

  /// Standard weight, kilograms, for a height in centimetres; sex 1 male, any other value female.
  static double Get_NormalWeight(double age, double height, int sex);
};
