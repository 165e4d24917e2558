#pragma once
// Growth stages: ranges that do not parse, never match or overlap.

#include <vector>

#include "apps/ceph/check_source.h"

namespace app::check {

/// `skip` marks lines that are already reported as misspelt keywords.
void check_stages(Source &source, const std::vector<bool> &skip);

}  // namespace app::check
