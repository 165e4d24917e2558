#pragma once
// Tooth-size and arch measurements of the dental cast model. Widths are millimetres.

#include <span>

#include "tool/model/records.h"

namespace model {

inline constexpr int tooth_positions = 6;  ///< per quadrant, counted from the midline
inline constexpr int item_count = 28;

enum class Jaw { upper, lower };
enum class Side { first, second };  ///< width points 0 and 1, or 2 and 3 of a slot

/// The two outputs of a model item; -1 where nothing could be computed.
struct ItemValues {
  double a = -1.0;  ///< the value, or the second side of a per-tooth item
  double b = -1.0;  ///< the first side of a per-tooth item, or -2: the item has a single value
};

/// Model item 0 to 27. `sex` 1 selects the first regression coefficients, every other value the second.
///   0 to 5, 8 to 13   tooth widths, upper and lower; an absent tooth counts 0
///   6, 7, 14, 15      the two further distances of each jaw
///   16, 18            incisors and canines, upper and lower
///   17, 19            all twelve teeth; in a mixed dentition an incomplete canine and premolar segment is
///                     replaced by its prediction, which enters as -1 when it cannot be formed
///   20, 21            lower in percent of upper, of 16 and 18 and of 17 and 19
///   22, 23            predicted canine and premolar segment, upper and lower
///   24 to 27          values stored by the application
ItemValues item(int sex, const tagPOINTMO &tracing, const tagMOEX &typed, int number);

/// Width of one tooth whether present or not: the typed width unless it is 0 (a negative one as it stands),
/// else measured. 0 for a position outside 0 to 5.
double tooth_width(const tagPOINTMO &tracing, const tagMOEX &typed, Jaw jaw, Side side, int position);

/// Whether display entry 0 to 27 (two per slot, first side then second, upper jaw first) is to be shown,
/// given the presence flags; false for any other entry.
bool entry_shown(int entry, std::span<const unsigned char, 24> present);

}  // namespace model
