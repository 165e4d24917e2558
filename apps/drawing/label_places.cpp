#include "apps/drawing/label_places.h"

#include <algorithm>
#include <array>

namespace app {
namespace {

double overlap(const SheetBox &a, const SheetBox &b) {
  const double width = std::min(a.right, b.right) - std::max(a.left, b.left);
  const double height = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
  return width > 0 && height > 0 ? width * height : 0;
}

SheetBox box_at(SheetPoint corner, const LabelRequest &request) {
  return {corner.x, corner.y, corner.x + request.width, corner.y + request.height};
}

/// Right, left, above, below, then the corners.
std::array<SheetPoint, 8> corners(const LabelRequest &r, double gap) {
  const double left = r.point.x - gap - r.width;
  const double right = r.point.x + gap;
  const double above = r.point.y - gap - r.height;
  const double below = r.point.y + gap;
  const double middle_x = r.point.x - r.width / 2;
  const double middle_y = r.point.y - r.height / 2;
  return {{{right, middle_y},
           {left, middle_y},
           {middle_x, above},
           {middle_x, below},
           {right, above},
           {right, below},
           {left, above},
           {left, below}}};
}

}  // namespace

std::vector<SheetPoint> place_labels(std::span<const LabelRequest> requests, double gap,
                                     std::span<const SheetBox> occupied) {
  std::vector<SheetPoint> places;
  std::vector<SheetBox> taken(occupied.begin(), occupied.end());
  for (const LabelRequest &request : requests)
    taken.push_back(
        {request.point.x - gap, request.point.y - gap, request.point.x + gap, request.point.y + gap});
  for (const LabelRequest &request : requests) {
    double least = 0;
    SheetPoint best{};
    bool first = true;
    for (const SheetPoint &corner : corners(request, gap)) {
      double covered = 0;
      for (const SheetBox &box : taken) covered += overlap(box_at(corner, request), box);
      if (!first && covered >= least) continue;
      first = false;
      least = covered;
      best = corner;
    }
    places.push_back(best);
    taken.push_back(box_at(best, request));
  }
  return places;
}

}  // namespace app
