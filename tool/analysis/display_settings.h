#pragma once
// Display-setting files: which landmarks, lines and computed labels a tracing shows, and how.

#include <string>
#include <vector>

#include "tool/framework/types.h"

namespace analysis {

/// A supplementary line between two named points, as the caller's buffer holds it.
struct DisplaySegment {
  char from[6];
  char to[6];
  COLORREF color;
  std::int32_t weight;  ///< 102 bold, 101 normal
};
static_assert(sizeof(DisplaySegment) == 20);

struct DisplaySettings {
  static constexpr std::size_t max_segments = 30;
  std::vector<DisplaySegment> segments;
  std::vector<std::string> points;          ///< landmark names to show; empty: all
  std::vector<std::string> labels;          ///< packed texts, see format in the source
  std::vector<std::string> point_settings;  ///< lines for the caller
};

DisplaySettings parse_display_settings(std::string text);

}  // namespace analysis
