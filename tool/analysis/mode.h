#pragma once
// The analysis mode: the integer that selects vocabulary, record and definition folder of every call.

namespace analysis {

/// Any other value is allowed and behaves like the cast model without a folder of its own.
enum class Mode : int {
  lateral = 0,
  frontal = 1,
  model = 2,
  lateral_diagnosis = 10,
  frontal_second = 11,
  surgery = 20,
};

enum class RecordKind { lateral, frontal, model };

constexpr RecordKind record_kind(Mode mode) {
  switch (mode) {
    case Mode::lateral:
    case Mode::lateral_diagnosis:
    case Mode::surgery:
      return RecordKind::lateral;
    case Mode::frontal:
    case Mode::frontal_second:
      return RecordKind::frontal;
    default:
      return RecordKind::model;
  }
}

/// "No value" in measurement results and norm look-ups.
inline constexpr double missing_value = 999999999.0;

}  // namespace analysis
