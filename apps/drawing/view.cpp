#include "apps/drawing/view.h"

#include <algorithm>

namespace app {

std::optional<ImageBox> bounds_of(const std::vector<CPoint> &points) {
  std::optional<ImageBox> box;
  for (const CPoint &p : points) {
    if (p == CPoint(0, 0)) continue;
    const double x = p.x, y = p.y;
    if (!box) box = ImageBox{x, y, x, y};
    *box = {std::min(box->left, x), std::min(box->top, y), std::max(box->right, x), std::max(box->bottom, y)};
  }
  return box;
}

View::View(const Sheet &sheet, const ImageBox &box, const SheetBox &frame, double magnification, double scale)
    : sheet_(sheet), magnification_(magnification), scale_(scale) {
  const CPoint middle = sheet.at(frame.middle());
  origin_ = {static_cast<int>((box.left + box.right) / 2 * magnification) - middle.x,
             static_cast<int>((box.top + box.bottom) / 2 * magnification) - middle.y};
}

View View::fitted(const Sheet &sheet, const ImageBox &box, const SheetBox &frame, double scale) {
  const double wide = std::max(box.right - box.left, 1.0);
  const double high = std::max(box.bottom - box.top, 1.0);
  const double fit = std::min(frame.width() / wide, frame.height() / high);
  return {sheet, box, frame, fit * sheet.pixels_per_mm(), scale};
}

View View::life_size(const Sheet &sheet, const ImageBox &box, const SheetBox &frame, double scale) {
  return {sheet, box, frame, scale * sheet.pixels_per_mm(), scale};
}

CPoint View::at(CPoint film) const {
  return CCalcTool::Point_Make2(&sheet_.context(), origin_.x, origin_.y, magnification_, film, 0.0, nullptr,
                                0, 1, 1.0);
}

SheetPoint View::on_sheet(CPoint film) const {
  const CPoint p = at(film);
  return {p.x / sheet_.pixels_per_mm(), p.y / sheet_.pixels_per_mm()};
}

}  // namespace app
