#pragma once
// The dental cast model as the application calls it: curves of control points and tooth widths. Lengths are
// millimetres, `scale` millimetres per pixel.

#include "tool/framework/text/CUIntArray.h"
#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"
#include "tool/model/records.h"

class CDC;

class CModelTool {
 public:
  CModelTool() = default;
  ~CModelTool() = default;
  CModelTool &operator=(const CModelTool &) = default;

  // Curves ----------------------------------------------------------------------------------------

  /// Point at arc length `target` within the spans start <= i < end, in `out`. Returns the length up to the
  /// end of the chord that reached it, or the whole length with `out` untouched.
  static double Get_SPLinePointd(tagDPOINT *pts, short count, short start, short end, double scale,
                                 double target, tagDPOINT *out);
  /// First point of a curve of 12 points, stepping `position` from its value on entry, that lies at least
  /// `distance` from `from`: 1 with the point in `out`, or 0 when `limit` was passed. Count, start and end
  /// are not used.
  static int Get_Straight_SPLinePointd(tagDPOINT *pts, short count, short start, short end, double scale,
                                       double distance, tagDPOINT from, bool forward, double limit,
                                       tagDPOINT *out, double *position);
  /// Appends the kept points of a curve, mapped to the view, and returns their number. Coordinates left of or
  /// above the origin appear as the unsigned form of the negative number.
  static int GetSPLinePt(CUIntArray *xs, CUIntArray *ys, CPoint origin, double zoom, tagPOINT *pts,
                         short count, unsigned char closed, int flip);
  /// The point between a (at l0) and b (at l1) where the length is `target`.
  static void GetSpacePoint(tagDPOINT *a, tagDPOINT *b, double l0, double l1, double target, tagDPOINT *out);

  // Teeth -----------------------------------------------------------------------------------------

  /// Width of a tooth, position 0 to 5; jaw 0 upper, side 0 first. A typed width other than 0 rules.
  static double GetToothLen(int position, int jaw, int side, tagMOEX *ex, tagPOINTMO *mo);
  /// 1 when display entry 0 to 27 is to be shown, given the 24 presence flags.
  static int ShowChack(int entry, unsigned char *flags);
  /// Arc-length position nearest to control point 1 of an arch of 12 points.
  static double Get6KinshinLength(tagDPOINT *arch, double limit, double scale);

  // Arch wire and crowns. `origin` and `zoom` map image pixels to the view; doubles and points without a name
  // are not read
  // ------------------------------------------------------------------------------------------------

  /// Pair k of wire points: k = 0 to 9 in tenths from q towards p, perpendicular to it at the offsets
  /// (pixels) times the ratios of k; from 10 on p for both; -1 at the offsets beside r. Side 6 exchanges the
  /// two.
  static void ComputeWirePointd(double, int side, const tagDPOINT *p, const tagDPOINT *q, const tagDPOINT *r,
                                const double *ratioA, const double *ratioB, double offsetA, double offsetB,
                                int k, tagDPOINT *outA, tagDPOINT *outB);
  /// The curve through 11 points of side A, the front point and 11 points of side B backwards.
  static void DrawWire(CDC *dc, CPoint origin, double zoom, double, const tagDPOINT *front, const tagDPOINT *,
                       const tagDPOINT *, double, double, const CPoint *sideA, const CPoint *sideB,
                       COLORREF color);
  static void DrawWired(CDC *dc, CPoint origin, double zoom, double, const tagDPOINT *front,
                        const tagDPOINT *, const tagDPOINT *, double, double, const tagDPOINT *sideA,
                        const tagDPOINT *sideB, COLORREF color);
  /// The outline of a tooth between its width points p1 and p2. Nothing for a tooth without an outline.
  static void DrawTooth(CDC *dc, CPoint origin, double zoom, double, int family, int code, bool mirror,
                        int tooth, const tagDPOINT *p1, const tagDPOINT *p2, COLORREF color);
  /// The same outline as points, appended; gives their number.
  static int GetToothPt(CUIntArray *xs, CUIntArray *ys, CPoint origin, double zoom, double, int family,
                        int code, bool mirror, int tooth, const tagDPOINT *p1, const tagDPOINT *p2);
};
