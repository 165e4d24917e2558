// Hand-drawn traces and structure splines.

#include <cstddef>

#include "tool/api/CCalcTool.h"
#include "tool/tracing/spline_drawing.h"
#include "tool/tracing/structures.h"
#include "tool/tracing/trace_store.h"

using geometry::value;
using tracing::LateralRecord;
using tracing::TraceEntry;

void CCalcTool::DrawFreelineTrace(CDC *dc, CPoint org, double mag, CPoint centre, const void *trace,
                                  double rot, int width, COLORREF color, unsigned style, int showPoints,
                                  COLORREF pointColor) {
  if (!dc) return;
  tracing::draw_trace(*dc, TraceEntry(trace), {{org, mag, false}, centre, rot},
                      {width, color, static_cast<int>(style)}, showPoints == 1 ? &pointColor : nullptr);
}

void CCalcTool::Draw_SPLine2FreeLine(CDC *dc, int orgX, int orgY, double mag, COLORREF color, int style,
                                     const tagDPOINT *base, double ox, double oy, double angle, int mode,
                                     double supScale, double rot, int offX, int offY, int ysign, int flip,
                                     const void *trace, const void *rec) {
  if (!dc) return;
  tracing::draw_superimposed_trace(
      *dc, TraceEntry(trace),
      superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec), {ox, oy},
      LateralRecord(rec).line(color, style), tracing::stroke_of(mode));
}

void CCalcTool::MoveFreelineTrace(void *trace, int dx, int dy) {
  tracing::move_trace(trace, dx, dy);
}

void CCalcTool::MoveAndTransFreelineTrace(void *trace, int dx, int dy, tagDPOINT centre, double angle,
                                          double factor) {
  tracing::turn_trace(trace, {dx, dy, value(&centre), angle, factor});
}

void CCalcTool::spline_point(const CDC *dc, CPointD offset, tagDPOINT *out, double factor, unsigned code,
                             const tracing::Superimposition &on) {
  const bool printing = dc && dc->IsPrinting();
  geometry::store(tracing::spline_device_coordinates(on, offset, {factor, printing, code}), out);
}

void CCalcTool::Draw_SPLine_u(CDC *dc, int orgX, int orgY, double mag, COLORREF color, int style,
                              const tagDPOINT *base, double ox, double oy, double angle, int mode,
                              double supScale, double rot, int offX, int offY, int ysign, int flip,
                              const tagPOINT *points, short count, unsigned char closed, const void *rec) {
  if (!dc || !points || count <= 0) return;
  tracing::draw_superimposed_spline(
      *dc, {{points, static_cast<std::size_t>(count)}, tracing::curve_ends(closed)},
      superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec), {ox, oy},
      LateralRecord(rec).line(color, style), tracing::stroke_of(mode));
}

void CCalcTool::Set_Trace(CDC *dc, int orgX, int orgY, double mag, COLORREF color, int style,
                          const tagDPOINT *base, double ox, double oy, double angle, int mode,
                          double supScale, double rot, int offX, int offY, int ysign, int flip,
                          const void *rec, const void *traces, const unsigned char *splines, int only) {
  if (!dc) return;
  tracing::draw_outlines(
      *dc, {{ox, oy}, traces, splines, only},
      superimposition(orgX, orgY, base, mag, angle, supScale, offX, offY, rot, ysign, flip, rec),
      LateralRecord(rec).line(color, style), tracing::stroke_of(mode));
}

void CCalcTool::ConvSPPO_1to2(const void *older, void *newer) {
  tracing::convert_structure_record(older, newer);
}
