#include "tool/api/CCalcTool.h"

#include "tool/geometry/frames.h"
#include "tool/geometry/growth_weight.h"
#include "tool/geometry/splines.h"
#include "tool/tracing/superimposition.h"

using geometry::store;
using geometry::value;

double CCalcTool::Get_Length(CPoint a, CPoint b, double scale) {
  return geometry::integer_length(a, b, scale);
}

double CCalcTool::Get_Heron(CPoint a, CPoint b, CPoint c, double scale) {
  return geometry::triangle_area(a, b, c, scale);
}

void CCalcTool::Vartical_Length(CPoint a, CPoint b, CPoint c, CPoint d, double scale, double *horizontal,
                                double *vertical) {
  const geometry::AxisOffsets offsets = geometry::axis_offsets(a, b, c, d, scale);
  *horizontal = offsets.horizontal;
  *vertical = offsets.vertical;
}

double CCalcTool::Angle_Cal(CPoint a, CPoint vertex, CPoint c) {
  return geometry::angle_at(a, vertex, c);
}

double CCalcTool::Get_Angle(CPoint a1, CPoint a2, CPoint b1, CPoint b2) {
  return geometry::signed_angle(a1, a2, b1, b2);
}

CPointD CCalcTool::Get_Mpoint(CPointD *a, CPointD *b) {
  return geometry::midpoint(value(a), value(b));
}

CPoint CCalcTool::Get_Mpoint(CPoint a, CPoint b) {
  return geometry::integer_midpoint(a, b);
}

CPointD CCalcTool::Get_Pointd(CPointD *a, CPointD *b, CPointD *p) {
  return geometry::foot(value(a), value(b), value(p));
}

CPoint CCalcTool::Get_Point(CPoint a, CPoint b, CPoint p) {
  return geometry::integer_foot(a, b, p);
}

CPointD CCalcTool::CrossPoint(CPointD *a, CPointD *b, CPointD *c, CPointD *d) {
  return geometry::cross_point(value(a), value(b), value(c), value(d));
}

CPoint CCalcTool::CrossPoint(CPoint *a, CPoint *b, CPoint *c, CPoint *d) {
  return geometry::truncate(geometry::cross_point(*a, *b, *c, *d));
}

int CCalcTool::Get_SPLineCross(tagPOINT *pts, short count, tagDPOINT *c, tagDPOINT *d, tagDPOINT *out) {
  const auto crossing = geometry::curve_crossing({pts, count}, value(c), value(d));
  if (crossing) store(*crossing, out);
  return crossing.has_value();
}

CPoint CCalcTool::Get_CirclePoint(CPoint a, CPoint b, double r) {
  return geometry::truncate(geometry::whole_pixel_step(a, b, r));
}

CPoint CCalcTool::V_Move(CPoint a, CPoint b, CPoint c, double k) {
  return geometry::integer_moved(a, b, c, k);
}

CPoint CCalcTool::Trans_Point(CPoint a, CPoint b, double len, double angle, double scale) {
  return geometry::truncate(geometry::turned_offset(a, b, len, angle, scale));
}

CPoint CCalcTool::GetNearTraceLine(CPoint a, CPoint b, double len) {
  return geometry::near_trace_point(a, b, len);
}

void CCalcTool::Vartical_Pointd(tagDPOINT *a, tagDPOINT *b, const void * /*ignored*/, double scale,
                                double along, double across, tagDPOINT *out) {
  store(geometry::offset_in_frame(value(a), value(b), scale, along, across), out);
}

void CCalcTool::Get_Org(tagPOINT *landmarks, tagDPOINT *out, unsigned mode, unsigned i1, unsigned i2,
                        unsigned i3, unsigned i4) {
  const auto origin = tracing::reference_point(landmarks, {mode, i1, i2, i3, i4});
  if (origin) store(*origin, out);
}

double CCalcTool::Get_NormalWeight(double age, double height, int sex) {
  return geometry::standard_weight(age, height, sex);
}
