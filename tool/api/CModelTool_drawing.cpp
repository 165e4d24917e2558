// Arch wire and crowns.

#include <algorithm>
#include <array>

#include "tool/api/CModelTool.h"
#include "tool/geometry/point_arguments.h"
#include "tool/geometry/truncation.h"
#include "tool/model/crowns.h"
#include "tool/model/wire.h"
#include "tool/tracing/cast_drawing.h"

using geometry::store;
using geometry::value;

void CModelTool::ComputeWirePointd(double /*unused*/, int side, const tagDPOINT *p, const tagDPOINT *q,
                                   const tagDPOINT *r, const double *ratioA, const double *ratioB,
                                   double offsetA, double offsetB, int k, tagDPOINT *outA, tagDPOINT *outB) {
  constexpr int exchanged_side = 6;
  const model::WirePair pair = model::wire_pair(
      {value(p), value(q), value(r), side == exchanged_side, offsetA, offsetB}, k, ratioA, ratioB);
  store(pair.a, outA);
  store(pair.b, outB);
}

void CModelTool::DrawWire(CDC *dc, CPoint origin, double zoom, double /*unused*/, const tagDPOINT *front,
                          const tagDPOINT * /*unused*/, const tagDPOINT * /*unused*/, double /*unused*/,
                          double /*unused*/, const CPoint *sideA, const CPoint *sideB, COLORREF color) {
  using Side = std::array<POINT, model::wire_side_points>;
  if (!dc || !sideA || !sideB) return;
  Side a, b;
  std::copy_n(sideA, a.size(), a.begin());
  std::copy_n(sideB, b.size(), b.begin());
  tracing::draw_wire(*dc, model::wire_curve(a, value(front), b), {origin, zoom, false}, color);
}

void CModelTool::DrawWired(CDC *dc, CPoint origin, double zoom, double unused1, const tagDPOINT *front,
                           const tagDPOINT *unused2, const tagDPOINT *unused3, double unused4, double unused5,
                           const tagDPOINT *sideA, const tagDPOINT *sideB, COLORREF color) {
  std::array<CPoint, model::wire_side_points> a, b;
  if (!sideA || !sideB) return;
  const auto truncated = [](const tagDPOINT &p) { return geometry::truncate(value(&p)); };
  std::transform(sideA, sideA + a.size(), a.begin(), truncated);
  std::transform(sideB, sideB + b.size(), b.begin(), truncated);
  DrawWire(dc, origin, zoom, unused1, front, unused2, unused3, unused4, unused5, a.data(), b.data(), color);
}

void CModelTool::DrawTooth(CDC *dc, CPoint origin, double zoom, double /*unused*/, int family, int code,
                           bool mirror, int tooth, const tagDPOINT *p1, const tagDPOINT *p2, COLORREF color) {
  if (!dc) return;
  const model::Crown crown(model::crown_template({family, code, mirror, tooth}), value(p1), value(p2));
  tracing::draw_crown(*dc, crown, {origin, zoom, false}, color);
}

int CModelTool::GetToothPt(CUIntArray *xs, CUIntArray *ys, CPoint origin, double zoom, double /*unused*/,
                           int family, int code, bool mirror, int tooth, const tagDPOINT *p1,
                           const tagDPOINT *p2) {
  const model::Crown crown(model::crown_template({family, code, mirror, tooth}), value(p1), value(p2));
  std::array<tagPOINT, model::Crown::most_points> points{};
  std::copy(crown.points().begin(), crown.points().end(), points.begin());
  return GetSPLinePt(xs, ys, origin, zoom, points.data(), static_cast<short>(crown.points().size()), 1, 0);
}
