#pragma once
// The report of one tracing: tables, growth stage and diagnosis.

#include "apps/ceph/options.h"
#include "apps/common/report.h"
#include "apps/common/tracing_file.h"

namespace app {

Report table_report(const TracingOptions &options, const TracingFile &file);

}  // namespace app
