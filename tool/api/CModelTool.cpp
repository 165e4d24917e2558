#include "tool/api/CModelTool.h"

#include "tool/geometry/point_arguments.h"
#include "tool/geometry/splines.h"
#include "tool/geometry/view_mapping.h"
#include "tool/model/arch.h"
#include "tool/model/measurements.h"

using geometry::store;
using geometry::value;

double CModelTool::Get_SPLinePointd(tagDPOINT *pts, short count, short start, short end, double scale,
                                    double target, tagDPOINT *out) {
  const auto reached = geometry::point_at_length({pts, count}, {start, end}, scale, target);
  if (reached.point) store(*reached.point, out);
  return reached.length;
}

int CModelTool::Get_Straight_SPLinePointd(tagDPOINT *pts, short /*count*/, short /*start*/, short /*end*/,
                                          double scale, double distance, tagDPOINT from, bool forward,
                                          double limit, tagDPOINT *out, double *position) {
  const auto found = geometry::search_distance({pts, model::arch_points}, scale,
                                               {value(&from), distance, forward, limit}, *position);
  if (found) store(*found, out);
  return found.has_value();
}

int CModelTool::GetSPLinePt(CUIntArray *xs, CUIntArray *ys, CPoint origin, double zoom, tagPOINT *pts,
                            short count, unsigned char closed, int flip) {
  const geometry::ViewMapping mapping{origin, zoom, flip != 0};
  const auto ends = closed ? geometry::CurveEnds::closed : geometry::CurveEnds::open;
  const auto kept = geometry::kept_points({pts, count}, ends);
  for (const CPointD &point : kept) {
    const CPoint mapped = mapping(point);
    xs->SetAtGrow(xs->GetSize(), static_cast<UINT>(mapped.x));
    ys->SetAtGrow(ys->GetSize(), static_cast<UINT>(mapped.y));
  }
  return static_cast<int>(kept.size());
}

void CModelTool::GetSpacePoint(tagDPOINT *a, tagDPOINT *b, double l0, double l1, double target,
                               tagDPOINT *out) {
  store(geometry::point_between(value(a), value(b), l0, l1, target), out);
}

double CModelTool::GetToothLen(int position, int jaw, int side, tagMOEX *ex, tagPOINTMO *mo) {
  return model::tooth_width(*mo, *ex, jaw == 0 ? model::Jaw::upper : model::Jaw::lower,
                            side == 0 ? model::Side::first : model::Side::second, position);
}

int CModelTool::ShowChack(int entry, unsigned char *flags) {
  return model::entry_shown(entry, std::span<const unsigned char, 24>(flags, 24));
}

double CModelTool::Get6KinshinLength(tagDPOINT *arch, double limit, double scale) {
  return model::position_of_second_point(arch, limit, scale);
}
