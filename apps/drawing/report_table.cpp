#include "apps/drawing/report_table.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "apps/drawing/palette.h"

namespace app {
namespace {

constexpr double text_height = 3.3;
constexpr double row_height = 4.7;
constexpr double column_gap = 3;
constexpr double bar_width = 38;
constexpr double sd_reach = 3.2;  // SD units; farther values become an arrow at the end

COLORREF tone_color(Tone tone) {
  switch (tone) {
    case Tone::beyond_one:
      return hue::blue;
    case Tone::beyond_two:
    case Tone::beyond_three:
      return hue::vermilion;
    case Tone::quiet:
    case Tone::reason:
      return hue::grey;
    default:
      return hue::black;
  }
}

/// A column as it stands on the page.
struct Place {
  std::size_t index;  ///< in the table
  double left, right;
};

bool is_bar(const Table &table, std::size_t column) {
  return std::any_of(table.rows.begin(), table.rows.end(),
                     [&](const Row &row) { return column < row.cells.size() && row.cells[column].bar; });
}

double widest(const Sheet &sheet, const Table &table, std::size_t column) {
  const TextLook look{text_height, 0, false, TextSide::left};
  double width = sheet.text_width(table.columns[column].title, look);
  for (const Row &row : table.rows)
    if (!row.heading && column < row.cells.size() && !row.cells[column].spans)
      width = std::max(width, sheet.text_width(row.cells[column].text, look));
  return width;
}

/// The first column takes what the others leave.
std::vector<Place> places_of(const Sheet &sheet, const SheetBox &area, const Table &table) {
  std::vector<Place> places;
  double right = area.right;
  for (std::size_t i = table.columns.size(); i-- > 0;) {
    if (table.columns[i].audience == Audience::data) continue;
    const double width = is_bar(table, i) ? bar_width : widest(sheet, table, i);
    places.push_back({i, std::max(right - width, area.left), right});
    right -= width + column_gap;
  }
  std::reverse(places.begin(), places.end());
  if (!places.empty()) places.front().left = area.left;
  return places;
}

class TablePrinter {
 public:
  TablePrinter(PageFlow &flow, const Table &table)
      : flow_(flow), table_(table), places_(places_of(flow.sheet(), flow.area(), table)) {}

  void print() {
    print_titles();
    for (const Row &row : table_.rows) {
      if (flow_.need(row_height * (row.heading ? 2 : 1))) print_titles();
      if (row.heading)
        put(flow_.area().left, row.cells.front().text, hue::black, true);
      else
        print_cells(row);
      flow_.advance(row_height);
      rule(hue::pale, 1);
    }
  }

 private:
  void put(double x, const std::string &text, COLORREF color, bool bold = false,
           TextSide side = TextSide::left) {
    flow_.sheet().text({x, flow_.y() + (row_height - text_height) / 2}, text,
                       {text_height, color, bold, side});
  }
  void rule(COLORREF color, int tenths) {
    flow_.sheet().line({flow_.area().left, flow_.y()}, {flow_.area().right, flow_.y()}, tenths, color);
  }

  void print_titles() {
    for (const Place &place : places_) {
      const Column &column = table_.columns[place.index];
      const bool right = column.align == Align::right;
      put(right ? place.right : place.left, column.title, hue::grey, false,
          right ? TextSide::right : TextSide::left);
    }
    flow_.advance(row_height);
    rule(hue::black, 2);
  }

  void print_cells(const Row &row) {
    for (const Place &place : places_) {
      if (!row.reason.empty() && place.index >= table_.value_column)
        return put(place.left, row.reason, hue::grey);
      const Cell &cell = row.cells[place.index];
      if (cell.spans) return put(place.left, cell.text, tone_color(cell.tone));
      if (cell.bar)
        print_bar(place, cell);
      else if (table_.columns[place.index].align == Align::right)
        put(place.right, cell.text, tone_color(cell.tone), false, TextSide::right);
      else
        put(place.left, cell.text, tone_color(cell.tone));
    }
  }

  /// The scale from -3 to 3 SD with the value on it.
  void print_bar(const Place &place, const Cell &cell) {
    if (!cell.number || std::isnan(*cell.number)) return;
    const double unit = bar_width / (2 * (sd_reach + 0.3));
    const double middle = (place.left + place.right) / 2;
    const Sheet &sheet = flow_.sheet();
    for (int sd = -3; sd <= 3; ++sd)
      sheet.line({middle + sd * unit, flow_.y() + 0.4}, {middle + sd * unit, flow_.y() + row_height - 0.4},
                 sd == 0 ? 2 : 1, sd == 0 ? hue::black : hue::pale);
    const double units = cell.mirrored ? -*cell.number : *cell.number;
    const double x = middle + std::clamp(units, -sd_reach, sd_reach) * unit;
    print_mark({x, flow_.y() + row_height / 2}, std::abs(units) > sd_reach ? std::copysign(1.0, units) : 0.0,
               tone_color(tone_of_deviation(units)));
  }

  /// A dot, or an arrow head in the direction of what lies beyond the scale.
  void print_mark(SheetPoint at, double beyond, COLORREF color) {
    const Sheet &sheet = flow_.sheet();
    constexpr double radius = 0.95;
    if (beyond == 0) {
      CTools::Spot2(&sheet.context(), CPoint(0, 0), 1.0, sheet.at(at),
                    static_cast<short>(sheet.pixels(radius)), color, 0);
      return;
    }
    const std::array<POINT, 3> head{sheet.at(SheetPoint{at.x, at.y - radius}),
                                    sheet.at(SheetPoint{at.x + 2 * radius * beyond, at.y}),
                                    sheet.at(SheetPoint{at.x, at.y + radius})};
    CBrush brush(color);
    CPen pen(PS_SOLID, 1, color);
    CDC &dc = sheet.context();
    CBrush *const old_brush = dc.SelectObject(&brush);
    CPen *const old_pen = dc.SelectObject(&pen);
    dc.Polygon(head.data(), static_cast<int>(head.size()));
    dc.SelectObject(old_pen);
    dc.SelectObject(old_brush);
  }

  PageFlow &flow_;
  const Table &table_;
  std::vector<Place> places_;
};

}  // namespace

void print_table(PageFlow &flow, const Table &table) {
  if (!table.rows.empty()) TablePrinter(flow, table).print();
}

}  // namespace app
