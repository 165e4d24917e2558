#pragma once
// Text metrics without any font: every byte of code page 932 is one cell half as wide as it is high (a kanji
// two of them), as the fixed-pitch Japanese gothic has it. For devices that cannot measure.

#include <string_view>

#include "tool/framework/gdi/records.h"

namespace framework {

/// Height and average width of an unset font, pixels.
inline constexpr int default_cell_height = 16;

SIZE cell_text_extent(std::string_view text, const LOGFONTA &font);
TEXTMETRICA cell_text_metrics(const LOGFONTA &font);

}  // namespace framework
