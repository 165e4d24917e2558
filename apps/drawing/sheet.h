#pragma once
// A sheet of paper under a device context. Positions and sizes are millimetres from its top left corner; the
// sheet turns them into the context's pixels.

#include <string_view>

#include "tool/tool.h"

namespace app {

struct SheetPoint {
  double x, y;  ///< mm
};
struct SheetBox {
  double left, top, right, bottom;  ///< mm
  double width() const { return right - left; }
  double height() const { return bottom - top; }
  SheetPoint middle() const { return {(left + right) / 2, (top + bottom) / 2}; }
};

enum class TextSide { left, middle, right };

struct TextLook {
  double height = 3.2;  ///< of a character cell, mm
  COLORREF color = RGB(0, 0, 0);
  bool bold = false;
  TextSide side = TextSide::left;  ///< which end of the text stands at the position
};

class Sheet {
 public:
  /// The context draws in pixels (MM_TEXT) on a device that knows its pixels per millimetre.
  Sheet(CDC &context, double pixels_per_mm) : context_(context), pixels_per_mm_(pixels_per_mm) {}

  CDC &context() const { return context_; }
  double pixels_per_mm() const { return pixels_per_mm_; }
  int pixels(double mm) const;
  CPoint at(SheetPoint point) const { return {pixels(point.x), pixels(point.y)}; }
  CRect at(const SheetBox &box) const;

  /// `tenths`: width in tenths of a millimetre; `style`: 0 solid, 1 dashed, 2 dotted, 3 and 4 dash-dot.
  void line(SheetPoint from, SheetPoint to, int tenths, COLORREF color, int style = 0) const;
  void fill(const SheetBox &box, COLORREF color) const;
  /// UTF-8; characters that code page 932 lacks become '?'. The position is the top of the line.
  void text(SheetPoint place, std::string_view utf8, const TextLook &look) const;
  double text_width(std::string_view utf8, const TextLook &look) const;  ///< mm

 private:
  CDC &context_;
  double pixels_per_mm_;
};

}  // namespace app
