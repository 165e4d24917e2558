#include "tool/analysis/landmarks.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace analysis {

constexpr std::array<std::string_view, lateral_landmark_count> lateral_landmarks{
    "S",    "N",      "SB",   "Or",     "ANS",   "A",      "U1C", "U1",    "U1R",    "L1",    "L1R",
    "L1C",  "B",      "PM",   "Pog(R)", "Pog",   "Gn",     "Me",  "Go(L)", "Go",     "Go(P)", "Ar",
    "DC",   "Cd",     "Po",   "Ba",     "PT",    "Ptm",    "PNS", "Xi",    "UMo(D)", "UMo",   "PMo",
    "LMo",  "LMo(D)", "N(s)", "TN",     "SN",    "TUL",    "Sto", "TLL",   "TC",     "D",     "CdE",
    "UMoR", "LMoR",   "PTV",  "Gl",     "Me(s)", "Pog(s)", "Vmi"};

constexpr std::array<std::string_view, frontal_landmark_count> frontal_landmarks{
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

constexpr std::size_t longest_name = 6;

/// The letters of a short name as one number, the first one lowest, so that names are compared at once.
constexpr std::uint64_t packed(std::string_view name) {
  std::uint64_t letters = 0;
  for (std::size_t i = 0; i < name.size(); ++i) {
    letters |= std::uint64_t{static_cast<unsigned char>(name[i])} << (8 * i);
  }
  return letters;
}

/// The same for a name inside a longer text: eight bytes are read at once where the text goes on that far.
std::uint64_t packed(std::string_view text, std::size_t begin, std::size_t length) {
  std::uint64_t letters = 0;
  if (std::endian::native != std::endian::little || text.size() - begin < sizeof letters) {
    return packed(text.substr(begin, length));
  }
  std::memcpy(&letters, text.data() + begin, sizeof letters);
  return letters & ((std::uint64_t{1} << (8 * length)) - 1);
}

/// A hash table over the packed names of a vocabulary. The multiplier was searched for: it gives every name
/// of either vocabulary a slot of its own, so that one comparison decides; with another one this does not
/// compile.
class LandmarkIndex {
 public:
  constexpr explicit LandmarkIndex(std::span<const std::string_view> names) {
    for (std::size_t k = 0; k < names.size(); ++k) {
      Slot &slot = slots_[place(packed(names[k]))];
      if (slot.letters != 0) throw "two names share a slot: search for another multiplier";
      slot.letters = packed(names[k]);
      slot.landmark = static_cast<int>(k);
    }
  }

  int find(std::string_view text, std::size_t begin, std::size_t length) const {
    if (length == 0 || length > longest_name) return no_landmark;
    const std::uint64_t letters = packed(text, begin, length);
    const Slot &slot = slots_[place(letters)];
    return letters != 0 && slot.letters == letters ? slot.landmark : no_landmark;
  }

 private:
  struct Slot {
    std::uint64_t letters = 0;  ///< 0: free
    int landmark = 0;
  };

  static constexpr std::size_t place(std::uint64_t letters) {
    return static_cast<std::size_t>(letters * 0x6FA53DE38FB3C6B5u >> 56);
  }

  std::array<Slot, 256> slots_{};
};

constexpr LandmarkIndex lateral_index(lateral_landmarks);
constexpr LandmarkIndex frontal_index(frontal_landmarks);

}  // namespace

int landmark_at(RecordKind kind, std::string_view text, std::size_t begin, std::size_t length) {
  switch (kind) {
    case RecordKind::lateral:
      return lateral_index.find(text, begin, length);
    case RecordKind::frontal:
      return frontal_index.find(text, begin, length);
    case RecordKind::model:
      return no_landmark;
  }
  return no_landmark;
}

std::optional<int> find_landmark(RecordKind kind, std::string_view name) {
  const int landmark = landmark_at(kind, name, 0, name.size());
  if (landmark == no_landmark) return std::nullopt;
  return landmark;
}

}  // namespace analysis
