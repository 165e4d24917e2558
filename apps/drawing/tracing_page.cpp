#include "apps/drawing/tracing_page.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace app {
namespace {

constexpr double title_height = 5;
constexpr double line_height = 4.4;
constexpr double header_height = 14;
constexpr double sample_width = 9;  // of a legend line
constexpr double legend_column = 46;
constexpr double scale_bar_height = 9;
constexpr TextLook title_look{title_height, hue::black, true, TextSide::left};
constexpr TextLook small_look{3.2, hue::black, false, TextSide::left};
constexpr TextLook quiet_look{3.0, hue::grey, false, TextSide::left};

void draw_header(const Sheet &sheet, const SheetBox &area, const TracingPage &page) {
  sheet.text({area.left, area.top}, page.title, title_look);
  sheet.text({area.left, area.top + title_height + 1}, page.patient, small_look);
  const double rule = area.top + header_height - 2;
  sheet.line({area.left, rule}, {area.right, rule}, 2, hue::pale);
}

std::size_t legend_columns(const SheetBox &area) {
  return std::max<std::size_t>(1, static_cast<std::size_t>(area.width() / legend_column));
}

double legend_height(const SheetBox &area, std::size_t entries) {
  const std::size_t columns = legend_columns(area);
  const std::size_t lines = (entries + columns - 1) / columns;
  return static_cast<double>(lines) * line_height;
}

void draw_legend(const Sheet &sheet, const SheetBox &area, const std::vector<LegendEntry> &entries) {
  const std::size_t columns = legend_columns(area);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::size_t row = i / columns;
    const double x = area.left + static_cast<double>(i % columns) * legend_column;
    const double y = area.top + static_cast<double>(row) * line_height;
    sheet.line({x, y + 1.8}, {x + sample_width, y + 1.8}, entries[i].tenths, entries[i].color,
               entries[i].style);
    sheet.text({x + sample_width + 1.5, y}, entries[i].text, small_look);
  }
}

std::string decimal(const char *format, double value) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), format, value);
  return text.data();
}

/// A ruler in millimetres of the patient, a tick each centimetre.
void draw_scale_bar(const Sheet &sheet, const SheetBox &area, const View &view, bool life_size) {
  constexpr int centimetres = 5;
  const double step = 10 * view.enlargement();
  const double y = area.bottom - 4;
  SheetPoint end{area.left + centimetres * step, y};
  sheet.line({area.left, y}, end, 3, hue::black);
  for (int i = 0; i <= centimetres; ++i) {
    const double x = area.left + i * step;
    sheet.line({x, y - (i % centimetres == 0 ? 2.0 : 1.2)}, {x, y}, 2, hue::black);
  }
  sheet.text({end.x + 2, y - 2.6}, "50 mm", small_look);
  const std::string size =
      life_size ? "life size, 1 : 1" : decimal("%.0f %% of life size", 100 * view.enlargement());
  TextLook look = quiet_look;
  look.side = TextSide::right;
  sheet.text({area.right, y - 2.6}, size, look);
}

View view_for(const Sheet &sheet, const ImageBox &box, const SheetBox &frame, double scale, bool life_size) {
  if (!life_size) return View::fitted(sheet, box, frame, scale);
  const double wide = (box.right - box.left) * scale, high = (box.bottom - box.top) * scale;
  if (wide > frame.width() || high > frame.height())
    throw InputError(
        "the tracing is larger than the page: " + decimal("%.0f", wide) + " x " + decimal("%.0f mm", high),
        "--life-size",
        "at most " + decimal("%.0f", frame.width()) + " x " + decimal("%.0f mm", frame.height()) +
            "; leave --life-size out to fit it");
  return View::life_size(sheet, box, frame, scale);
}

}  // namespace

void draw_tracing_page(const Sheet &sheet, const SheetBox &area, const TracingPage &page,
                       const TracingFile &tracing, const SceneOptions &options) {
  constexpr std::size_t legend_room = 9;  // lines of a picture that are kept room for
  const double legend = legend_height(area, legend_room);
  const SheetBox frame{area.left, area.top + header_height, area.right,
                       area.bottom - legend - scale_bar_height};
  const ImageBox box = scene_box(tracing, options);
  const View view = view_for(sheet, box, frame, tracing.scale(), page.life_size);
  draw_header(sheet, area, page);
  CDC &context = sheet.context();
  const int saved = context.SaveDC();
  const CRect clip = sheet.at(frame);
  context.IntersectClipRect(clip.left, clip.top, clip.right, clip.bottom);
  const std::vector<LegendEntry> entries = draw_scene(view, tracing, options).legend;
  context.RestoreDC(saved);
  draw_legend(sheet, {area.left, frame.bottom + 2, area.right, area.bottom - scale_bar_height}, entries);
  draw_scale_bar(sheet, area, view, page.life_size);
}

}  // namespace app
