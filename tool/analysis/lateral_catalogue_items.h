#pragma once
// The 148 items of the lateral catalogue as data: what each one measures, between which points. Only the
// catalogue's own source includes this file.

#include <algorithm>
#include <array>
#include <cstdint>

#include "tool/analysis/landmarks.h"
#include "tool/analysis/lateral_catalogue.h"

namespace analysis::lateral {

/// Points that the catalogue constructs, numbered behind the landmarks.
enum Constructed : int {
  CF = lateral_landmark_count,  ///< foot of PT on Po-Or, whole pixels
  Nperp,                        ///< foot of N on Po-Or, whole pixels
  Mi,                           ///< between the incisor edges, from L1, whole pixels
  Mm,                           ///< between the first molars, from LMo, whole pixels
  MiU,                          ///< the same from U1: truncation depends on the order
  MmU,                          ///< the same from UMo
  CFd,                          ///< CF in doubles
  Mid,                          ///< Mi in doubles
  Mmd,                          ///< Mm in doubles
  GnX,                          ///< N-Pog(R) crossed with Me-Go(L)
  CC,                           ///< Ba-N crossed with PT-Gn
  GoX,                          ///< Go(L)-Me crossed with Ar-Go(P)
  RamusGoX                      ///< the same crossing formed from Ar-Go(P) first
};

/// What is measured. p, q, r, t are an item's points in order; for the last group they are item numbers.
enum class Measure : std::uint8_t {
  angle,         ///< signed, from p-q to r-t, all of them landmarks
  built_angle,   ///< the same with constructed points
  length,        ///< p to q in whole pixels
  real_length,   ///< p to q in doubles
  to_foot,       ///< p to the foot of q on r-t
  between_feet,  ///< between the feet of p and q on r-t
  setback,       ///< p to its foot on r-t, negative where p lies behind the line
  real_setback,  ///< the same with the foot in doubles
  real_height,   ///< p to its foot on r-t in doubles, unsigned
  behind,        ///< p to the foot of q on r-t, negative where the foot lies in front of p
  wits,          ///< between the feet of p and q on r-t, negative unless the foot of q lies behind that of p
  difference,    ///< item p - item q
  sum,           ///< item p + item q
  sum_of_three,  ///< item p + item q + item r
  ratio,         ///< item p / item q
  extraction,    ///< item p - (130 - item q) / 5 - (item r + item t)
};

enum class Sign : std::uint8_t { kept, negated, negated_by_setting };

struct Item {
  Measure measure;
  std::array<std::uint8_t, 4> points;
  std::uint8_t flag;
  const char *name;
  Sign sign = Sign::kept;
};

// clang-format off
inline constexpr std::array items{
    // Analysis 0: linear measurements
    Item{Measure::length, {S, N}, 0, "Anterior cranial base (S to N)"},
    Item{Measure::length, {N, ANS}, 0, "Upper anterior face height (N to ANS)"},
    Item{Measure::length, {ANS, Me}, 0, "Lower anterior face height (ANS to Me)"},
    Item{Measure::length, {N, Me}, 0, "Total anterior face height (N to Me)"},
    Item{Measure::between_feet, {S, Ptm, PNS, ANS}, 0, "S to Ptm along the palatal plane"},
    Item{Measure::between_feet, {A, Ptm, PNS, ANS}, 0, "Maxillary depth (A to Ptm along the palatal plane)"},
    Item{Measure::between_feet, {Ptm, UMo, PNS, ANS}, 0, "Ptm to upper molar along the palatal plane"},
    Item{Measure::between_feet, {A, UMo, PNS, ANS}, 0, "A to upper molar along the palatal plane"},
    Item{Measure::to_foot, {U1, U1, PNS, ANS}, 0, "Upper incisor height (U1 to palatal plane)"},
    Item{Measure::to_foot, {UMo, UMo, PNS, ANS}, 0, "Upper molar height (UMo to palatal plane)"},
    Item{Measure::length, {U1, UMo}, 0, "Upper incisor to molar (U1 to UMo)"},
    Item{Measure::length, {Cd, Gn}, 0, "Mandibular length (Cd to Gn)"},
    Item{Measure::to_foot, {Go, Pog, GoL, Me}, 0, "Mandibular body (Go to Pog on the mandibular plane)"},
    Item{Measure::length, {Cd, Go}, 0, "Ramus height (Cd to Go)"},
    Item{Measure::to_foot, {L1, L1, GoL, Me}, 0, "Lower incisor height (L1 to mandibular plane)"},
    Item{Measure::to_foot, {LMo, LMo, GoL, Me}, 0, "Lower molar height (LMo to mandibular plane)"},
    Item{Measure::length, {L1, LMo}, 0, "Lower incisor to molar (L1 to LMo)"},

    // Analysis 1: angular measurements
    Item{Measure::angle, {Or, Po, N, Pog}, 1, "Facial angle (FH to N-Pog)"},
    Item{Measure::angle, {A, Pog, N, A}, 1, "Angle of convexity (A-Pog to N-A)"},
    Item{Measure::angle, {B, A, Pog, N}, 1, "A-B plane (A-B to N-Pog)", Sign::negated},
    Item{Measure::angle, {S, Gn, Po, Or}, 1, "Y axis to FH (S-Gn to FH)"},
    Item{Measure::angle, {Po, Or, S, N}, 1, "FH to SN"},
    Item{Measure::angle, {N, S, N, A}, 1, "SNA (N-S to N-A)"},
    Item{Measure::angle, {N, S, N, B}, 1, "SNB (N-S to N-B)"},
    Item{Measure::difference, {5, 6}, 1, "ANB (SNA minus SNB)"},
    Item{Measure::angle, {N, S, N, Pog}, 1, "SNP (N-S to N-Pog)"},
    Item{Measure::angle, {PNS, ANS, S, N}, 1, "Palatal plane to SN"},
    Item{Measure::angle, {Or, Po, ANS, PNS}, 1, "Palatal plane to FH", Sign::negated_by_setting},
    Item{Measure::angle, {GoL, Me, S, N}, 1, "Mandibular plane to SN"},
    Item{Measure::angle, {GoL, Me, Po, Or}, 1, "Mandibular plane to FH"},
    Item{Measure::angle, {Ar, GoP, S, N}, 1, "Ramus plane to SN"},
    Item{Measure::angle, {Ar, GoP, Po, Or}, 1, "Ramus plane to FH"},
    Item{Measure::angle, {GoL, Me, GoP, Ar}, 1, "Gonial angle (mandibular to ramus plane)"},
    Item{Measure::angle, {N, S, U1R, U1}, 1, "Upper incisor to SN"},
    Item{Measure::angle, {Or, Po, U1R, U1}, 1, "Upper incisor to FH"},
    Item{Measure::angle, {L1R, L1, Me, GoL}, 1, "Lower incisor to mandibular plane"},
    Item{Measure::angle, {U1R, U1, L1R, L1}, 1, "Interincisal angle"},
    Item{Measure::built_angle, {Mm, Mi, S, N}, 1, "Occlusal plane to SN"},
    Item{Measure::built_angle, {Mm, Mi, Po, Or}, 1, "Occlusal plane to FH"},

    // Analysis 2: axes, depth and growth direction of the face
    Item{Measure::built_angle, {N, Ba, PT, GnX}, 1, "Facial axis (Ba-N to PT-Gn)"},
    Item{Measure::angle, {Or, Po, N, PogR}, 1, "Facial depth (FH to N-Pog)"},
    Item{Measure::angle, {GoL, Me, Po, Or}, 1, "Mandibular plane to FH"},
    Item{Measure::angle, {Xi, PM, Xi, ANS}, 1, "Lower face height (PM-Xi-ANS)"},
    Item{Measure::angle, {Xi, DC, PM, Xi}, 1, "Mandibular arc (DC-Xi to Xi-PM)"},
    Item{Measure::angle, {Xi, PM, Ba, N}, 1, "Total face height (Xi-PM to Ba-N)"},
    Item{Measure::setback, {A, A, N, PogR}, 0, "Convexity (A to N-Pog)"},
    Item{Measure::setback, {L1, L1, A, PogR}, 0, "Lower incisor protrusion (L1 to A-Pog)"},
    Item{Measure::angle, {L1, L1R, A, PogR}, 1, "Lower incisor inclination (to A-Pog)"},
    Item{Measure::to_foot, {UMoD, UMoD, PT, CF}, 0, "Upper molar position (to the pterygoid vertical)"},
    Item{Measure::setback, {TLL, TLL, TN, TC}, 0, "Lower lip to esthetic line"},
    Item{Measure::angle, {Po, Or, Ba, N}, 1, "Cranial deflection (FH to Ba-N)"},
    Item{Measure::real_length, {N, CC}, 0, "Anterior cranial length (N to CC)"},
    Item{Measure::real_length, {GoX, CFd}, 0, "Posterior face height (Go to CF)"},
    Item{Measure::built_angle, {Or, Po, CF, Xi}, 1, "Ramus position (FH to CF-Xi)"},
    Item{Measure::length, {Po, CF}, 0, "Porion location (Po to CF)", Sign::negated},
    Item{Measure::length, {Xi, PM}, 0, "Corpus length (Xi to PM)"},
    Item{Measure::setback, {A, A, N, Nperp}, 0, "A to nasion perpendicular"},
    Item{Measure::setback, {PogR, PogR, N, Nperp}, 0, "Pog to nasion perpendicular"},

    // Analysis 3: angles at the articulare
    Item{Measure::angle, {Ar, Gn, Po, Or}, 1, "Ar-Gn to FH"},
    Item{Measure::angle, {Or, Po, ANS, PNS}, 1, "Palatal plane to FH", Sign::negated_by_setting},
    Item{Measure::angle, {GoL, Me, Po, Or}, 1, "Mandibular plane to FH"},
    Item{Measure::angle, {PNS, Ar, ANS, PNS}, 1, "PNS-Ar to palatal plane"},
    Item{Measure::angle, {GoL, Me, GoP, Ar}, 1, "Gonial angle (mandibular to ramus plane)"},
    Item{Measure::angle, {UMo, U1, UMo, L1}, 1, "Incisor overlap seen from the upper molar (U1-UMo-L1)", Sign::negated},
    Item{Measure::angle, {UMo, U1, Po, Or}, 1, "Upper occlusal line to FH (UMo-U1 to FH)"},
    Item{Measure::angle, {UMo, L1, Po, Or}, 1, "Lower occlusal line to FH (UMo-L1 to FH)"},
    Item{Measure::angle, {Ar, UMo, Ar, PNS}, 1, "Posterior maxillary height (UMo-Ar-PNS)"},
    Item{Measure::angle, {Ar, Go, Ar, UMo}, 1, "Posterior mandibular height (Go-Ar-UMo)"},
    Item{Measure::angle, {Ar, U1, Ar, ANS}, 1, "Anterior maxillary height (U1-Ar-ANS)"},
    Item{Measure::angle, {Ar, Gn, Ar, L1}, 1, "Anterior mandibular height (Gn-Ar-L1)"},

    // Analysis 4: jaws and incisors against N-A and N-B
    Item{Measure::angle, {N, S, N, A}, 1, "SNA (N-S to N-A)"},
    Item{Measure::angle, {N, S, N, B}, 1, "SNB (N-S to N-B)"},
    Item{Measure::difference, {0, 1}, 1, "ANB (SNA minus SNB)"},
    Item{Measure::angle, {N, S, N, D}, 1, "SND (N-S to N-D)"},
    Item{Measure::setback, {U1C, U1C, N, A}, 0, "Upper incisor to N-A, distance"},
    Item{Measure::angle, {N, A, U1R, U1}, 1, "Upper incisor to N-A, angle"},
    Item{Measure::setback, {L1C, L1C, N, B}, 0, "Lower incisor to N-B, distance"},
    Item{Measure::angle, {L1R, L1, B, N}, 1, "Lower incisor to N-B, angle"},
    Item{Measure::setback, {Pog, Pog, N, B}, 0, "Pog to N-B"},
    Item{Measure::angle, {U1, U1R, L1, L1R}, 1, "Interincisal angle"},
    Item{Measure::built_angle, {Mm, Mi, S, N}, 1, "Occlusal plane to SN"},
    Item{Measure::angle, {Go, Gn, S, N}, 1, "Go-Gn to SN"},
    Item{Measure::to_foot, {S, Pog, S, N}, 0, "SL (S to Pog along SN)"},
    Item{Measure::behind, {S, CdE, S, N}, 0, "SE (S to the condyle's rear along SN)"},
    Item{Measure::angle, {GoL, Me, Po, Or}, 1, "Mandibular plane to FH"},
    Item{Measure::angle, {L1R, L1, Me, GoL}, 1, "Lower incisor to mandibular plane"},
    Item{Measure::angle, {Or, Po, L1, L1R}, 1, "Lower incisor to FH"},

    // Analysis 5: facial profile and denture
    Item{Measure::angle, {Pog, A, A, N}, 1, "Angle of convexity (A-Pog to N-A)"},
    Item{Measure::angle, {N, S, N, A}, 1, "SNA (N-S to N-A)"},
    Item{Measure::angle, {N, S, N, B}, 1, "SNB (N-S to N-B)"},
    Item{Measure::difference, {1, 2}, 1, "ANB (SNA minus SNB)"},
    Item{Measure::angle, {Go, Gn, S, N}, 1, "Go-Gn to SN"},
    Item{Measure::angle, {Or, Po, N, Pog}, 1, "Facial angle (FH to N-Pog)"},
    Item{Measure::angle, {GoL, Me, Po, Or}, 1, "Mandibular plane to FH"},
    Item{Measure::angle, {S, Gn, Po, Or}, 1, "Y axis to FH (S-Gn to FH)"},
    Item{Measure::angle, {N, S, N, Gn}, 1, "SNGn (N-S to N-Gn)"},
    Item{Measure::angle, {S, N, U1, U1R}, 1, "Upper incisor to SN"},
    Item{Measure::angle, {U1, U1R, L1, L1R}, 1, "Interincisal angle"},
    Item{Measure::angle, {L1R, L1, Gn, Go}, 1, "Lower incisor to Go-Gn"},
    Item{Measure::built_angle, {MiU, MmU, L1, L1R}, 1, "Lower incisor to occlusal plane"},
    Item{Measure::built_angle, {MmU, MiU, B, A}, 1, "A-B to occlusal plane"},
    Item{Measure::setback, {U1, U1, N, Pog}, 1, "Upper incisor to facial plane (U1 to N-Pog)"},

    // Analysis 6: dysplasia indicators
    Item{Measure::angle, {Or, Po, N, Pog}, 1, "Facial angle (FH to N-Pog)"},
    Item{Measure::angle, {B, A, Pog, N}, 1, "A-B plane (A-B to N-Pog)", Sign::negated},
    Item{Measure::angle, {PNS, ANS, Po, Or}, 1, "Palatal plane to FH"},
    Item{Measure::angle, {B, A, Me, GoL}, 1, "A-B to mandibular plane"},
    Item{Measure::angle, {U1, U1R, L1, L1R}, 1, "Interincisal angle"},
    Item{Measure::setback, {TUL, TUL, TN, TC}, 0, "Upper lip to esthetic line"},
    Item{Measure::setback, {TLL, TLL, TN, TC}, 0, "Lower lip to esthetic line"},
    Item{Measure::sum_of_three, {0, 1, 2}, 1, "Anteroposterior dysplasia indicator (APDI)"},
    Item{Measure::sum, {2, 3}, 1, "Overbite depth indicator (ODI)"},
    Item{Measure::sum, {7, 8}, 1, "Combination factor (APDI plus ODI)"},
    Item{Measure::extraction, {9, 4, 5, 6}, 0, "Extraction index"},

    // Analysis 7: polygon of the growing face
    Item{Measure::angle, {S, Ar, S, N}, 1, "Saddle angle (N-S-Ar)"},
    Item{Measure::angle, {Ar, GoP, Ar, S}, 1, "Articular angle (S-Ar-Go)"},
    Item{Measure::angle, {GoL, Me, GoP, Ar}, 1, "Gonial angle (mandibular to ramus plane)"},
    Item{Measure::sum_of_three, {0, 1, 2}, 1, "Sum of saddle, articular and gonial angle"},
    Item{Measure::length, {S, N}, 1, "Anterior cranial base (S to N)"},
    Item{Measure::length, {S, Ar}, 1, "Posterior cranial base (S to Ar)"},
    Item{Measure::angle, {Go, N, Go, Ar}, 1, "Upper gonial angle (N-Go-Ar)"},
    Item{Measure::angle, {Go, Me, Go, N}, 1, "Lower gonial angle (Me-Go-N)"},
    Item{Measure::real_length, {Ar, RamusGoX}, 1, "Ramus height (Ar to Go)"},
    Item{Measure::real_length, {Me, RamusGoX}, 1, "Mandibular body (Me to Go)"},
    Item{Measure::ratio, {9, 4}, 1, "Mandibular body to anterior cranial base, ratio"},
    Item{Measure::angle, {N, S, N, A}, 1, "SNA (N-S to N-A)"},
    Item{Measure::angle, {N, S, N, B}, 1, "SNB (N-S to N-B)"},
    Item{Measure::difference, {11, 12}, 1, "ANB (SNA minus SNB)"},
    Item{Measure::angle, {GoL, Me, S, N}, 1, "Mandibular plane to SN"},
    Item{Measure::angle, {S, Gn, S, N}, 1, "Y axis to SN (S-Gn to SN)"},
    Item{Measure::real_length, {S, RamusGoX}, 1, "Posterior face height (S to Go)"},
    Item{Measure::length, {N, Me}, 1, "Anterior face height (N to Me)"},
    Item{Measure::ratio, {16, 17}, 1, "Posterior to anterior face height, ratio"},
    Item{Measure::angle, {N, S, N, Pog}, 1, "SNP (N-S to N-Pog)"},
    Item{Measure::angle, {N, A, A, Pog}, 1, "Angle of convexity (N-A to A-Pog)"},
    Item{Measure::built_angle, {GoL, Me, Mmd, Mid}, 1, "Occlusal plane to mandibular plane"},
    Item{Measure::angle, {U1R, U1, L1R, L1}, 1, "Interincisal angle"},
    Item{Measure::angle, {L1R, L1, Me, GoL}, 1, "Lower incisor to mandibular plane"},
    Item{Measure::real_height, {L1, L1, GoL, Me}, 1, "Lower incisor height (L1 to mandibular plane)"},
    Item{Measure::angle, {N, S, U1R, U1}, 1, "Upper incisor to SN"},
    Item{Measure::real_setback, {U1, U1, N, Pog}, 1, "Upper incisor to facial plane (U1 to N-Pog)"},
    Item{Measure::real_setback, {L1, L1, N, Pog}, 1, "Lower incisor to facial plane (L1 to N-Pog)"},
    Item{Measure::real_setback, {TLL, TLL, TN, TC}, 1, "Lower lip to esthetic line"},
    Item{Measure::real_setback, {TUL, TUL, TN, TC}, 1, "Upper lip to esthetic line"},

    // Analysis 8: effective lengths of the jaws
    Item{Measure::length, {ANS, Me}, 0, "Lower anterior face height (ANS to Me)"},
    Item{Measure::length, {Cd, A}, 0, "Effective midfacial length (Cd to A)"},
    Item{Measure::length, {Cd, Gn}, 0, "Effective mandibular length (Cd to Gn)"},
    Item{Measure::difference, {2, 1}, 0, "Maxillomandibular difference"},
    Item{Measure::wits, {A, B, MiU, MmU}, 0, "Wits appraisal (A and B on the occlusal plane)"},
};
// clang-format on

/// Where each analysis starts in `items`.
inline constexpr std::array<int, 10> starts = [] {
  std::array<int, 10> at{};
  for (std::size_t i = 0; i < 9; ++i) at[i + 1] = at[i] + lateral_catalogue_sizes[i];
  return at;
}();
static_assert(items.size() == 148 && starts.back() == 148);

/// Plain angles are read straight from the record.
static_assert(std::all_of(items.begin(), items.end(), [](const Item &item) {
  return item.measure != Measure::angle || std::all_of(item.points.begin(), item.points.end(),
                                                       [](int p) { return p < lateral_landmark_count; });
}));

}  // namespace analysis::lateral
