#include "tool/analysis/tracing.h"

#include <algorithm>
#include <cstring>

#include "tool/analysis/landmarks.h"

namespace analysis {
namespace {

/// The text of a fixed-width field, which a NUL byte may end early.
std::string_view field_text(const char *field, std::size_t width) {
  const void *end = std::memchr(field, '\0', width);
  return {field, end ? static_cast<std::size_t>(static_cast<const char *>(end) - field) : width};
}

std::size_t count_behind(const unsigned short *count) {
  return count ? *count : 0;
}

}  // namespace

Tracing::Tracing(Mode mode, const void *record, const unsigned short *virtual_count,
                 const tagKPOINT *virtual_points, const unsigned short *user_count,
                 const tagUPOINT *user_points)
    : mode_(mode), record_(record) {
  if (virtual_points) virtual_points_ = {virtual_points, count_behind(virtual_count)};
  const std::size_t users = std::min(count_behind(user_count), max_user_points);
  if (user_points) user_definitions_ = {user_points, users};
  if (!record) return;
  const auto borrow = [&](const auto &fields) {
    scale_ = fields.scale;
    user_names_ = fields.userName;
    user_positions_ = fields.userPoint;
    user_count_ = users;
  };
  switch (record_kind(mode)) {
    case RecordKind::lateral: {
      const auto &fields = *static_cast<const tagPOINTLAT *>(record);
      landmarks_ = {fields.pt + first_landmark_entry, lateral_landmark_count};
      borrow(fields);
      break;
    }
    case RecordKind::frontal: {
      const auto &fields = *static_cast<const tagPOINTPA *>(record);
      landmarks_ = {fields.pt + first_landmark_entry, frontal_landmark_count};
      borrow(fields);
      break;
    }
    case RecordKind::model:
      borrow(*static_cast<const tagPOINTMO *>(record));
      break;
  }
}

UserPoint Tracing::user_point(std::size_t i) const {
  return {field_text(user_names_[i], sizeof user_names_[i]), user_positions_[i]};
}

const tagPOINTLAT *Tracing::lateral() const {
  return record_kind(mode_) == RecordKind::lateral ? static_cast<const tagPOINTLAT *>(record_) : nullptr;
}

const tagPOINTMO *Tracing::model() const {
  return record_kind(mode_) == RecordKind::model ? static_cast<const tagPOINTMO *>(record_) : nullptr;
}

}  // namespace analysis
