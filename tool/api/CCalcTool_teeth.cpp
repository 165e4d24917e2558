// Template teeth and traced ones.

#include "tool/api/CCalcTool.h"
#include "tool/tracing/teeth.h"

using tracing::LateralRecord;
using tracing::Tooth;

namespace {

void write_template(CDC *dc, Tooth tooth, const tracing::ToothPoints &offsets,
                    const tracing::TemplateChoice &choice, const tracing::Superimposition &on, int show,
                    const void *rec, const tracing::ToothInk &ink) {
  if (!dc || show == 0) return;
  tracing::draw_superimposed_template(*dc, tooth, offsets, choice, on, LateralRecord(rec), ink);
}

}  // namespace

void CCalcTool::Write_U1(CDC *dc, double tipX, double tipY, double apexX, double apexY, COLORREF color,
                         int style, int orgX, int orgY, const tagDPOINT *base, double mag, double angle,
                         int mode, double supScale, int offX, int offY, double rot, int ysign, int flip,
                         int show, int type, const void *rec, const void *adjust, int mirror) {
  write_template(dc, Tooth::upper_incisor, {{tipX, tipY}, {apexX, apexY}, {}}, {type, adjust, mirror != 0},
                 superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
                 show, rec, {color, style, tracing::stroke_of(mode)});
}

void CCalcTool::Write_L1(CDC *dc, double tipX, double tipY, double apexX, double apexY, COLORREF color,
                         int style, int orgX, int orgY, const tagDPOINT *base, double mag, double angle,
                         int mode, double supScale, int offX, int offY, double rot, int ysign, int flip,
                         int show, int type, const void *rec, const void *adjust, int mirror) {
  write_template(dc, Tooth::lower_incisor, {{tipX, tipY}, {apexX, apexY}, {}}, {type, adjust, mirror != 0},
                 superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
                 show, rec, {color, style, tracing::stroke_of(mode)});
}

void CCalcTool::Write_Um(CDC *dc, double ax, double ay, double bx, double by, double cx, double cy,
                         COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base, double mag,
                         double angle, int mode, double supScale, int offX, int offY, double rot, int ysign,
                         int flip, int show, int type, const void *rec) {
  write_template(dc, Tooth::upper_molar, {{ax, ay}, {bx, by}, {cx, cy}}, {type, nullptr, false},
                 superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
                 show, rec, {color, style, tracing::stroke_of(mode)});
}

void CCalcTool::Write_Lm(CDC *dc, double ax, double ay, double bx, double by, double cx, double cy,
                         COLORREF color, int style, int orgX, int orgY, const tagDPOINT *base, double mag,
                         double angle, int mode, double supScale, int offX, int offY, double rot, int ysign,
                         int flip, int show, int type, const void *rec) {
  write_template(dc, Tooth::lower_molar, {{ax, ay}, {bx, by}, {cx, cy}}, {type, nullptr, false},
                 superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
                 show, rec, {color, style, tracing::stroke_of(mode)});
}

void CCalcTool::draw_tooth(CDC *dc, Tooth tooth, const tracing::MovedTooth &points,
                           const tracing::TemplateChoice &choice, const tracing::Superimposition &on,
                           int show, const void *rec, const void *traces, const tracing::ToothInk &ink) {
  if (!dc || show == 0) return;
  tracing::draw_superimposed_tooth(*dc, tooth, points, choice, on, LateralRecord(rec), traces, ink);
}

void CCalcTool::own_tooth(CDC *dc, Tooth tooth, int orgX, int orgY, double mag,
                          const tracing::ToothPoints &at, COLORREF color, int style, const void *adjust,
                          const void *traces, int imageWidth, int /*imageHeight*/, const void *settings,
                          int noActual, double rot, const void *rec, double factor, int type, int showPoints,
                          COLORREF pointColor) {
  const tracing::SettingsRecord shown(settings);
  if (!dc || !shown.teeth()) return;
  const bool life_size = tracing::life_size(*dc, shown.life_size(), noActual != 0);
  tracing::OwnToothStyle ink{
      .line = {shown.line_width(), color, style}, .image_width = imageWidth, .spots = std::nullopt};
  if (showPoints == 1) ink.spots = pointColor;
  tracing::draw_own_tooth(*dc, tooth, at, {type, adjust, false}, {{orgX, orgY}, mag, rot, factor, life_size},
                          LateralRecord(rec), traces, ink);
}
