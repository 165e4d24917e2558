#include "tool/calendar/date_boxes.h"

#include "tool/calendar/stored_date.h"
#include "tool/framework/ui/CWnd.h"

namespace calendar {
namespace {

void show_number(CWnd &dialog, UINT box, int number) {
  if (number != 0)
    dialog.SetDlgItemInt(static_cast<int>(box), static_cast<UINT>(number));
  else
    dialog.SetDlgItemText(static_cast<int>(box), "");
}

int number_in(const CWnd &dialog, UINT box) {
  return static_cast<int>(dialog.GetDlgItemInt(static_cast<int>(box)));
}

}  // namespace

void show_date(CWnd &dialog, const DateBoxes &boxes, std::string_view stored) {
  const bool has_day = boxes.day != 0;
  const bool is_whole = stored.size() >= (has_day ? 8U : 6U);
  if (has_day && !is_whole) return;
  const Date date = is_whole ? read_date(stored) : Date{};
  show_number(dialog, boxes.year, date.year);
  show_number(dialog, boxes.month, date.month);
  if (has_day) show_number(dialog, boxes.day, date.day);
}

std::string stored_from_boxes(const CWnd &dialog, const DateBoxes &boxes) {
  const Date month{number_in(dialog, boxes.year), number_in(dialog, boxes.month), 0};
  if (boxes.day == 0) return stored_month_text(month);
  return stored_text({month.year, month.month, number_in(dialog, boxes.day)});
}

}  // namespace calendar
