#pragma once
// Tracings with every landmark placed, the same in every run: what the fuzz targets evaluate on.

#include <array>
#include <cstring>

#include "tool/analysis/landmarks.h"
#include "tool/analysis/tracing.h"

namespace fuzz {

inline constexpr int user_point_count = 2;
inline constexpr int virtual_point_count = 6;

/// Landmarks on a spiral: no three in line, no two together, all within a film of 2000 pixels.
template <class Record>
void place_landmarks(Record &record, int count) {
  for (int k = 0; k < count; ++k) {
    record.pt[analysis::first_landmark_entry + k] = {300 + 23 * k + (k * k) % 37, 400 + (k * 517) % 1201};
  }
}

template <class Record>
void place_user_points(Record &record) {
  std::memcpy(record.userName[0], "U-a", 4);
  std::memcpy(record.userName[1], "U-b", 4);
  record.userPoint[0] = {700, 811};
  record.userPoint[1] = {1203, 905};
}

inline tagPOINTMO cast_record() {
  tagPOINTMO record{};
  record.scale = 0.1;
  record.mixed = 1;
  for (int slot = 0; slot < 7; ++slot) {
    for (int k = 0; k < 4; ++k) {
      record.upper[slot][k] = {100 + 83 * k + 11 * slot, 200 + 7 * slot};
      record.lower[slot][k] = {105 + 71 * k + 13 * slot, 600 + 5 * slot};
    }
  }
  std::memset(record.present, 1, sizeof record.present);
  return record;
}

struct Records {
  tagPOINTLAT lateral{};
  tagPOINTPA frontal{};
  tagPOINTMO model = cast_record();
  std::array<tagKPOINT, virtual_point_count> virtual_points{};
  std::array<tagUPOINT, user_point_count> user_points{};
  unsigned short virtual_count = virtual_point_count;
  unsigned short user_count = user_point_count;

  Records() {
    lateral.scale = 0.1;
    frontal.scale = 0.125;
    place_landmarks(lateral, analysis::lateral_landmark_count);
    place_landmarks(frontal, analysis::frontal_landmark_count);
    place_user_points(lateral);
    place_user_points(frontal);
    place_user_points(model);
    std::memcpy(user_points[0].name, "U-a", 4);
    std::memcpy(user_points[1].name, "U-b", 4);
    virtual_points = {{{"V0", "0", "S", "N", "U-a", "", ""},
                       {"V1", "1", "U-a", "U-b", "", "", ""},
                       {"V2", "2", "S", "N", "A", "B", ""},
                       {"V3", "3", "V1", "N", "A", "", ""},
                       {"V4", "4", "S", "N", "90", "", "12.5"},
                       {"V5", "1", "V5", "V4", "", "", ""}}};
  }

  void *record(analysis::Mode mode) {
    switch (analysis::record_kind(mode)) {
      case analysis::RecordKind::lateral:
        return &lateral;
      case analysis::RecordKind::frontal:
        return &frontal;
      default:
        return &model;
    }
  }
  analysis::Tracing tracing(analysis::Mode mode) {
    return {mode, record(mode), &virtual_count, virtual_points.data(), &user_count, user_points.data()};
  }
};

inline constexpr std::array modes = {analysis::Mode::lateral,        analysis::Mode::frontal,
                                     analysis::Mode::model,          analysis::Mode::lateral_diagnosis,
                                     analysis::Mode::frontal_second, analysis::Mode::surgery,
                                     static_cast<analysis::Mode>(7)};

}  // namespace fuzz
