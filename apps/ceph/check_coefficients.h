#pragma once
// The rules for the coefficient file of the bone age: one section with eight numbers.

#include "apps/ceph/check_source.h"

namespace app::check {

void check_coefficients(Source &source);

}  // namespace app::check
