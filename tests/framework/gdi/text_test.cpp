#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tool/framework/gdi/CDC.h"
#include "tool/framework/gdi/recording_device.h"
#include "tool/framework/text/cp932.h"

namespace {

using framework::RecordingDevice;
using testing::ElementsAre;
using testing::IsEmpty;

std::string sjis(const char *utf8) {
  return framework::cp932_from_utf8(utf8).value();
}

/// A context with a font 16 high: every byte of a text is 8 wide.
class Text : public testing::Test {
 protected:
  Text() {
    LOGFONTA record{};
    record.lfHeight = 16;
    font.CreateFontIndirect(&record);
    dc.SelectObject(&font);
    dc.SetBkMode(TRANSPARENT);
  }

  /// Place and text of every recorded line.
  std::vector<std::string> texts() const {
    std::vector<std::string> result;
    for (std::size_t i = 0; i < device.size(); ++i) {
      const RecordingDevice::Call call = device[i];
      if (call.kind != RecordingDevice::Kind::text) continue;
      result.push_back(std::to_string(call.points[0].x) + "," + std::to_string(call.points[0].y) + " " +
                       framework::utf8_for_display(call.text));
    }
    return result;
  }

  std::vector<std::string> drawn(const char *utf8, RECT rect, UINT format) {
    device.clear();
    const std::string text = sjis(utf8);
    dc.DrawText(text.c_str(), -1, &rect, format);
    return texts();
  }

