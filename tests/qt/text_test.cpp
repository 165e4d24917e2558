// Text: heights, widths and faces as they are asked for.

#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "backends/qt/qt_platform.h"
#include "tests/qt/bitmap.h"
#include "tool/framework/text/cp932.h"

namespace {

using support::Bitmap;

LOGFONTA font_of(const std::string &face_utf8, int height) {
  LOGFONTA font{};
  font.lfHeight = height;
  font.lfCharSet = SHIFTJIS_CHARSET;
  std::strcpy(font.lfFaceName, framework::cp932_from_utf8(face_utf8).value().c_str());
  return font;
}

std::string japanese(const std::string &utf8) {
  return framework::cp932_from_utf8(utf8).value();
}

/// The box round everything that is not white.
RECT ink_box(const Bitmap &bitmap) {
  RECT box{1000, 1000, 0, 0};
  for (int y = 0; y < bitmap.picture.height(); ++y) {
    for (int x = 0; x < bitmap.picture.width(); ++x) {
      if (bitmap.picture.color(x, y) == 0xFFFFFF) continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
             std::max(box.bottom, y + 1)};
    }
  }
  return box;
}

TEST(Text, EveryFaceOfTheTableIsInstalled) {
  EXPECT_EQ(qt_backend::missing_fonts(), std::vector<std::string>());
}

TEST(Text, GothicAndMinchoAreHalfAsWideAsHigh) {
  Bitmap bitmap(10, 10);
  for (const char *face : {"ＭＳ ゴシック", "MS Gothic", "ms gothic", "ＭＳ 明朝", "", "No Such Face"}) {
    for (int height = 8; height <= 400; height += height < 40 ? 2 : 30) {
      const LOGFONTA font = font_of(face, height);
      const SIZE letters = bitmap.device.text_extent("0123456789", font);
      EXPECT_EQ(letters.cx, 10 * height / 2) << face << height;
      EXPECT_EQ(letters.cy, height);
      EXPECT_EQ(bitmap.device.text_extent(japanese("上顎ｶﾅ"), font).cx, 3 * height);
      EXPECT_EQ(bitmap.device.text_metrics(font).tmAveCharWidth, height / 2);
    }
  }
}

TEST(Text, APositiveHeightIsTheCellANegativeOneTheCharacter) {
  Bitmap bitmap(10, 10);
  for (const char *face : {"ＭＳ ゴシック", "Times New Roman", "Arial", "Courier New"}) {
    for (const int height : {7, 12, 33, 200}) {
      const TEXTMETRICA cell = bitmap.device.text_metrics(font_of(face, height));
      EXPECT_EQ(cell.tmHeight, height) << face;
      EXPECT_EQ(cell.tmAscent + cell.tmDescent, cell.tmHeight);
      const TEXTMETRICA character = bitmap.device.text_metrics(font_of(face, -height));
      EXPECT_EQ(character.tmHeight - character.tmInternalLeading, height) << face;
    }
  }
  // 2048 units to the character, 1825 above and 443 below the baseline.
  const TEXTMETRICA roman = bitmap.device.text_metrics(font_of("Times New Roman", -2048));
  EXPECT_EQ(roman.tmAscent, 1825);
  EXPECT_EQ(roman.tmDescent, 443);
}

TEST(Text, TheRomanFacesHaveTheWidthsOfTheOriginals) {
  // Widths of the digit and of "W" in 2048ths of the character.
  struct Row {
    const char *face;
    int digit, w;
  };
  for (const Row &row :
       {Row{"Times New Roman", 1024, 1933}, Row{"Arial", 1139, 1933}, Row{"Courier New", 1229, 1229}}) {
    Bitmap bitmap(1, 1);
    EXPECT_NEAR(bitmap.device.text_extent("0", font_of(row.face, -2048)).cx, row.digit, 1) << row.face;
    EXPECT_NEAR(bitmap.device.text_extent("W", font_of(row.face, -2048)).cx, row.w, 1) << row.face;
  }
}

