// Any bytes as a tracing file, JSON or CSV. What is accepted must also stand an evaluation.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "apps/common/tracing_file.h"
#include "tool/analysis/evaluation.h"

namespace {

void check(const app::TracingFile &file) {
  const analysis::Tracing tracing = file.tracing();
  static_cast<void>(analysis::evaluate_formula("len([S],[N])+angle1([S],[N],[A])", tracing, {}));
  for (const tagKPOINT &point : file.virtual_points) {
    static_cast<void>(analysis::resolve_point(point.name, tracing));
  }
  if (file.user_points.size() > analysis::Tracing::max_user_points ||
      file.virtual_points.size() > app::max_virtual_points) {
    std::abort();
  }
  static_cast<void>(file.patient.age());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char *>(data), size);
  try {
    for (const app::TracingFile &file : app::read_tracings(text)) {
      check(file);
    }
  } catch (const app::InputError &) {
    // refusing a file is a proper answer
  }
  try {
    check(app::read_json_tracing(text));
  } catch (const app::InputError &) {
    // the same
  }
  return 0;
}
