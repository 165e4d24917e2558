#pragma once
// Where the pixels of a film fall on a sheet.

#include <optional>
#include <vector>

#include "apps/drawing/sheet.h"

namespace app {

/// Image pixels of a film, half-open.
struct ImageBox {
  double left, top, right, bottom;
};

/// The smallest box round the points that are placed; empty when none is.
std::optional<ImageBox> bounds_of(const std::vector<CPoint> &points);

class View {
 public:
  /// Fits `box` into `frame` as large as it goes, in the middle. `scale`: millimetres a film pixel.
  static View fitted(const Sheet &sheet, const ImageBox &box, const SheetBox &frame, double scale);
  /// One millimetre of the patient is one millimetre of the sheet.
  static View life_size(const Sheet &sheet, const ImageBox &box, const SheetBox &frame, double scale);

  const Sheet &sheet() const { return sheet_; }
  double magnification() const { return magnification_; }  ///< device pixels a film pixel
  CPoint origin() const { return origin_; }                ///< device pixels, subtracted after magnifying
  double scale() const { return scale_; }                  ///< millimetres a film pixel
  /// Millimetres on the sheet for one millimetre of the patient.
  double enlargement() const { return magnification_ / (sheet_.pixels_per_mm() * scale_); }

  CPoint at(CPoint film) const;            ///< device pixels
  SheetPoint on_sheet(CPoint film) const;  ///< mm

 private:
  View(const Sheet &sheet, const ImageBox &box, const SheetBox &frame, double magnification, double scale);

  const Sheet &sheet_;
  double magnification_;
  CPoint origin_;
  double scale_;
};

}  // namespace app
