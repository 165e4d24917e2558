#pragma once
// The dental cast model as the application calls it: curves of control points and tooth widths. Lengths are
// millimetres, `scale` millimetres per pixel.

#include "tool/framework/text/CUIntArray.h"
#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"
#include "tool/model/records.h"

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
};
