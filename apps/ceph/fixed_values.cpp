#include "apps/ceph/fixed_values.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "tool/analysis/frontal_catalogue.h"
#include "tool/analysis/landmarks.h"
#include "tool/analysis/lateral_catalogue.h"

namespace app {
namespace {

using analysis::first_landmark_entry;
using Values = std::vector<double>;

std::vector<Values> lateral_numbers(tagPOINTLAT record, bool negate_ans_pns) {
  analysis::complete_soft_tissue(record);
  std::vector<Values> groups;
  for (int group = 0; group < 9; ++group) {
    Values &values = groups.emplace_back();
    for (int item = 0; item < analysis::lateral_catalogue_sizes[group]; ++item)
      values.push_back(analysis::lateral_catalogue(record, group, item, negate_ans_pns).value);
  }
  return groups;
}

/// For finding out what depends on what; signs do not matter.
Values flat_lateral_numbers(const tagPOINTLAT &record) {
  Values all;
  for (const Values &group : lateral_numbers(record, true)) all.insert(all.end(), group.begin(), group.end());
  return all;
}

Values frontal_numbers(const tagPOINTPA &record) {
  Values values;
  for (int item = 0; item < analysis::frontal_catalogue_size; ++item)
    values.push_back(analysis::frontal_catalogue(record, item));
  return values;
}

bool is_placed(const POINT &point) {
  return point.x != 0 || point.y != 0;
}

/// Landmarks that are completed from others are not the reader's to place.
bool is_derived(const tagPOINTLAT &, int landmark) {
  constexpr std::array derived{analysis::lateral::PTV, analysis::lateral::Gl, analysis::lateral::Mes,
                               analysis::lateral::Pogs, analysis::lateral::Vmi};
  return std::find(derived.begin(), derived.end(), landmark) != derived.end();
}
bool is_derived(const tagPOINTPA &, int) {
  return false;
}

bool differ(double a, double b) {
  return !(a == b) && !(std::isnan(a) && std::isnan(b));
}

/// A place of its own for each unplaced landmark, in no special position to any other.
POINT somewhere(int landmark) {
  return {3001 + 137 * landmark + landmark * landmark, 2003 + 89 * landmark * landmark};
}

/// For each value, the reason why it cannot be formed.
template <typename Record, typename Numbers>
std::vector<std::string> missing_landmarks(const Record &record, std::span<const std::string_view> names,
                                           Numbers numbers) {
  Record filled = record;
  std::vector<int> unplaced;
  for (int k = 0; k < static_cast<int>(names.size()); ++k) {
    POINT &point = filled.pt[first_landmark_entry + k];
    if (is_placed(point) || is_derived(record, k)) continue;
    unplaced.push_back(k);
    point = somewhere(k);
  }
  const Values base = numbers(filled);
  std::vector<std::vector<std::string_view>> missing(base.size());
  for (const int k : unplaced) {
    Record moved = filled;
    moved.pt[first_landmark_entry + k].x -= 517;
    moved.pt[first_landmark_entry + k].y += 331;
    const Values changed = numbers(moved);
    for (std::size_t i = 0; i < base.size(); ++i)
      if (differ(base[i], changed[i])) missing[i].push_back(names[static_cast<std::size_t>(k)]);
  }
  std::vector<std::string> reasons;
  for (const auto &list : missing) {
    std::string &reason = reasons.emplace_back();
    for (const std::string_view name : list) reason.append(reason.empty() ? "" : ", ").append(name);
    if (!list.empty()) reason = "not placed: " + reason;
  }
  return reasons;
}

std::string text(const char *name) {
  return name ? name : "";
}

}  // namespace

std::vector<std::vector<FixedValue>> lateral_values(const tagPOINTLAT &record, bool negate_ans_pns) {
  const auto numbers = lateral_numbers(record, negate_ans_pns);
  const auto reasons = missing_landmarks(record, analysis::lateral_landmarks, flat_lateral_numbers);
  std::vector<std::vector<FixedValue>> groups;
  std::size_t flat = 0;
  for (int group = 0; group < 9; ++group) {
    auto &values = groups.emplace_back();
    for (int item = 0; item < analysis::lateral_catalogue_sizes[group]; ++item, ++flat)
      values.push_back({text(analysis::lateral_catalogue_name(group, item)),
                        numbers[static_cast<std::size_t>(group)][static_cast<std::size_t>(item)],
                        analysis::lateral_catalogue(record, group, item, negate_ans_pns).flag == 1,
                        reasons[flat]});
  }
  return groups;
}

std::vector<FixedValue> frontal_values(const tagPOINTPA &record) {
  const Values numbers = frontal_numbers(record);
  const auto reasons = missing_landmarks(record, analysis::frontal_landmarks, frontal_numbers);
  std::vector<FixedValue> values;
  for (int item = 0; item < analysis::frontal_catalogue_size; ++item) {
    const auto i = static_cast<std::size_t>(item);
    values.push_back({text(analysis::frontal_catalogue_name(item)), numbers[i],
                      analysis::frontal_catalogue_is_angle(item), reasons[i]});
  }
  return values;
}

}  // namespace app
