#include "tool/framework/gdi/cell_metrics.h"

#include <cstdlib>

#include "tool/framework/gdi/mapping.h"

namespace framework {
namespace {

// 64 bits: the magnitude of the smallest 32-bit number has no 32-bit home.
LONG cell_height(const LOGFONTA &font) {
  const double height = std::abs(static_cast<double>(font.lfHeight));
  return height == 0 ? default_cell_height : round_within(height, max_device_coordinate);
}

LONG cell_width(const LOGFONTA &font) {
  const double width = std::abs(static_cast<double>(font.lfWidth));
  return width == 0 ? (cell_height(font) + 1) / 2 : round_within(width, max_device_coordinate);
}

}  // namespace

SIZE cell_text_extent(std::string_view text, const LOGFONTA &font) {
  const double width = static_cast<double>(text.size()) * cell_width(font);
  return {round_within(width, max_device_coordinate), cell_height(font)};
}

TEXTMETRICA cell_text_metrics(const LOGFONTA &font) {
  TEXTMETRICA metrics{};
  metrics.tmHeight = cell_height(font);
  metrics.tmDescent = metrics.tmHeight / 8;
  metrics.tmAscent = metrics.tmHeight - metrics.tmDescent;
  metrics.tmAveCharWidth = cell_width(font);
  metrics.tmMaxCharWidth = 2 * metrics.tmAveCharWidth;
  metrics.tmWeight = font.lfWeight;
  metrics.tmItalic = font.lfItalic;
  metrics.tmUnderlined = font.lfUnderline;
  metrics.tmStruckOut = font.lfStrikeOut;
  metrics.tmPitchAndFamily = font.lfPitchAndFamily;
  metrics.tmCharSet = font.lfCharSet;
  return metrics;
}

}  // namespace framework
