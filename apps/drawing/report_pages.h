#pragma once
// A report set on pages: facts, tables with the deviation drawn on a scale, sentences and notes.

#include <functional>
#include <string>

#include "apps/common/report.h"
#include "apps/drawing/sheet.h"

namespace app {

/// The running pages of a document. Whoever needs more room than is left goes on at the top of a new page.
class PageFlow {
 public:
  /// `turn` ends the page and begins the next.
  PageFlow(const Sheet &sheet, const SheetBox &area, std::function<void()> turn)
      : sheet_(sheet), area_(area), turn_(std::move(turn)), y_(area.top) {}

  const Sheet &sheet() const { return sheet_; }
  const SheetBox &area() const { return area_; }
  double y() const { return y_; }
  void advance(double mm) { y_ += mm; }
  /// Makes sure that `mm` fit; true when this took a new page.
  bool need(double mm);

 private:
  const Sheet &sheet_;
  SheetBox area_;
  std::function<void()> turn_;
  double y_;
};

void print_report(PageFlow &flow, const Report &report);

}  // namespace app