  RecordingDevice device;
  CFont font;
  CDC dc{device};
};

TEST_F(Text, alignsSingleLines) {
  const RECT box{10, 20, 110, 60};  // "abc" is 24 x 16
  struct Row {
    UINT format;
    const char *expected;
  };
  for (const Row &row : {
           Row{0, "10,20 abc"},
           Row{DT_CENTER, "48,20 abc"},
           Row{DT_RIGHT, "86,20 abc"},
           Row{DT_SINGLELINE | DT_VCENTER, "10,32 abc"},
           Row{DT_SINGLELINE | DT_BOTTOM | DT_RIGHT, "86,44 abc"},
           Row{DT_VCENTER, "10,20 abc"},  // for single lines only
           Row{DT_BOTTOM, "10,20 abc"},
       })
    EXPECT_THAT(drawn("abc", box, row.format), ElementsAre(row.expected)) << row.format;
}

TEST_F(Text, breaksLinesAtLineEnds) {
  const RECT box{0, 0, 1000, 100};
  EXPECT_THAT(drawn("a\r\nb\n\nc\rd\r\n", box, 0), ElementsAre("0,0 a", "0,16 b", "0,48 c", "0,64 d"));
  EXPECT_THAT(drawn("a\r\nb", box, DT_SINGLELINE), ElementsAre("0,0 a  b"));
  EXPECT_THAT(drawn("", box, 0), IsEmpty());
}

TEST_F(Text, wrapsWordsAndJapanese) {
  struct Row {
    const char *text;
    int width;
    std::vector<std::string> lines;
  };
  for (const Row &row : {
           Row{"one two three", 56, {"0,0 one two", "0,16 three"}},
           Row{"one two three", 55, {"0,0 one", "0,16 two", "0,32 three"}},
           Row{"one  two", 24, {"0,0 one", "0,16 two"}},
           Row{"unbreakable x", 16, {"0,0 unbreakable", "0,16 x"}},  // a word stays whole
           Row{"下顎平面", 32, {"0,0 下顎", "0,16 平面"}},
           Row{"下顎平面", 47, {"0,0 下顎", "0,16 平面"}},  // no half character
           Row{"下顎平面", 5, {"0,0 下", "0,16 顎", "0,32 平", "0,48 面"}},
           Row{"ANB角mm", 40, {"0,0 ANB角", "0,16 mm"}},
           Row{"ソソ", 20, {"0,0 ソ", "0,16 ソ"}},  // second byte: a backslash
           Row{"a\nbb cc", 16, {"0,0 a", "0,16 bb", "0,32 cc"}},
       })
    EXPECT_EQ(drawn(row.text, {0, 0, row.width, 100}, DT_WORDBREAK), row.lines)
        << row.text << " " << row.width;
}

TEST_F(Text, resolvesPrefixes) {
  const RECT box{0, 0, 200, 16};
  EXPECT_THAT(drawn("S&&N &File &", box, DT_NOPREFIX), ElementsAre("0,0 S&&N &File &"));
  EXPECT_THAT(drawn("S&&N &File &", box, 0), ElementsAre("0,0 S&N File "));
  // The F, fifth character, is underlined: 14 is the baseline, a pixel below it one pixel of line.
  EXPECT_EQ(device.line(1),
            "fill_region (32,15) (40,16) | rectangle | brush #000000 | rop copy | clip (0,0)-(200,16)");
}

TEST_F(Text, expandsTabs) {
  const RECT box{0, 0, 500, 16};  // a stop every eight characters of 8
  EXPECT_THAT(drawn("a\tb\t\tc", box, DT_EXPANDTABS), ElementsAre("0,0 a", "64,0 b", "192,0 c"));
  EXPECT_THAT(drawn("a\tb", box, 0), ElementsAre("0,0 a b"));
  EXPECT_THAT(drawn("12345678\tb", box, DT_EXPANDTABS), ElementsAre("0,0 12345678", "128,0 b"));
}

TEST_F(Text, shortensWithDots) {
  EXPECT_THAT(drawn("abcdefgh", {0, 0, 48, 16}, DT_SINGLELINE | DT_END_ELLIPSIS), ElementsAre("0,0 abc..."));
  EXPECT_THAT(drawn("abcdef", {0, 0, 48, 16}, DT_SINGLELINE | DT_END_ELLIPSIS), ElementsAre("0,0 abcdef"));
  EXPECT_THAT(drawn("a下顎平面", {0, 0, 48, 16}, DT_SINGLELINE | DT_END_ELLIPSIS), ElementsAre("0,0 a下..."));
  EXPECT_THAT(drawn("下顎平面", {0, 0, 3, 16}, DT_SINGLELINE | DT_END_ELLIPSIS), ElementsAre("0,0 ..."));
}

TEST_F(Text, calculatesTheRectangle) {
  struct Row {
    const char *text;
    UINT format;
    CRect rect;
    int height;
  };
  for (const Row &row :
       {Row{"abc", DT_SINGLELINE, {10, 20, 34, 36}, 16}, Row{"abc\r\nde", 0, {10, 20, 34, 52}, 32},
        Row{"ab cd", DT_WORDBREAK, {10, 20, 26, 52}, 32},
        Row{"unbreakable", DT_WORDBREAK, {10, 20, 98, 36}, 16}}) {
    CRect rect(10, 20, 40, 21);
    EXPECT_EQ(dc.DrawText(row.text, -1, &rect, row.format | DT_CALCRECT), row.height) << row.text;
    EXPECT_EQ(rect, row.rect) << row.text;
  }
  EXPECT_EQ(device.size(), 0u);
}

TEST_F(Text, clipsUnlessToldNotTo) {
  drawn("abc", {1, 2, 9, 30}, DT_NOCLIP);
  EXPECT_EQ(device[0].clip, nullptr);
  drawn("abc", {1, 2, 9, 30}, 0);
  ASSERT_NE(device[0].clip, nullptr);
  EXPECT_EQ(CRect(device[0].clip->bounds()), CRect(1, 2, 9, 30));
  dc.IntersectClipRect(0, 5, 5, 100);
  drawn("abc", {1, 2, 9, 30}, 0);
  EXPECT_EQ(CRect(device[0].clip->bounds()), CRect(1, 5, 5, 30));
}

TEST_F(Text, textOutAligns) {
  struct Row {
    UINT align;
    const char *expected;
  };
  for (const Row &row : {Row{TA_LEFT, "100,50 abc"}, Row{TA_RIGHT, "76,50 abc"}, Row{TA_CENTER, "88,50 abc"},
                         Row{TA_BOTTOM, "100,34 abc"}, Row{TA_BASELINE | TA_RIGHT, "76,36 abc"}}) {
    device.clear();
    dc.SetTextAlign(row.align);
    dc.TextOut(100, 50, "abc\tx", 3);
    EXPECT_THAT(texts(), ElementsAre(row.expected));
  }
}

TEST_F(Text, opaqueTextHasABackgroundUnderTheSameRasterOperation) {
  dc.SetBkMode(OPAQUE);
  dc.SetBkColor(RGB(255, 255, 0));
  dc.SetTextColor(RGB(1, 2, 3));
  dc.SetROP2(R2_XORPEN);
  dc.TextOut(5, 6, "ab");
  EXPECT_THAT(device.lines(), ElementsAre("fill_region (5,6) (21,22) | rectangle | brush #ffff00 | rop xor",
                                          "text (5,6) \"ab\" | font \"\" 16 weight 0 | #010203 | rop xor"));
}

TEST_F(Text, extTextOutFillsClipsAndSpaces) {
  const RECT box{0, 0, 50, 20};
  dc.SetBkColor(RGB(255, 0, 0));
  dc.ExtTextOut(1, 2, ETO_OPAQUE | ETO_CLIPPED, &box, "ab", 2);
  EXPECT_THAT(
      device.lines(),
      ElementsAre("fill_region (0,0) (50,20) | rectangle | brush #ff0000 | rop copy | clip (0,0)-(50,20)",
                  "text (1,2) \"ab\" | font \"\" 16 weight 0 | #000000 | rop copy | clip (0,0)-(50,20)"));
  device.clear();
  const int advances[] = {10, 5, 5, 30};
  const std::string text = sjis("a下b");
  dc.ExtTextOut(0, 0, 0, nullptr, text.c_str(), 4, advances);
  EXPECT_THAT(texts(), ElementsAre("0,0 a", "10,0 下", "20,0 b"));
}

TEST_F(Text, turnedTextKeepsItsAlignment) {
  LOGFONTA record{};
  record.lfHeight = 16;
  record.lfEscapement = 900;  // upward
  CFont upward;
  upward.CreateFontIndirect(&record);
  dc.SelectObject(&upward);
  dc.SetTextAlign(TA_RIGHT);
  dc.TextOut(100, 50, "ab", 2);  // 16 wide: begins 16 below
  EXPECT_EQ(texts().at(0), "100,66 ab");
}

TEST_F(Text, measuresInLogicalUnits) {
  EXPECT_EQ(dc.GetTextExtent("abc"), CSize(24, 16));
  EXPECT_EQ(dc.GetTextExtent("abc", 2), CSize(16, 16));
  EXPECT_EQ(dc.GetTextExtent(nullptr, 5), CSize(0, 16));
  dc.SetMapMode(MM_ANISOTROPIC);
  dc.SetWindowExt(1, 1);
  dc.SetViewportExt(3, 2);  // the font is 32 pixels high, its characters 16 wide
  EXPECT_EQ(dc.GetTextExtent("abc"), CSize(16, 16));
  TEXTMETRICA metrics{};
  EXPECT_TRUE(dc.GetTextMetrics(&metrics));
  EXPECT_EQ(metrics.tmHeight, 16);
  EXPECT_EQ(metrics.tmAscent, 14);
}

TEST_F(Text, writesDownwardsWhereTheAxisPointsUp) {
  RecordingDevice metric(framework::DeviceCapabilities{
      .width = 1000, .height = 1000, .pixels_per_mm_x = 10, .pixels_per_mm_y = 10});
  CDC paper(metric);
  paper.SetBkMode(TRANSPARENT);
  paper.SetMapMode(MM_LOMETRIC);
  paper.SelectObject(&font);
  CRect rect(100, -200, 300, -260);
  EXPECT_EQ(paper.DrawText("a\nb", -1, &rect, 0), 32);
  EXPECT_TRUE(metric.line(0).starts_with("text (100,200) \"a\"")) << metric.line(0);
  EXPECT_TRUE(metric.line(1).starts_with("text (100,216) \"b\"")) << metric.line(1);
  EXPECT_EQ(CRect(metric[0].clip->bounds()), CRect(100, 200, 300, 260));
  paper.DrawText("a\nb", -1, &rect, DT_CALCRECT);
  EXPECT_EQ(rect, CRect(100, -200, 108, -232));
}

TEST_F(Text, badTextsPaintNothing) {
  RECT rect{0, 0, 100, 100};
  EXPECT_EQ(dc.DrawText(nullptr, -1, &rect, 0), 0);
  EXPECT_EQ(dc.DrawText("a", -1, nullptr, 0), 0);
  EXPECT_FALSE(dc.TextOut(0, 0, "abc", -1));
  dc.TextOut(0, 0, nullptr, 3);
  EXPECT_EQ(device.size(), 0u);
  dc.TextOut(0, 0, "ab", 1000);                 // a count beyond the end stops at the end
  dc.DrawText("\x82", 1, &rect, DT_WORDBREAK);  // half a character
  EXPECT_EQ(device[0].text, "ab");
}

}  // namespace
