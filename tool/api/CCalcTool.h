#pragma once
// Plane geometry, and the drawing of tracings, as the application calls them: static functions without state.
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
#include "tool/tracing/superimposition.h"
#include "tool/tracing/teeth.h"

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

  // Superimposition
  // ------------------------------------------------------------------------------------------------
  // A tracing is laid on the displayed frame: its point (ox, oy) falls on `base`, it is turned by `angle`
  // (radians, positive turns counter-clockwise on the screen) and scaled by `supScale` (0 shows nothing), the
  // display is turned by `rot` (degrees, clockwise) about porion of `rec`, the lateral tracing record; `offX`
  // and `offY` (image pixels) are subtracted, the rest is magnified by `mag`, `orgX` and `orgY` (device
  // pixels) are subtracted. `ysign` -1 negates the base's y; `flip` other than 0: y upward from orgY. Device
  // integers truncate toward zero. `mode` 1 draws, any other value draws an exclusive-or rubber band.

  /// Device point of the offset (dx, dy) from the tracing's reference point; (0, 0) for supScale 0.
  static CPoint Point_Make(double dx, double dy, int orgX, int orgY, const tagDPOINT *base, double mag,
                           double angle, double supScale, int offX, int offY, double rot, int ysign, int flip,
                           const void *rec);
  /// The same of the point p.
  template <geometry::PointArgument P>
  static CPoint Point_Make(int orgX, int orgY, const tagDPOINT *base, double ox, double oy, P p, double mag,
                           double angle, double supScale, int offX, int offY, double rot, int ysign, int flip,
                           const void *rec) {
    const CPointD at = geometry::value(p);
    return Point_Make(at.x - ox, at.y - oy, orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign,
                      flip, rec);
  }
  /// The same without truncation, turned about `centre`; supScale 0 leaves `out` untouched.
  static void Get_TRPoint(double dx, double dy, int orgX, int orgY, const tagDPOINT *base, tagDPOINT *out,
                          double mag, double angle, double supScale, int offX, int offY, double rot,
                          int ysign, int flip, CPoint centre);
  /// In unmagnified pixels, for finding what is pointed at.
  static CPoint Draw_MakeLine(double dx, double dy, int orgX, int orgY, const tagDPOINT *base, double angle,
                              double supScale, int offX, int offY, double rot, const void *rec);
  /// The same for the offset of p from the base.
  static CPoint Line_Make2(int orgX, int orgY, const tagDPOINT *base, CPoint p, double angle, double supScale,
                           int offX, int offY, double rot, const void *rec);
  /// The line between two offsets, in the record's widths; a rubber band is white, solid and 1 wide.
  static void Draw_MakeLine(CDC *dc, double dx1, double dy1, double dx2, double dy2, COLORREF color,
                            int style, int orgX, int orgY, const tagDPOINT *base, double mag, double angle,
                            int mode, double supScale, int offX, int offY, double rot, int ysign, int flip,
                            const void *rec);
  /// The line between two points.
  template <geometry::PointArgument P1, geometry::PointArgument P2>
  static void Line_Make2(CDC *dc, COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base,
                         double ox, double oy, P1 p1, P2 p2, double mag, double angle, int mode,
                         double supScale, int offX, int offY, double rot, int ysign, int flip,
                         const void *rec) {
    const CPointD from = geometry::value(p1) - CPointD(ox, oy);
    const CPointD to = geometry::value(p2) - CPointD(ox, oy);
    Draw_MakeLine(dc, from.x, from.y, to.x, to.y, color, style, orgX, orgY, base, mag, angle, mode, supScale,
                  offX, offY, rot, ysign, flip, rec);
  }
  /// Angle and base point for laying tracing B (record) on tracing A (landmarks). refMode 0: on landmarks
  /// i1-i2, the base from i1 to i4; 1: on basion-nasion at the facial axis; 2: on it at nasion. Mode 0
  /// corrects the angle by B's Frankfort line. Positive: B's line lies counter-clockwise of A's on the
  /// screen. What cannot be formed is left untouched.
  static void Get_Profiro_Status(const tagPOINT *landmarks, double *angle, double *orgX, double *orgY,
                                 unsigned mode, unsigned refMode, unsigned i1, unsigned i2, unsigned i3,
                                 unsigned i4, const void *recB);

  // The tracing itself on the display: turned by whole degrees, and life-size on a printer when `actual` is
  // not 0 and `noActual` is 0 (a millimetre is a logical unit, distances count from porion, y upward)
  // ------------------------------------------------------------------------------------------------

  /// Device point of p. `factor` multiplies `mag`, except in life size.
  template <geometry::PointArgument P>
  static CPoint Point_Make2(CDC *dc, int orgX, int orgY, double mag, P p, double rot, const void *rec,
                            int actual, int noActual, double factor) {
    return own_point(dc, orgX, orgY, mag, geometry::value(p), rot, rec, actual, noActual, factor);
  }
  /// A label above the point, `size` device units high.
  static void Point_Text(CDC *dc, int orgX, int orgY, double mag, const tagDPOINT *p, const char *text,
                         int size, COLORREF color, double rot, const void *rec, int actual, int noActual,
                         double factor);

  // Hand-drawn traces (entries of 2000 bytes) and structure splines
  // ------------------------------------------------------------------------------------------------

  /// An entry of the tracing itself, turned about `centre`; showPoints 1: with a disc on every point.
  static void DrawFreelineTrace(CDC *dc, CPoint org, double mag, CPoint centre, const void *trace, double rot,
                                int width, COLORREF color, unsigned style, int showPoints,
                                COLORREF pointColor);
  /// An entry of a superimposed tracing. A rubber band keeps colour, style and width.
  static void Draw_SPLine2FreeLine(CDC *dc, int orgX, int orgY, double mag, COLORREF color, int style,
                                   const tagDPOINT *base, double ox, double oy, double angle, int mode,
                                   double supScale, double rot, int offX, int offY, int ysign, int flip,
                                   const void *trace, const void *rec);
  /// Moves every point of an entry by (-dx, -dy), in 16 bits.
  static void MoveFreelineTrace(void *trace, int dx, int dy);
  /// Moves every point by (-dx, -dy) and turns it counter-clockwise by `angle` degrees about the centre.
  static void MoveAndTransFreelineTrace(void *trace, int dx, int dy, tagDPOINT centre, double angle,
                                        double factor);
  /// Device coordinates of a spline point. Codes -1 and -2, and 15111 and 15210 on a printer, negate the
  /// base's y; `flip` counts on a printer only.
  template <geometry::PointArgument P>
  static void Trans_SPline(CDC *dc, int orgX, int orgY, const tagDPOINT *base, double ox, double oy,
                           double factor, double angle, P p, double supScale, tagDPOINT *out, unsigned code,
                           double mag, int flip, int offX, int offY, double rot, CPoint centre) {
    const CPointD offset = geometry::value(p) - CPointD(ox, oy);
    spline_point(dc, offset, out, factor, code,
                 superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, 1, flip, centre));
  }
  /// One structure's spline on a superimposed tracing; a single point is a disc.
  static void Draw_SPLine_u(CDC *dc, int orgX, int orgY, double mag, COLORREF color, int style,
                            const tagDPOINT *base, double ox, double oy, double angle, int mode,
                            double supScale, double rot, int offX, int offY, int ysign, int flip,
                            const tagPOINT *points, short count, unsigned char closed, const void *rec);
  /// The outlines of a superimposed tracing: traces, and splines of structures without one. `only`: one
  /// structure or kind of trace, -1 all.
  static void Set_Trace(CDC *dc, int orgX, int orgY, double mag, COLORREF color, int style,
                        const tagDPOINT *base, double ox, double oy, double angle, int mode, double supScale,
                        double rot, int offX, int offY, int ysign, int flip, const void *rec,
                        const void *traces, const unsigned char *splines, int only);
  /// A structure spline record without second splines (3504 bytes) as one with them; bytes from 6672 on stay.
  static void ConvSPPO_1to2(const void *older, void *newer);

  // Teeth: templates (type 0 or 1) fitted onto landmarks, or their traces. `show` 0 draws nothing; `adjust`
  // is the template adjustment record, `mirror` exchanges an incisor's sides
  // ------------------------------------------------------------------------------------------------

  /// A template at offsets from the reference point: tip and apex of an incisor, three points of a molar.
  static void Write_U1(CDC *dc, double tipX, double tipY, double apexX, double apexY, COLORREF color,
                       int style, int orgX, int orgY, const tagDPOINT *base, double mag, double angle,
                       int mode, double supScale, int offX, int offY, double rot, int ysign, int flip,
                       int show, int type, const void *rec, const void *adjust, int mirror);
  static void Write_L1(CDC *dc, double tipX, double tipY, double apexX, double apexY, COLORREF color,
                       int style, int orgX, int orgY, const tagDPOINT *base, double mag, double angle,
                       int mode, double supScale, int offX, int offY, double rot, int ysign, int flip,
                       int show, int type, const void *rec, const void *adjust, int mirror);
  static void Write_Um(CDC *dc, double ax, double ay, double bx, double by, double cx, double cy,
                       COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base, double mag,
                       double angle, int mode, double supScale, int offX, int offY, double rot, int ysign,
                       int flip, int show, int type, const void *rec);
  static void Write_Lm(CDC *dc, double ax, double ay, double bx, double by, double cx, double cy,
                       COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base, double mag,
                       double angle, int mode, double supScale, int offX, int offY, double rot, int ysign,
                       int flip, int show, int type, const void *rec);

  // The same with the record given in the superimposition group as well; the later one counts.
  static void Write_U1(CDC *dc, double tipX, double tipY, double apexX, double apexY, COLORREF color,
                       int style, int orgX, int orgY, const tagDPOINT *base, double mag, double angle,
                       int mode, double supScale, int offX, int offY, double rot, int ysign, int flip,
                       const void * /*rec*/, int show, int type, const void *rec, const void *adjust,
                       int mirror) {
    Write_U1(dc, tipX, tipY, apexX, apexY, color, style, orgX, orgY, base, mag, angle, mode, supScale, offX,
             offY, rot, ysign, flip, show, type, rec, adjust, mirror);
  }
  static void Write_L1(CDC *dc, double tipX, double tipY, double apexX, double apexY, COLORREF color,
                       int style, int orgX, int orgY, const tagDPOINT *base, double mag, double angle,
                       int mode, double supScale, int offX, int offY, double rot, int ysign, int flip,
                       const void * /*rec*/, int show, int type, const void *rec, const void *adjust,
                       int mirror) {
    Write_L1(dc, tipX, tipY, apexX, apexY, color, style, orgX, orgY, base, mag, angle, mode, supScale, offX,
             offY, rot, ysign, flip, show, type, rec, adjust, mirror);
  }
  static void Write_Um(CDC *dc, double ax, double ay, double bx, double by, double cx, double cy,
                       COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base, double mag,
                       double angle, int mode, double supScale, int offX, int offY, double rot, int ysign,
                       int flip, const void * /*rec*/, int show, int type, const void *rec) {
    Write_Um(dc, ax, ay, bx, by, cx, cy, color, style, orgX, orgY, base, mag, angle, mode, supScale, offX,
             offY, rot, ysign, flip, show, type, rec);
  }
  static void Write_Lm(CDC *dc, double ax, double ay, double bx, double by, double cx, double cy,
                       COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base, double mag,
                       double angle, int mode, double supScale, int offX, int offY, double rot, int ysign,
                       int flip, const void * /*rec*/, int show, int type, const void *rec) {
    Write_Lm(dc, ax, ay, bx, by, cx, cy, color, style, orgX, orgY, base, mag, angle, mode, supScale, offX,
             offY, rot, ysign, flip, show, type, rec);
  }

  /// A tooth of a superimposed tracing, or its trace, which follows from where the tooth was traced.
  static void Draw_U1(CDC *dc, COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base,
                      double ox, double oy, geometry::PointArgument auto tip,
                      geometry::PointArgument auto apex, geometry::PointArgument auto tracedTip,
                      geometry::PointArgument auto tracedApex, double mag, double angle, int mode,
                      double supScale, int offX, int offY, double rot, int ysign, int flip, int show,
                      int type, const void *rec, const void *adjust, const void *traces, int mirror) {
    using geometry::value;
    draw_tooth(dc, tracing::Tooth::upper_incisor,
               {{value(tip), value(apex), {}}, value(tracedTip), value(tracedApex), {ox, oy}},
               {type, adjust, mirror != 0},
               superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
               show, rec, traces, {color, style, tracing::stroke_of(mode)});
  }
  static void Draw_L1(CDC *dc, COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base,
                      double ox, double oy, geometry::PointArgument auto tip,
                      geometry::PointArgument auto apex, geometry::PointArgument auto tracedTip,
                      geometry::PointArgument auto tracedApex, double mag, double angle, int mode,
                      double supScale, int offX, int offY, double rot, int ysign, int flip, int show,
                      int type, const void *rec, const void *adjust, const void *traces, int mirror) {
    using geometry::value;
    draw_tooth(dc, tracing::Tooth::lower_incisor,
               {{value(tip), value(apex), {}}, value(tracedTip), value(tracedApex), {ox, oy}},
               {type, adjust, mirror != 0},
               superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
               show, rec, traces, {color, style, tracing::stroke_of(mode)});
  }
  static void Draw_Um(CDC *dc, COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base,
                      double ox, double oy, geometry::PointArgument auto a, geometry::PointArgument auto b,
                      geometry::PointArgument auto c, geometry::PointArgument auto tracedA,
                      geometry::PointArgument auto tracedB, double mag, double angle, int mode,
                      double supScale, int offX, int offY, double rot, int ysign, int flip, int show,
                      int type, const void *rec, const void *traces) {
    using geometry::value;
    draw_tooth(dc, tracing::Tooth::upper_molar,
               {{value(a), value(b), value(c)}, value(tracedA), value(tracedB), {ox, oy}},
               {type, nullptr, false},
               superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
               show, rec, traces, {color, style, tracing::stroke_of(mode)});
  }
  static void Draw_Lm(CDC *dc, COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base,
                      double ox, double oy, geometry::PointArgument auto a, geometry::PointArgument auto b,
                      geometry::PointArgument auto c, geometry::PointArgument auto tracedA,
                      geometry::PointArgument auto tracedB, double mag, double angle, int mode,
                      double supScale, int offX, int offY, double rot, int ysign, int flip, int show,
                      int type, const void *rec, const void *traces) {
    using geometry::value;
    draw_tooth(dc, tracing::Tooth::lower_molar,
               {{value(a), value(b), value(c)}, value(tracedA), value(tracedB), {ox, oy}},
               {type, nullptr, false},
               superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
               show, rec, traces, {color, style, tracing::stroke_of(mode)});
  }

  /// A tooth of the tracing itself; imageWidth other than 0: into the image bitmap. showPoints 1: a disc on
  /// every point of a trace. Nothing when `settings` hides teeth.
  static void Draw_U1Ex(CDC *dc, int orgX, int orgY, double mag, geometry::PointArgument auto tip,
                        geometry::PointArgument auto apex, COLORREF color, int style, const void *adjust,
                        const void *traces, int imageWidth, int imageHeight, const void *settings,
                        int noActual, double rot, const void *rec, double factor, int type, int showPoints,
                        COLORREF pointColor) {
    own_tooth(dc, tracing::Tooth::upper_incisor, orgX, orgY, mag,
              {geometry::value(tip), geometry::value(apex), {}}, color, style, adjust, traces, imageWidth,
              imageHeight, settings, noActual, rot, rec, factor, type, showPoints, pointColor);
  }
  static void Draw_L1Ex(CDC *dc, int orgX, int orgY, double mag, geometry::PointArgument auto tip,
                        geometry::PointArgument auto apex, COLORREF color, int style, const void *adjust,
                        const void *traces, int imageWidth, int imageHeight, const void *settings,
                        int noActual, double rot, const void *rec, double factor, int type, int showPoints,
                        COLORREF pointColor) {
    own_tooth(dc, tracing::Tooth::lower_incisor, orgX, orgY, mag,
              {geometry::value(tip), geometry::value(apex), {}}, color, style, adjust, traces, imageWidth,
              imageHeight, settings, noActual, rot, rec, factor, type, showPoints, pointColor);
  }
  static void Draw_UmEx(CDC *dc, int orgX, int orgY, double mag, geometry::PointArgument auto a,
                        geometry::PointArgument auto b, geometry::PointArgument auto c, COLORREF color,
                        int style, const void *traces, int imageWidth, int imageHeight, const void *settings,
                        int noActual, double rot, const void *rec, double factor, int type, int showPoints,
                        COLORREF pointColor) {
    own_tooth(dc, tracing::Tooth::upper_molar, orgX, orgY, mag,
              {geometry::value(a), geometry::value(b), geometry::value(c)}, color, style, nullptr, traces,
              imageWidth, imageHeight, settings, noActual, rot, rec, factor, type, showPoints, pointColor);
  }
  static void Draw_LmEx(CDC *dc, int orgX, int orgY, double mag, geometry::PointArgument auto a,
                        geometry::PointArgument auto b, geometry::PointArgument auto c, COLORREF color,
                        int style, const void *traces, int imageWidth, int imageHeight, const void *settings,
                        int noActual, double rot, const void *rec, double factor, int type, int showPoints,
                        COLORREF pointColor) {
    own_tooth(dc, tracing::Tooth::lower_molar, orgX, orgY, mag,
              {geometry::value(a), geometry::value(b), geometry::value(c)}, color, style, nullptr, traces,
              imageWidth, imageHeight, settings, noActual, rot, rec, factor, type, showPoints, pointColor);
  }

  // Profilograms
  // ------------------------------------------------------------------------------------------------

  /// The lateral profilogram of a superimposed tracing, with its teeth unless type is -1. `landmarks` in the
  /// order of the lateral list.
  static void Set_Purofiro(CDC *dc, int orgX, int orgY, double mag, COLORREF color, int style,
                           const tagDPOINT *base, const tagPOINT *landmarks, double ox, double oy,
                           double angle, int mode, double supScale, double rot, int offX, int offY,
                           int drawPolygon, int ysign, int flip, int drawTeeth, const void *settings,
                           const void *rec, const void *adjust, const void *traces, int type);
  /// The frontal one, in colour, style and width of the settings.
  static void Draw_PA_Profiro1(CDC *dc, CPoint org, double mag, const void *pa, const void *settings);
  /// The same in an image bitmap, whose width sets the line width.
  static void Draw_PA_Profiro1_Image(CDC *dc, CPoint org, double mag, const void *pa, const void *settings,
                                     int imageWidth, int imageHeight);
  /// How well the jaws of two lateral tracings agree in size: length of the jaw in B by its length in A, both
  /// in millimetres, 1 for equal ones. Jaw 0: ANS-PNS, 1: Go-Me. 0 when a landmark or scale is missing.
  static double GetPileJawAgreement(const void *recA, const void *recB, int jaw);

 private:
  static tracing::Superimposition superimposition(int orgX, int orgY, const tagDPOINT *base, double mag,
                                                  double angle, double supScale, int offX, int offY,
                                                  double rot, int ysign, int flip, CPoint centre);
  static tracing::Superimposition superimposition(int orgX, int orgY, const tagDPOINT *base, double mag,
                                                  double angle, double supScale, int offX, int offY,
                                                  double rot, int ysign, int flip, const void *rec);
  static CPoint own_point(const CDC *dc, int orgX, int orgY, double mag, CPointD p, double rot,
                          const void *rec, int actual, int noActual, double factor);
  static void spline_point(const CDC *dc, CPointD offset, tagDPOINT *out, double factor, unsigned code,
                           const tracing::Superimposition &on);
  static void draw_tooth(CDC *dc, tracing::Tooth tooth, const tracing::MovedTooth &points,
                         const tracing::TemplateChoice &choice, const tracing::Superimposition &on, int show,
                         const void *rec, const void *traces, const tracing::ToothInk &ink);
  static void own_tooth(CDC *dc, tracing::Tooth tooth, int orgX, int orgY, double mag,
                        const tracing::ToothPoints &at, COLORREF color, int style, const void *adjust,
                        const void *traces, int imageWidth, int imageHeight, const void *settings,
                        int noActual, double rot, const void *rec, double factor, int type, int showPoints,
                        COLORREF pointColor);
};
