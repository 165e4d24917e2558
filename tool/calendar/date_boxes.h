#pragma once
// The year, month and day boxes of a dialog. A dialog without a day box has the id 0 for it.

#include <string>
#include <string_view>

#include "tool/framework/types.h"

class CWnd;

namespace calendar {

struct DateBoxes {
  UINT year;
  UINT month;
  UINT day;
};

/// Fills the boxes; a number that is 0 leaves its box empty. With a day box a text of fewer than 8 characters
/// changes nothing; without one a text of fewer than 6 empties year and month.
void show_date(CWnd &dialog, const DateBoxes &boxes, std::string_view stored);

/// "YYYYMMDD", or "YYYYMM" without a day box; a box that is empty or holds no number counts as 0.
std::string stored_from_boxes(const CWnd &dialog, const DateBoxes &boxes);

}  // namespace calendar
