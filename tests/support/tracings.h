#pragma once
// Records for tests, filled by landmark name.

#include <initializer_list>
#include <string_view>

#include "tool/analysis/landmarks.h"
#include "tool/analysis/records.h"

namespace support {

struct Placed {
  std::string_view name;
  POINT position;
};

template <typename Record>
Record record_with(analysis::RecordKind kind, double scale, std::initializer_list<Placed> points) {
  Record record{};
  record.scale = scale;
  for (const Placed &point : points) {
    record.pt[analysis::first_landmark_entry + analysis::find_landmark(kind, point.name).value()] =
        point.position;
  }
  return record;
}

inline tagPOINTLAT lateral_record(double scale, std::initializer_list<Placed> points) {
  return record_with<tagPOINTLAT>(analysis::RecordKind::lateral, scale, points);
}

inline tagPOINTPA frontal_record(double scale, std::initializer_list<Placed> points) {
  return record_with<tagPOINTPA>(analysis::RecordKind::frontal, scale, points);
}

}  // namespace support
