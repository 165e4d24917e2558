#include "tool/tracing/profilogram.h"

#include <array>

#include "tool/geometry/lines.h"
#include "tool/tracing/primitives.h"

namespace tracing {

namespace {

using namespace analysis::lateral;

constexpr int vertex_count = SettingsRecord::profilogram_vertices;
constexpr std::array<int, vertex_count> vertices{S, N, Or, ANS, A, U1, L1, B, Pog, Me, Go, Ar};
constexpr int upper_vertices = 6;

/// The lines of a profilogram in the ink of its call.
class Pencil {
 public:
  Pencil(CDC &dc, const Profilogram &profilogram, const Superimposition &on, const LineStyle &line,
         Stroke stroke)
      : dc_(dc), profilogram_(profilogram), on_(on), line_(line), stroke_(stroke) {}

  CPointD at(int landmark) const { return CPoint(profilogram_.landmarks[landmark]); }
  void join(CPointD from, CPointD to) {
    draw_superimposed_line(dc_, on_, from - profilogram_.reference, to - profilogram_.reference, line_,
                           stroke_);
  }
  void join(int from, int to) { join(at(from), at(to)); }

 private:
  CDC &dc_;
  const Profilogram &profilogram_;
  const Superimposition &on_;
  LineStyle line_;
  Stroke stroke_;
};

/// The next enabled vertex after v, once round; v itself when it is the only one.
int next_vertex(const SettingsRecord &settings, int v) {
  for (int step = 1; step < vertex_count; ++step) {
    const int w = (v + step) % vertex_count;
    if (settings.profilogram_vertex(w)) return w;
  }
  return v;
}

void draw_polygon(Pencil &pencil, const SettingsRecord &settings) {
  for (int v = 0; v < vertex_count; ++v) {
    if (!settings.profilogram_vertex(v)) continue;
    const int w = next_vertex(settings, v);
    if (settings.open_profilogram() && v < upper_vertices && w >= upper_vertices) continue;
    pencil.join(vertices[static_cast<std::size_t>(v)], vertices[static_cast<std::size_t>(w)]);
  }
}

void draw_lines(Pencil &pencil, const SettingsRecord &settings, bool teeth_stand_for_axes) {
  if (settings.palatal_line()) pencil.join(ANS, PNS);
  if (!teeth_stand_for_axes) {
    if (settings.upper_incisor_axis()) pencil.join(U1, U1R);
    if (settings.lower_incisor_axis()) pencil.join(L1, L1R);
  }
  if (settings.occlusal_line()) {
    pencil.join(geometry::midpoint(pencil.at(UMo), pencil.at(LMo)),
                geometry::midpoint(pencil.at(U1), pencil.at(L1)));
  }
}

void draw_teeth(CDC &dc, const Profilogram &profilogram, const Superimposition &on,
                const LateralRecord &record, const ToothInk &ink) {
  const TemplateChoice choice{profilogram.tooth_type, profilogram.adjust, profilogram.settings.life_size()};
  const auto draw = [&](Tooth tooth, int a, int b, int c) {
    const auto at = [&](int k) { return CPointD(CPoint(profilogram.landmarks[k])); };
    draw_superimposed_tooth(dc, tooth, {{at(a), at(b), at(c)}, at(a), at(b), profilogram.reference}, choice,
                            on, record, profilogram.traces, ink);
  };
  draw(Tooth::lower_incisor, L1, L1R, L1R);
  draw(Tooth::lower_molar, LMo, LMoD, LMoR);
  draw(Tooth::upper_incisor, U1, U1R, U1R);
  draw(Tooth::upper_molar, UMoD, UMo, UMoR);
}

/// Gives each line of the frontal profilogram to `join`.
template <typename Join>
void for_each_frontal_line(const FrontalRecord &record, Join join) {
  namespace frontal = analysis::frontal;
  const auto at = [&](int k) { return record.landmark(k); };
  join(at(frontal::ZR), at(frontal::AGR));
  join(at(frontal::ZL), at(frontal::AGL));
  join(at(frontal::JR), at(frontal::AGR));
  join(at(frontal::JL), at(frontal::AGL));
  join(geometry::integer_midpoint(at(frontal::U6R), at(frontal::L6R)),
       geometry::integer_midpoint(at(frontal::U6L), at(frontal::L6L)));
  join(at(frontal::ANS), at(frontal::Me));
  join(at(frontal::ZR), at(frontal::ZL));
  join(at(frontal::AGR), at(frontal::AGL));
  join(at(frontal::ZAR), at(frontal::ZAL));
}

}  // namespace

void draw_profilogram(CDC &dc, const Profilogram &profilogram, const Superimposition &on,
                      const LateralRecord &record, const ToothInk &ink) {
  const SettingsRecord &settings = profilogram.settings;
  const bool typed = profilogram.tooth_type != -1;
  if (profilogram.polygon) {
    Pencil pencil(dc, profilogram, on, record.line(ink.color, ink.style), ink.stroke);
    draw_polygon(pencil, settings);
    draw_lines(pencil, settings, settings.teeth() && typed);
  }
  if (typed && settings.teeth() && (profilogram.teeth || profilogram.polygon))
    draw_teeth(dc, profilogram, on, record, ink);
}

void draw_frontal_profilogram(CDC &dc, const FrontalRecord &record, const geometry::ViewMapping &view,
                              const LineStyle &line) {
  for_each_frontal_line(record, [&](CPoint from, CPoint to) { draw_line(dc, view(from), view(to), line); });
}

void draw_frontal_profilogram_image(CDC &dc, const FrontalRecord &record, const geometry::ViewMapping &view,
                                    LineStyle line, int image_width) {
  line.width = image_line_width(image_width);
  for_each_frontal_line(record,
                        [&](CPoint from, CPoint to) { draw_line_image(dc, view(from), view(to), line); });
}

}  // namespace tracing
