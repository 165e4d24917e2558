// Outlines of a lateral tracing: what was traced by hand, the four teeth, the profilogram, and all of it once
// more for a second tracing laid over the first.

#include <array>

#include "apps/drawing/display_record.h"
#include "apps/drawing/lateral_scene.h"
#include "tool/analysis/landmarks.h"
#include "tool/tracing/trace_store.h"

namespace app {
namespace {

namespace mark = analysis::lateral;

constexpr int outline_tenths = 4;
constexpr int tooth_tenths = 3;
constexpr int profilogram_tenths = 4;
constexpr int solid = 0;
constexpr int by_print_width = 102;  // solid, as wide as the record says for paper

/// A copy of a record with its line width on paper.
tagPOINTLAT with_width(const tagPOINTLAT &record, int tenths) {
  tagPOINTLAT copy = record;
  copy.lineWidth = 1;
  copy.printLineWidth = static_cast<signed char>(tenths);
  return copy;
}

bool all_placed(const tagPOINTLAT &record, std::initializer_list<int> landmarks) {
  for (const int k : landmarks)
    if (!is_placed(lateral_landmark(record, k))) return false;
  return true;
}

tagDPOINT as_double(CPoint p) {
  return {static_cast<double>(p.x), static_cast<double>(p.y)};
}

/// The four teeth and the polygon, placed.
void draw_profilogram(const View &view, tagPOINTLAT record, const std::vector<char> &traces,
                      const Placement &place, COLORREF color, bool polygon, std::optional<int> teeth) {
  DisplayRecord settings;
  settings.whole_profilogram();
  settings.draw_teeth(teeth.has_value());
  NoAdjustment adjustment;
  CCalcTool::Set_Purofiro(&view.sheet().context(), view.origin().x, view.origin().y, view.magnification(),
                          color, by_print_width, &place.base, &record.pt[analysis::first_landmark_entry],
                          place.own.x, place.own.y, place.angle, 1, place.factor, 0.0, 0, 0, polygon ? 1 : 0,
                          1, 0, teeth ? 1 : 0, settings.address(), &record, adjustment.bytes.data(),
                          traces.data(), teeth.value_or(-1));
}

/// The straight lines between the traced points stand in for the curves.
void occupy(const View &view, const tracing::TraceEntry &entry, Drawn &drawn) {
  tracing::TraceRuns runs(entry);
  while (const auto run = runs.next())
    for (std::size_t i = 1; i < run->points.size(); ++i)
      drawn.add_line(view.on_sheet(run->points[i - 1]), view.on_sheet(run->points[i]));
}

/// Teeth are drawn on their own.
bool is_outline(const tracing::TraceEntry &entry) {
  return entry.used() && (entry.code() < tracing::trace_code::upper_incisor ||
                          entry.code() >= tracing::trace_code::first_other);
}

}  // namespace

void draw_lateral_outlines(const View &view, const TracingFile &tracing, const SceneOptions &options,
                           Drawn &drawn) {
  if (tracing.traces.empty()) return;
  for (int i = 0; i < tracing::trace_entries; ++i) {
    const tracing::TraceEntry entry = tracing::trace_entry(tracing.traces.data(), i);
    if (!is_outline(entry)) continue;
    CCalcTool::DrawFreelineTrace(&view.sheet().context(), view.origin(), view.magnification(), CPoint(0, 0),
                                 entry.bytes(), 0.0, outline_tenths, options.palette().outline, solid, 0, 0);
    occupy(view, entry, drawn);
  }
}

void draw_lateral_teeth(const View &view, const TracingFile &tracing, const SceneOptions &options) {
  if (!options.teeth) return;
  tagPOINTLAT record = with_width(*tracing.lateral(), tooth_tenths);
  const TracingFile::TraceStore traces = tracing.traces_or_empty();
  DisplayRecord settings;
  settings.draw_teeth(true);
  settings.line_width(tooth_tenths);
  NoAdjustment adjustment;
  CDC *const dc = &view.sheet().context();
  const CPoint org = view.origin();
  const double mag = view.magnification();
  const COLORREF color = options.palette().tooth;
  const auto at = [&](int k) { return lateral_landmark(record, k); };
  if (all_placed(record, {mark::U1, mark::U1R}))
    CCalcTool::Draw_U1Ex(dc, org.x, org.y, mag, at(mark::U1), at(mark::U1R), color, solid,
                         adjustment.bytes.data(), traces.data(), 0, 0, settings.address(), 1, 0.0, &record,
                         1.0, *options.teeth, 0, color);
  if (all_placed(record, {mark::L1, mark::L1R}))
    CCalcTool::Draw_L1Ex(dc, org.x, org.y, mag, at(mark::L1), at(mark::L1R), color, solid,
                         adjustment.bytes.data(), traces.data(), 0, 0, settings.address(), 1, 0.0, &record,
                         1.0, *options.teeth, 0, color);
  if (all_placed(record, {mark::UMoD, mark::UMo, mark::UMoR}))
    CCalcTool::Draw_UmEx(dc, org.x, org.y, mag, at(mark::UMoD), at(mark::UMo), at(mark::UMoR), color, solid,
                         traces.data(), 0, 0, settings.address(), 1, 0.0, &record, 1.0, *options.teeth, 0,
                         color);
  if (all_placed(record, {mark::LMoD, mark::LMo, mark::LMoR}))
    CCalcTool::Draw_LmEx(dc, org.x, org.y, mag, at(mark::LMo), at(mark::LMoD), at(mark::LMoR), color, solid,
                         traces.data(), 0, 0, settings.address(), 1, 0.0, &record, 1.0, *options.teeth, 0,
                         color);
}

void draw_lateral_profilogram(const View &view, const TracingFile &tracing, const SceneOptions &options,
                              Drawn &drawn) {
  if (!options.profilogram) return;
  const tagPOINTLAT record = with_width(*tracing.lateral(), profilogram_tenths);
  const TracingFile::TraceStore traces = tracing.traces_or_empty();
  const COLORREF color = options.palette().profilogram;
  const tagDPOINT sella = as_double(lateral_landmark(record, mark::S));
  draw_profilogram(view, record, traces, {sella, sella, 0, 1}, color, true, std::nullopt);
  drawn.legend.push_back({"Profilogram", color, profilogram_tenths, solid});
}

void draw_superimposed(const View &view, const TracingFile &tracing, const SceneOptions &options,
                       Drawn &drawn) {
  if (!options.second) return;
  const tagPOINTLAT record = with_width(*options.second->lateral(), outline_tenths);
  const Placement place = registered(*tracing.lateral(), record, options.registration);
  const TracingFile::TraceStore traces = options.second->traces_or_empty();
  const COLORREF color = options.palette().second;
  for (int i = 0; i < tracing::trace_entries; ++i) {
    const tracing::TraceEntry entry = tracing::trace_entry(traces.data(), i);
    if (!is_outline(entry)) continue;
    CCalcTool::Draw_SPLine2FreeLine(&view.sheet().context(), view.origin().x, view.origin().y,
                                    view.magnification(), color, by_print_width, &place.base, place.own.x,
                                    place.own.y, place.angle, 1, place.factor, 0.0, 0, 0, 1, 0, entry.bytes(),
                                    &record);
  }
  draw_profilogram(view, record, traces, place, color, options.profilogram || options.second->traces.empty(),
                   options.teeth);
  drawn.legend.push_back(
      {options.second->id.empty() ? "Second tracing" : options.second->id, color, outline_tenths, solid});
}

}  // namespace app
