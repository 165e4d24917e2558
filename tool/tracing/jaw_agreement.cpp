#include "tool/tracing/jaw_agreement.h"

#include "tool/geometry/distances.h"

namespace tracing {

namespace {

/// 0: cannot be measured.
double jaw_length_mm(const LateralRecord &record, Jaw jaw) {
  using namespace analysis::lateral;
  const CPoint front = record.landmark(jaw == Jaw::upper ? ANS : Me);
  const CPoint back = record.landmark(jaw == Jaw::upper ? PNS : Go);
  const bool placed = !(front == CPoint()) && !(back == CPoint());
  return placed && record.scale() > 0.0 ? geometry::length(front, back, record.scale()) : 0.0;
}

}  // namespace

double jaw_agreement(const LateralRecord &a, const LateralRecord &b, Jaw jaw) {
  const double length_a = jaw_length_mm(a, jaw);
  return length_a > 0.0 ? jaw_length_mm(b, jaw) / length_a : 0.0;
}

}  // namespace tracing
