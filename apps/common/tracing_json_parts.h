#pragma once
// The larger members of a tracing's JSON form.

#include "apps/common/json_node.h"
#include "apps/common/tracing_file.h"

namespace app {

/// [x, y] in pixels, or null: not placed.
POINT json_point(const JsonNode &node);

/// "virtual_points". They may refer to each other, and to the landmarks and user points that `file` holds
/// already.
void read_json_virtual_points(TracingFile &file, const JsonNode &list);

/// "cast": the teeth and arches of both jaws.
void read_json_cast(tagPOINTMO &record, const JsonNode &cast);

/// "traces": outlines traced by hand, at most 20 of them.
void read_json_traces(TracingFile &file, const JsonNode &list);

}  // namespace app
