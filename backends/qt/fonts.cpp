#include "backends/qt/fonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <mutex>

#include "backends/qt/conversions.h"
#include "backends/qt/font_table.h"
#include "backends/qt/qt_platform.h"
#include "tool/framework/gdi/cell_metrics.h"
#include "tool/framework/gdi/constants.h"

namespace qt_backend {

namespace {

// A device shows some dozen fonts; more are asked for only by someone who zooms.
constexpr std::size_t most_fonts = 128;

LOGFONTA without_rubbish(const LOGFONTA &font) {
  LOGFONTA clean = font;
  const std::size_t length = strnlen(font.lfFaceName, sizeof font.lfFaceName);
  std::fill(clean.lfFaceName + length, clean.lfFaceName + sizeof clean.lfFaceName, '\0');
  return clean;
}

std::string face_utf8(const LOGFONTA &font) {
  return framework::utf8_for_display({font.lfFaceName, strnlen(font.lfFaceName, sizeof font.lfFaceName)});
}

/// Cell and character height in pixels: the height asked for is that of the cell (positive) or of the
/// character (negative); 0 is the default's.
struct Heights {
  int character;
  int ascent;
  int descent;
};

Heights heights_of(LONG asked, const Substitution &face) {
  constexpr LONG highest = 1 << 15;  // beyond any page
  const int height = std::clamp(asked == 0 ? LONG{framework::default_cell_height} : asked, -highest, highest);
  const double cell = face.ascent + face.descent;
  const int character = std::max(1, height > 0 ? static_cast<int>(std::lround(height / cell)) : -height);
  const int ascent = static_cast<int>(std::lround(character * face.ascent));
  const int descent =
      height > 0 ? std::max(0, height - ascent) : static_cast<int>(std::lround(character * face.descent));
  return {character, ascent, descent};
}

QFont qt_font(const LOGFONTA &asked, const Substitution &face, int pixel_size,
              QFont::StyleStrategy strategy) {
  QFont font;
  font.setFamilies({utf8_to_qt(face.family), utf8_to_qt(face.companion)});
  font.setPixelSize(pixel_size);
  font.setWeight(
      static_cast<QFont::Weight>(std::clamp(asked.lfWeight > 0 ? asked.lfWeight : FW_NORMAL, 1, 1000)));
  font.setItalic(asked.lfItalic != 0);
  font.setUnderline(asked.lfUnderline != 0);
  font.setStrikeOut(asked.lfStrikeOut != 0);
  font.setKerning(false);
  font.setHintingPreference(QFont::PreferVerticalHinting);  // widths stay proportional to the height
  font.setStyleStrategy(strategy);
  return font;
}

/// The mean width of the letters, what a width asked for stands for.
double average_width(const QFont &font) {
  static const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  return QFontMetricsF(font).horizontalAdvance(letters) / static_cast<double>(letters.size());
}

Font make_font(const LOGFONTA &asked, std::size_t number) {
  const Substitution &face = substitution_for(face_utf8(asked));
  const Heights heights = heights_of(asked.lfHeight, face);
  Font font{asked,
            qt_font(asked, face, heights.character, QFont::NoSubpixelAntialias),
            qt_font(asked, face, heights.character, QFont::NoAntialias),
            {},
            1,
            number};
  const double average = average_width(font.smooth);
  if (asked.lfWidth != 0 && average > 0) font.stretch = std::abs(double{1} * asked.lfWidth) / average;

  TEXTMETRICA &metrics = font.metrics;
  metrics.tmAscent = heights.ascent;
  metrics.tmDescent = heights.descent;
  metrics.tmHeight = heights.ascent + heights.descent;
  metrics.tmInternalLeading = std::max(0, metrics.tmHeight - heights.character);
  metrics.tmAveCharWidth = static_cast<LONG>(std::lround(average * font.stretch));
  metrics.tmMaxCharWidth = static_cast<LONG>(std::lround(heights.character * font.stretch));
  metrics.tmWeight = font.smooth.weight();
  metrics.tmItalic = asked.lfItalic;
  metrics.tmUnderlined = asked.lfUnderline;
  metrics.tmStruckOut = asked.lfStrikeOut;
  metrics.tmPitchAndFamily = asked.lfPitchAndFamily;
  metrics.tmCharSet = asked.lfCharSet;
  return font;
}

void complain_once() {
  static std::once_flag flag;
  std::call_once(flag, [] {
    for (const std::string &family : missing_families()) {
      qWarning("The font %s is not installed; text set in it will look and measure differently.",
               family.c_str());
    }
  });
}

}  // namespace

const Font &Fonts::find(const LOGFONTA &asked) {
  const auto is_asked = [&](const Font &font) {
    return std::memcmp(&font.asked, &asked, offsetof(LOGFONTA, lfFaceName)) == 0 &&
           std::strncmp(font.asked.lfFaceName, asked.lfFaceName, sizeof asked.lfFaceName) == 0;
  };
  if (last_ < fonts_.size() && is_asked(fonts_[last_])) return fonts_[last_];
  const auto found = std::ranges::find_if(fonts_, is_asked);
  last_ = static_cast<std::size_t>(found - fonts_.begin());
  if (found != fonts_.end()) return *found;
  ensure_gui_application();
  complain_once();
  if (fonts_.size() >= most_fonts) fonts_.clear();
  last_ = fonts_.size();
  fonts_.push_back(make_font(without_rubbish(asked), ++made_));
  return fonts_.back();
}

SIZE Fonts::extent(std::string_view cp932_text, const LOGFONTA &asked) {
  const Font &font = find(asked);
  const double width =
      cp932_text.empty() ? 0 : QFontMetricsF(font.smooth).horizontalAdvance(to_qt(cp932_text));
  return {static_cast<LONG>(std::lround(width * font.stretch)), font.metrics.tmHeight};
}

std::vector<std::string> missing_families() {
  ensure_gui_application();
  const QStringList installed = QFontDatabase::families();
  std::vector<std::string> missing;
  for (std::string_view family : substituted_families()) {
    if (!installed.contains(utf8_to_qt(family))) missing.emplace_back(family);
  }
  return missing;
}

}  // namespace qt_backend
