#pragma once
// A sample film with everything that the drawing operations read beside its record, drawn part by part: what
// reference pictures and the drawing benchmark share.

#include <array>
#include <string>

#include "apps/common/tracing_file.h"
#include "apps/drawing/display_record.h"
#include "tool/tool.h"

namespace support {

/// A file of data/samples.
inline app::TracingFile sample_film(const std::string &name) {
  return app::read_tracing_file(std::string(TOOL_SOURCE_DIR) + "/data/samples/" + name);
}

/// A lateral film. An image pixel falls on trunc(pixel * mag) - org.
struct FilmDrawing {
  explicit FilmDrawing(const std::string &name) : file(sample_film(name)), record(*file.lateral()) {
    traces = file.traces_or_empty();
    record.lineWidth = 2;
    record.printLineWidth = 3;
    settings.draw_teeth(true);
    settings.whole_profilogram();
    settings.line_width(2);
  }

  app::TracingFile file;
  tagPOINTLAT record;
  app::TracingFile::TraceStore traces;
  app::DisplayRecord settings;
  app::NoAdjustment adjustment;
  double mag = 1;
  CPoint org;

  CPoint film(int landmark) const { return record.pt[analysis::first_landmark_entry + landmark]; }
  tagDPOINT real(int landmark) const { return CPointD(film(landmark)).ToDPOINT(); }
  CPoint device(CDC &dc, int landmark) {
    return CCalcTool::Point_Make2(&dc, org.x, org.y, mag, film(landmark), 0, &record, 0, 0, 1);
  }

  /// Planes and lines between landmarks, one pen code after another.
  void reference_lines(CDC &dc) {
    using namespace analysis::lateral;
    struct Line {
      int from, to, width, style;
      COLORREF color;
    };
    constexpr Line lines[] = {{S, N, 2, 102, RGB(0, 0, 160)},      {Po, Or, 2, 102, RGB(0, 110, 0)},
                              {PNS, ANS, 1, 101, RGB(160, 0, 0)},  {GoL, Me, 2, 102, RGB(160, 0, 160)},
                              {UMo, U1, 1, 104, RGB(0, 110, 110)}, {TN, TC, 1, 103, RGB(200, 100, 0)},
                              {N, Pog, 1, 105, RGB(80, 80, 80)},   {S, Gn, 1, 106, RGB(80, 80, 80)},
                              {Ba, N, 1, 101, RGB(0, 0, 160)},     {Ar, GoL, 3, 1, RGB(160, 0, 160)},
                              {U1, U1R, 1, 101, RGB(0, 0, 0)},     {L1, L1R, 1, 101, RGB(0, 0, 0)},
                              {A, B, 2, 3, RGB(120, 60, 0)},       {Xi, PM, 2, 2, RGB(120, 60, 0)}};
    for (const Line &line : lines) {
      const CPoint a = device(dc, line.from), b = device(dc, line.to);
      CTools::Draw_Line(&dc, a.x, a.y, b.x, b.y, line.width, line.color, line.style, 0);
    }
  }
  void hand_drawn_traces(CDC &dc) {
    for (std::size_t i = 0; i < app::TracingFile::trace_count; ++i)
      CCalcTool::DrawFreelineTrace(&dc, org, mag, CPoint(), traces.data() + i * app::TracingFile::trace_bytes,
                                   0, 2, RGB(60, 60, 60), 0, 0, 0);
  }
  /// The four templates, image pixels as they are.
  void teeth(CDC &dc, COLORREF color, int type) {
    using namespace analysis::lateral;
    void *const none = nullptr;
    CCalcTool::Draw_U1Ex(&dc, org.x, org.y, mag, film(U1), film(U1R), color, 0, &adjustment, none, 0, 0,
                         settings.address(), 1, 0, &record, 1, type, 0, 0);
    CCalcTool::Draw_L1Ex(&dc, org.x, org.y, mag, film(L1), film(L1R), color, 0, &adjustment, none, 0, 0,
                         settings.address(), 1, 0, &record, 1, type, 0, 0);
    CCalcTool::Draw_UmEx(&dc, org.x, org.y, mag, film(UMoD), film(UMo), film(UMoR), color, 0, none, 0, 0,
                         settings.address(), 1, 0, &record, 1, type, 0, 0);
    CCalcTool::Draw_LmEx(&dc, org.x, org.y, mag, film(LMo), film(LMoD), film(LMoR), color, 0, none, 0, 0,
                         settings.address(), 1, 0, &record, 1, type, 0, 0);
  }
  /// Without teeth; its own point `own` falls on the point `base` (image pixels) of the film beneath.
  void profilogram(CDC &dc, COLORREF color, tagDPOINT base, tagDPOINT own, double angle = 0,
                   double factor = 1) {
    CCalcTool::Set_Purofiro(&dc, org.x, org.y, mag, color, 102, &base,
                            record.pt + analysis::first_landmark_entry, own.x, own.y, angle, 1, factor, 0, 0,
                            0, 1, 1, 0, 0, settings.address(), &record, &adjustment, traces.data(), -1);
  }
  void landmarks(CDC &dc, short radius) {
    for (int k = 0; k < analysis::lateral_landmark_count; ++k)
      if (film(k) != CPoint()) CTools::Spot(&dc, org, mag, film(k), radius, RGB(200, 0, 0), 0);
  }
  void landmark_names(CDC &dc, int height) {
    for (int k = 0; k < analysis::lateral_landmark_count; ++k) {
      tagDPOINT at = real(k);
      if (film(k) != CPoint())
        CCalcTool::Point_Text(&dc, org.x, org.y, mag, &at,
                              analysis::lateral_landmarks[static_cast<std::size_t>(k)].data(), height,
                              RGB(0, 0, 0), 0, &record, 0, 0, 1);
    }
  }
};

}  // namespace support
