#include "tool/analysis/landmarks.h"

#include "tool/analysis/name_index.h"

namespace analysis {

const std::array<std::string_view, lateral_landmark_count> lateral_landmarks{
    "S",    "N",      "SB",   "Or",     "ANS",   "A",      "U1C", "U1",    "U1R",    "L1",    "L1R",
    "L1C",  "B",      "PM",   "Pog(R)", "Pog",   "Gn",     "Me",  "Go(L)", "Go",     "Go(P)", "Ar",
    "DC",   "Cd",     "Po",   "Ba",     "PT",    "Ptm",    "PNS", "Xi",    "UMo(D)", "UMo",   "PMo",
    "LMo",  "LMo(D)", "N(s)", "TN",     "SN",    "TUL",    "Sto", "TLL",   "TC",     "D",     "CdE",
    "UMoR", "LMoR",   "PTV",  "Gl",     "Me(s)", "Pog(s)", "Vmi"};

const std::array<std::string_view, frontal_landmark_count> frontal_landmarks{
    "U3R", "U3L", "U6R", "U6L", "AGR", "AGL", "L3R", "L3L", "L6R", "L6L", "JR",   "JL",   "Me", "NCR",
    "NCL", "ZR",  "ZL",  "ZAR", "ZAL", "ANS", "A",   "B",   "6R",  "6L",  "UMid", "LMid", "CG"};

std::span<const std::string_view> vocabulary(RecordKind kind) {
  switch (kind) {
    case RecordKind::lateral:
      return lateral_landmarks;
    case RecordKind::frontal:
      return frontal_landmarks;
    case RecordKind::model:
      return {};
  }
  return {};
}

namespace {

NameIndex index_of(std::span<const std::string_view> names) {
  NameIndex index(names.size());
  for (std::size_t k = 0; k < names.size(); ++k) index.insert(names[k], static_cast<std::uint32_t>(k));
  return index;
}

}  // namespace

std::optional<int> find_landmark(RecordKind kind, std::string_view name) {
  static const NameIndex lateral_index = index_of(lateral_landmarks);
  static const NameIndex frontal_index = index_of(frontal_landmarks);
  if (kind == RecordKind::model) return std::nullopt;
  const NameIndex &index = kind == RecordKind::lateral ? lateral_index : frontal_index;
  if (const std::optional<std::uint32_t> found = index.find(name)) return static_cast<int>(*found);
  return std::nullopt;
}

}  // namespace analysis