TEST(Text, AWidthStretches) {
  Bitmap bitmap(10, 10);
  LOGFONTA font = font_of("ＭＳ ゴシック", 20);
  font.lfWidth = 15;
  EXPECT_EQ(bitmap.device.text_extent("0123", font).cx, 60);
  EXPECT_EQ(bitmap.device.text_extent("0123", font).cy, 20);
}

TEST(Text, InkStaysInItsCell) {
  for (const int height : {12, 20, 61}) {
    Bitmap bitmap(400, 120);
    const LOGFONTA font = font_of("ＭＳ ゴシック", height);
    bitmap.device.text({{30, 20}, japanese("Ag下顎_"), &font, 0}, {});
    const SIZE size = bitmap.device.text_extent(japanese("Ag下顎_"), font);
    const RECT ink = ink_box(bitmap);
    EXPECT_GE(ink.left, 30);
    EXPECT_LE(ink.right, 30 + size.cx);
    EXPECT_GE(ink.top, 20);
    EXPECT_LE(ink.bottom, 20 + size.cy + 1);
    EXPECT_GT(ink.right - ink.left, size.cx * 8 / 10);
    EXPECT_GT(ink.bottom - ink.top, size.cy * 8 / 10);
  }
}

TEST(Text, TurnsAboutItsTopLeftCounterClockwise) {
  Bitmap bitmap(100, 100);
  LOGFONTA font = font_of("ＭＳ ゴシック", 20);
  font.lfEscapement = 900;
  bitmap.device.text({{40, 90}, "AAAA", &font, 0}, {});
  const RECT ink = ink_box(bitmap);
  EXPECT_GE(ink.left, 40);
  EXPECT_LE(ink.right, 60);
  EXPECT_GE(ink.top, 50);
  EXPECT_LE(ink.bottom, 91);
}

TEST(Text, QualityAndRasterOperationSayWhetherEdgesAreSmooth) {
  struct Row {
    BYTE quality;
    int rop;
    bool smooth;
  };
  for (const Row &row :
       {Row{DEFAULT_QUALITY, R2_COPYPEN, true}, Row{PROOF_QUALITY, R2_COPYPEN, true},
        Row{NONANTIALIASED_QUALITY, R2_COPYPEN, false}, Row{PROOF_QUALITY, R2_MASKPEN, false}}) {
    Bitmap bitmap(200, 40);
    LOGFONTA font = font_of("Times New Roman", 30);
    font.lfQuality = row.quality;
    framework::Paint paint;
    paint.rop = row.rop;
    bitmap.device.text({{5, 5}, "S-N 82", &font, support::red}, paint);
    const auto colors = bitmap.colors();
    const std::set<COLORREF> kinds(colors.begin(), colors.end());
    EXPECT_TRUE(kinds.contains(support::red) && kinds.contains(0xFFFFFF));
    EXPECT_EQ(kinds.size() > 2, row.smooth) << int{row.quality} << " " << row.rop;
  }
}

TEST(Text, StaysInTheClip) {
  const auto clip = framework::Region::ellipse({20, 10, 60, 35});
  for (const BYTE quality : {DEFAULT_QUALITY, NONANTIALIASED_QUALITY}) {
    Bitmap whole(100, 40), cut(100, 40);
    LOGFONTA font = font_of("ＭＳ ゴシック", 30);
    font.lfQuality = quality;
    framework::Paint paint;
    whole.device.text({{0, 5}, "HHHHH", &font, 0}, paint);
    paint.clip = &clip;
    cut.device.text({{0, 5}, "HHHHH", &font, 0}, paint);
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 100; ++x) {
        EXPECT_EQ(cut.picture.color(x, y), clip.contains({x, y}) ? whole.picture.color(x, y) : 0xFFFFFF);
      }
    }
  }
}

}  // namespace
