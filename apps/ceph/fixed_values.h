#pragma once
// The fixed measurements with their reasons. The catalogues compute plain numbers from whatever a record
// holds; the reasons are found by trial: a value that changes when an unplaced landmark is moved depends on
// that landmark.

#include <optional>
#include <string>
#include <vector>

#include "tool/analysis/records.h"

namespace app {

struct FixedValue {
  std::string name;
  double value;
  bool is_angle;
  std::string reason;  ///< UTF-8; empty: the value stands
};

/// The nine groups of lateral measurements. `negate_ans_pns` as analysis::lateral_catalogue takes it.
std::vector<std::vector<FixedValue>> lateral_values(const tagPOINTLAT &record, bool negate_ans_pns);
std::vector<FixedValue> frontal_values(const tagPOINTPA &record);

}  // namespace app
