// Any text as a formula: through the core and through the exported evaluator, whole and as a group. The first
// byte chooses the mode. The exported evaluator writes into the caller's text, which is exactly as long as it
// is.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "fuzz/fixed_tracing.h"
#include "tool/analysis/evaluation.h"
#include "tool/api/CCephCalc.h"

namespace {

constexpr int table_entries = 100;

void call_exported(const std::string &formula, analysis::Mode mode, fuzz::Records &records, int whole) {
  std::vector<char> text(formula.c_str(), formula.c_str() + formula.size() + 1);
  std::array<double, table_entries> values{};
  int count = 0;
  CCephCalc::Calc(static_cast<int>(mode), 0, text.data(), values.data(), &count, records.record(mode),
                  &records.virtual_count, records.virtual_points.data(), &records.user_count,
                  records.user_points.data(), 1, 0, 1.1, whole);
  if (count < 0 || count > table_entries || text.back() != '\0') {
    std::abort();
  }
}

void call_point(const std::string &formula, analysis::Mode mode, fuzz::Records &records) {
  std::vector<char> text(formula.c_str(), formula.c_str() + formula.size() + 1);
  CCephCalc::Calc_Point(static_cast<int>(mode), text.data(), records.record(mode), &records.virtual_count,
                        records.virtual_points.data(), &records.user_count, records.user_points.data());
  if (text.back() != '\0') {
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static fuzz::Records records;
  if (size == 0) {
    return 0;
  }
  const analysis::Mode mode = fuzz::modes[data[0] % fuzz::modes.size()];
  std::string formula(reinterpret_cast<const char *>(data) + 1, size - 1);
  static_cast<void>(analysis::evaluate_formula(formula, records.tracing(mode), {}));

  formula.resize(std::min(formula.find('\0'), formula.size()));
  call_exported(formula, mode, records, 1);
  call_exported(formula, mode, records, 0);
  call_point(formula, mode, records);
  return 0;
}
