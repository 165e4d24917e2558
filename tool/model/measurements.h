#pragma once
// Tooth-size and arch measurements of the dental cast model.

#include "tool/model/records.h"

namespace model {

/// The two outputs of a model item; -1 where nothing could be computed.
struct ItemValues {
  double a = -1.0;  ///< the value, or the second side of a per-tooth item
  double b = -1.0;  ///< the first side of a per-tooth item, or -2: the item has a single value
};

/// Model item 0 to 27. `sex` 1 selects the first regression coefficients, every other value the second.
ItemValues item(int sex, const tagPOINTMO &tracing, const tagMOEX &typed, int number);

}  // namespace model
