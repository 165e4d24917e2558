#pragma once
// The two built-in landmark vocabularies. Landmark k of a table is entry 8 + k of its record's pt array.

#include <array>
#include <optional>
#include <span>
#include <string_view>

#include "tool/analysis/mode.h"

namespace analysis {

inline constexpr int first_landmark_entry = 8;  ///< landmark k lies in pt[first_landmark_entry + k]
inline constexpr int lateral_landmark_count = 51;
inline constexpr int frontal_landmark_count = 27;

extern const std::array<std::string_view, lateral_landmark_count> lateral_landmarks;
extern const std::array<std::string_view, frontal_landmark_count> frontal_landmarks;

/// The vocabulary of a record kind; empty for the cast model.
std::span<const std::string_view> vocabulary(RecordKind kind);

/// Index of the landmark with exactly this name, case-sensitive.
std::optional<int> find_landmark(RecordKind kind, std::string_view name);

inline constexpr int no_landmark = -1;
/// The same for the name at [begin, begin + length) of a longer text, which is the faster question;
/// no_landmark when there is none.
int landmark_at(RecordKind kind, std::string_view text, std::size_t begin, std::size_t length);

/// Index of a lateral landmark in the table, for code that works on single landmarks.
namespace lateral {
enum Landmark : int {
  S,
  N,
  SB,
  Or,
  ANS,
  A,
  U1C,
  U1,
  U1R,
  L1,
  L1R,
  L1C,
  B,
  PM,
  PogR,
  Pog,
  Gn,
  Me,
  GoL,
  Go,
  GoP,
  Ar,
  DC,
  Cd,
  Po,
  Ba,
  PT,
  Ptm,
  PNS,
  Xi,
  UMoD,
  UMo,
  PMo,
  LMo,
  LMoD,
  Ns,
  TN,
  SN,
  TUL,
  Sto,
  TLL,
  TC,
  D,
  CdE,
  UMoR,
  LMoR,
  PTV,
  Gl,
  Mes,
  Pogs,
  Vmi
};
}

namespace frontal {
enum Landmark : int {
  U3R,
  U3L,
  U6R,
  U6L,
  AGR,
  AGL,
  L3R,
  L3L,
  L6R,
  L6L,
  JR,
  JL,
  Me,
  NCR,
  NCL,
  ZR,
  ZL,
  ZAR,
  ZAL,
  ANS,
  A,
  B,
  SixR,
  SixL,
  UMid,
  LMid,
  CG
};
}

}  // namespace analysis
