// Superimposition, the tracing itself on the display, straight lines and labels.

#include "tool/api/CCalcTool.h"
#include "tool/tracing/display_mapping.h"
#include "tool/tracing/superimposed_line.h"

using geometry::store;
using geometry::value;
using tracing::LateralRecord;

tracing::Superimposition CCalcTool::superimposition(int orgX, int orgY, const tagDPOINT *base, double mag,
                                                    double angle, double supScale, int offX, int offY,
                                                    double rot, int ysign, int flip, CPoint centre) {
  return {.base = value(base),
          .angle = angle,
          .scale = supScale,
          .rotation = rot,
          .centre = centre,
          .offset = {offX, offY},
          .mag = mag,
          .origin = {orgX, orgY},
          .ysign = ysign,
          .flip = flip != 0};
}

tracing::Superimposition CCalcTool::superimposition(int orgX, int orgY, const tagDPOINT *base, double mag,
                                                    double angle, double supScale, int offX, int offY,
                                                    double rot, int ysign, int flip, const void *rec) {
  const CPoint porion = rot == 0.0 ? CPoint() : LateralRecord(rec).porion();
  return superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, porion);
}

CPoint CCalcTool::Point_Make(double dx, double dy, int orgX, int orgY, const tagDPOINT *base, double mag,
                             double angle, double supScale, int offX, int offY, double rot, int ysign,
                             int flip, const void *rec) {
  return tracing::device_point(
      superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec), {dx, dy});
}

void CCalcTool::Get_TRPoint(double dx, double dy, int orgX, int orgY, const tagDPOINT *base, tagDPOINT *out,
                            double mag, double angle, double supScale, int offX, int offY, double rot,
                            int ysign, int flip, CPoint centre) {
  if (supScale == 0.0) return;
  store(tracing::device_coordinates(
            superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, centre),
            {dx, dy}),
        out);
}

CPoint CCalcTool::Draw_MakeLine(double dx, double dy, int orgX, int orgY, const tagDPOINT *base, double angle,
                                double supScale, int offX, int offY, double rot, const void *rec) {
  return tracing::image_point(
      superimposition(orgX, orgY, base, 1.0, angle, supScale, offX, offY, rot, 1, 0, rec), {dx, dy});
}

CPoint CCalcTool::Line_Make2(int orgX, int orgY, const tagDPOINT *base, CPoint p, double angle,
                             double supScale, int offX, int offY, double rot, const void *rec) {
  const CPointD offset = CPointD(p) - value(base);
  return Draw_MakeLine(offset.x, offset.y, orgX, orgY, base, angle, supScale, offX, offY, rot, rec);
}

void CCalcTool::Draw_MakeLine(CDC *dc, double dx1, double dy1, double dx2, double dy2, COLORREF color,
                              int style, int orgX, int orgY, const tagDPOINT *base, double mag, double angle,
                              int mode, double supScale, int offX, int offY, double rot, int ysign, int flip,
                              const void *rec) {
  if (!dc) return;
  tracing::draw_superimposed_line(
      *dc, superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
      {dx1, dy1}, {dx2, dy2}, LateralRecord(rec).line(color, style), tracing::stroke_of(mode));
}

void CCalcTool::Get_Profiro_Status(const tagPOINT *landmarks, double *angle, double *orgX, double *orgY,
                                   unsigned mode, unsigned refMode, unsigned i1, unsigned i2, unsigned i3,
                                   unsigned i4, const void *recB) {
  const tracing::ReferenceChoice choice{refMode, i1, i2, i3, i4};
  if (const auto turn = tracing::reference_angle(landmarks, recB, choice, mode == 0)) *angle = *turn;
  if (const auto origin = tracing::reference_point(landmarks, choice)) {
    *orgX = origin->x;
    *orgY = origin->y;
  }
}

// The tracing itself ------------------------------------------------------------------------------

CPoint CCalcTool::own_point(const CDC *dc, int orgX, int orgY, double mag, CPointD p, double rot,
                            const void *rec, int actual, int noActual, double factor) {
  const bool life_size = dc && tracing::life_size(*dc, actual != 0, noActual != 0);
  return tracing::device_point({{orgX, orgY}, mag, rot, factor, life_size}, LateralRecord(rec), p);
}

void CCalcTool::Point_Text(CDC *dc, int orgX, int orgY, double mag, const tagDPOINT *p, const char *text,
                           int size, COLORREF color, double rot, const void *rec, int actual, int noActual,
                           double factor) {
  if (!dc) return;
  const bool life_size = tracing::life_size(*dc, actual != 0, noActual != 0);
  tracing::draw_label(*dc, {{orgX, orgY}, mag, rot, factor, life_size}, LateralRecord(rec), value(p),
                      {text, size, color});
}
