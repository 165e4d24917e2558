#pragma once
// Puts the names of landmarks beside their points so that they do not lie over each other.

#include <span>
#include <vector>

#include "apps/drawing/sheet.h"

namespace app {

struct LabelRequest {
  SheetPoint point;
  double width, height;  ///< of the text, mm
};

/// For each request the top left corner of its text: one of eight places round the point, at `gap` mm, the
/// one that covers the least of other points, of labels placed before and of `occupied`. Earlier requests
/// choose first.
std::vector<SheetPoint> place_labels(std::span<const LabelRequest> requests, double gap,
                                     std::span<const SheetBox> occupied = {});

}  // namespace app
