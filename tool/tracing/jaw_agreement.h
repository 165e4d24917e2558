#pragma once
// Whether two tracings may be laid on one another by a jaw: only jaws of one size match along their length.

#include "tool/tracing/record_views.h"

namespace tracing {

enum class Jaw { upper, lower };

/// Length of the jaw in b divided by its length in a, each in millimetres by its own scale: ANS-PNS of the
/// upper jaw, Go-Me of the lower. 1 for jaws of one size; 0 when a landmark is not placed, a jaw has no
/// length or a scale is not positive.
double jaw_agreement(const LateralRecord &a, const LateralRecord &b, Jaw jaw);

}  // namespace tracing
