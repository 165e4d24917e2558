#pragma once
// Where a report goes.

#include <string>

#include "apps/ceph/options.h"
#include "apps/common/report.h"

namespace app {

/// Writes the report in the chosen format. Throws CommandError when it cannot be written whole.
void deliver(const Report &report, const OutputOptions &options);

/// Writes finished text to the place that the options name.
void deliver_text(const std::string &text, const OutputOptions &options);

/// Replaces a file in one step: readers see the old or the whole new content.
void write_file_atomically(const std::string &path, const std::string &content);

}  // namespace app
