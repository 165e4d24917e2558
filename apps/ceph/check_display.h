#pragma once
// The rules for one display-setting file.

#include "apps/ceph/check_definition.h"
#include "apps/ceph/check_source.h"

namespace app::check {

void check_display(Source &source, const Vocabulary &vocabulary);

}  // namespace app::check
