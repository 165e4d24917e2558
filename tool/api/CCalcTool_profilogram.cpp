// Profilograms and the agreement of jaws.

#include "tool/api/CCalcTool.h"
#include "tool/tracing/jaw_agreement.h"
#include "tool/tracing/profilogram.h"

using tracing::LateralRecord;
using tracing::SettingsRecord;

void CCalcTool::Set_Purofiro(CDC *dc, int orgX, int orgY, double mag, COLORREF color, int style,
                             const tagDPOINT *base, const tagPOINT *landmarks, double ox, double oy,
                             double angle, int mode, double supScale, double rot, int offX, int offY,
                             int drawPolygon, int ysign, int flip, int drawTeeth, const void *settings,
                             const void *rec, const void *adjust, const void *traces, int type) {
  if (!dc || !landmarks) return;
  tracing::draw_profilogram(
      *dc,
      {.landmarks = landmarks,
       .reference = {ox, oy},
       .settings = SettingsRecord(settings),
       .polygon = drawPolygon != 0,
       .teeth = drawTeeth != 0,
       .tooth_type = type,
       .adjust = adjust,
       .traces = traces},
      superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
      LateralRecord(rec), {color, style, tracing::stroke_of(mode)});
}

void CCalcTool::Draw_PA_Profiro1(CDC *dc, CPoint org, double mag, const void *pa, const void *settings) {
  if (!dc) return;
  tracing::draw_frontal_profilogram(*dc, tracing::FrontalRecord(pa), {org, mag, false},
                                    SettingsRecord(settings).frontal_line());
}

void CCalcTool::Draw_PA_Profiro1_Image(CDC *dc, CPoint org, double mag, const void *pa, const void *settings,
                                       int imageWidth, int /*imageHeight*/) {
  if (!dc) return;
  tracing::draw_frontal_profilogram_image(*dc, tracing::FrontalRecord(pa), {org, mag, false},
                                          SettingsRecord(settings).frontal_line(), imageWidth);
}

double CCalcTool::GetPileJawAgreement(const void *recA, const void *recB, int jaw) {
  const tracing::Jaw which = jaw == 0 ? tracing::Jaw::upper : tracing::Jaw::lower;
  return tracing::jaw_agreement(LateralRecord(recA), LateralRecord(recB), which);
}
