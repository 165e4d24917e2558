#pragma once
// A borrowed, read-only view of one patient's record with its point tables: what a formula is evaluated on.

#include <span>
#include <string_view>

#include "tool/analysis/mode.h"
#include "tool/analysis/records.h"

namespace analysis {

struct UserPoint {
  std::string_view name;
  POINT position;  ///< image pixels
};

class Tracing {
 public:
  static constexpr std::size_t max_user_points = 100;

  /// `record` is a tagPOINTLAT, tagPOINTPA or tagPOINTMO as the mode says; null means "no record": every
  /// point is missing and the scale is 0. Null counts are counts of 0; counts beyond the record's slots are
  /// cut to them.
  Tracing(Mode mode, const void *record, const unsigned short *virtual_count, const tagKPOINT *virtual_points,
          const unsigned short *user_count, const tagUPOINT *user_points);

  Mode mode() const { return mode_; }
  bool has_record() const { return record_ != nullptr; }
  double scale() const { return scale_; }                          ///< millimetres per pixel
  std::span<const POINT> landmarks() const { return landmarks_; }  ///< by index of the vocabulary, pixels
  std::size_t user_point_count() const { return user_count_; }
  /// Name slot and coordinates of the record; an empty name holds no point.
  UserPoint user_point(std::size_t i) const;
  const POINT *user_positions() const {
    return user_positions_;
  }  ///< parallel to the name slots; may be null
  std::span<const tagUPOINT> user_definitions() const { return user_definitions_; }
  std::span<const tagKPOINT> virtual_points() const { return virtual_points_; }
  const tagPOINTLAT *lateral() const;  ///< null unless the mode uses the lateral record
  const tagPOINTMO *model() const;     ///< null unless the mode uses the cast record

 private:
  Mode mode_;
  const void *record_;
  double scale_ = 0.0;
  std::span<const POINT> landmarks_;
  const char (*user_names_)[6] = nullptr;
  const POINT *user_positions_ = nullptr;
  std::size_t user_count_ = 0;
  std::span<const tagUPOINT> user_definitions_;
  std::span<const tagKPOINT> virtual_points_;
};

}  // namespace analysis
