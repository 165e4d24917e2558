#include <gtest/gtest.h>

#include "tool/framework/gdi/CDC.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

using framework::RecordingDevice;

/// How a line with the selected pen is recorded, without its points.
std::string pen_of(CDC &dc, RecordingDevice &device) {
  device.clear();
  dc.LineTo(1, 1);
  const std::string line = device.line(0);
  const std::size_t pen = line.find("pen ");
  return line.substr(pen, line.find(" | rop") - pen);
}

RecordingDevice screen_with(double pixels_per_mm) {
  return RecordingDevice(framework::DeviceCapabilities{.raster_operations = true,
                                                       .width = 100,
                                                       .height = 100,
                                                       .pixels_per_mm_x = pixels_per_mm,
                                                       .pixels_per_mm_y = pixels_per_mm});
}

TEST(Pen, standardStyles) {
  struct Row {
    int style, width;
    const char *opaque;
    const char *transparent;
  };
  for (const Row &row : {
           Row{PS_SOLID, 0, "pen solid 1 #000080", "pen solid 1 #000080"},
           Row{PS_SOLID, 1, "pen solid 1 #000080", "pen solid 1 #000080"},
           Row{PS_SOLID, 5, "pen solid 5 #000080 round", "pen solid 5 #000080 round"},
           Row{PS_DASH, 1, "pen 18,6 1 #000080 gap #c0ffee", "pen 18,6 1 #000080"},
           Row{PS_DOT, 1, "pen 3,3 1 #000080 gap #c0ffee", "pen 3,3 1 #000080"},
           Row{PS_DASHDOT, 0, "pen 9,6,3,6 1 #000080 gap #c0ffee", "pen 9,6,3,6 1 #000080"},
           Row{PS_DASHDOTDOT, 1, "pen 9,3,3,3,3,3 1 #000080 gap #c0ffee", "pen 9,3,3,3,3,3 1 #000080"},
           Row{PS_DASH, 2, "pen solid 2 #000080 round", "pen solid 2 #000080 round"},
           Row{PS_NULL, 3, "pen none", "pen none"},
           Row{PS_INSIDEFRAME, 4, "pen solid 4 #000080 round inside", "pen solid 4 #000080 round inside"},
           Row{PS_INSIDEFRAME, 1, "pen solid 1 #000080", "pen solid 1 #000080"},
           Row{99, 1, "pen solid 1 #000080", "pen solid 1 #000080"},
       }) {
    RecordingDevice device;
    CDC dc(device);
    CPen pen(row.style, row.width, RGB(0, 0, 0x80));
    dc.SelectObject(&pen);
    dc.SetBkColor(RGB(0xC0, 0xFF, 0xEE));
    EXPECT_EQ(pen_of(dc, device), row.opaque) << row.style << " " << row.width;
    dc.SetBkMode(TRANSPARENT);
    EXPECT_EQ(pen_of(dc, device), row.transparent) << row.style << " " << row.width;
  }
}

TEST(Pen, geometricStyles) {
  struct Row {
    int style, width;
    std::vector<DWORD> dashes;
    const char *pen;
  };
  const int square = PS_GEOMETRIC | PS_ENDCAP_SQUARE;
  for (const Row &row : {
           Row{square | PS_SOLID, 3, {}, "pen solid 3 #000000 square"},
           // 3 widths on, 1 off ... as seen: the caps make up for what the dashes lack
           Row{square | PS_DASH, 1, {}, "pen 3,1 1 #000000"},
           Row{square | PS_DASH, 2, {}, "pen 4,4 2 #000000 square"},
           Row{square | PS_DOT, 4, {}, "pen 1,7 4 #000000 square"},
           Row{square | PS_DASHDOT, 5, {}, "pen 10,10,1,9 5 #000000 square"},
           Row{square | PS_DASHDOTDOT, 2, {}, "pen 4,4,1,3,1,3 2 #000000 square"},
           Row{PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_DASH, 2, {}, "pen 6,2 2 #000000 flat"},
           Row{square | PS_USERSTYLE, 9, {9, 3}, "pen 9,3 9 #000000 square"},  // not multiplied by the width
           Row{square | PS_USERSTYLE, 1, {9, 3, 3, 3}, "pen 9,3,3,3 1 #000000"},
           Row{square | PS_USERSTYLE, 2, {5}, "pen 5,5 2 #000000 square"},
           Row{square | PS_USERSTYLE, 2, {1, 2, 3}, "pen 1,2,3,1,2,3 2 #000000 square"},
           Row{square | PS_USERSTYLE, 2, {0, 0}, "pen solid 2 #000000 square"},
           Row{PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER, 2, {}, "pen solid 2 #000000 flat miter"},
           Row{PS_GEOMETRIC | PS_JOIN_BEVEL, 2, {}, "pen solid 2 #000000 round bevel"},
           Row{PS_GEOMETRIC, 0, {}, "pen solid 1 #000000"},
           Row{PS_GEOMETRIC | PS_NULL, 2, {}, "pen none"},
           Row{PS_COSMETIC | PS_DASH, 7, {}, "pen 18,6 1 #000000 gap #ffffff"},
           Row{PS_COSMETIC | PS_USERSTYLE, 1, {4, 2}, "pen 4,2 1 #000000 gap #ffffff"},
       }) {
    RecordingDevice device;
    CDC dc(device);
    const LOGBRUSH brush{BS_SOLID, 0, 0};
    CPen pen;
    ASSERT_TRUE(
        pen.CreatePen(row.style, row.width, &brush, static_cast<int>(row.dashes.size()), row.dashes.data()));
    dc.SelectObject(&pen);
    EXPECT_EQ(pen_of(dc, device), row.pen);
  }
}

TEST(Pen, widthsAndUserDashesFollowTheMapMode) {
  struct Row {
    int mode;
    double pixels_per_mm;
    int style, width;
    const char *pen;
  };
  const int user = PS_GEOMETRIC | PS_ENDCAP_SQUARE | PS_USERSTYLE;
  for (const Row &row : {
           Row{MM_LOMETRIC, 20, user, 5, "pen 60,20 10 #000000 square"},  // 0.5 mm; 30 and 10 tenths of a mm
           Row{MM_HIMETRIC, 20, user, 5, "pen 6,2 1 #000000"},
           Row{MM_HIMETRIC, 1, user, 5, "pen 1,1 1 #000000"},  // no dash and no gap vanishes
           Row{MM_LOMETRIC, 20, PS_SOLID, 5, "pen solid 10 #000000 round"},
           Row{MM_LOMETRIC, 20, PS_SOLID, 0, "pen solid 1 #000000"},
           Row{MM_LOMETRIC, 20, PS_SOLID, 1, "pen solid 2 #000000 round"},
           Row{MM_LOMETRIC, 20, PS_DOT, 1, "pen 6,6 2 #000000 round gap #ffffff"},
           Row{MM_TEXT, 20, user, 5, "pen 30,10 5 #000000 square"},
       }) {
    RecordingDevice device = screen_with(row.pixels_per_mm);
    CDC dc(device);
    dc.SetMapMode(row.mode);
    const LOGBRUSH brush{BS_SOLID, 0, 0};
    const DWORD dashes[] = {30, 10};
    CPen pen;
    if (row.style & PS_GEOMETRIC)
      pen.CreatePen(row.style, row.width, &brush, 2, dashes);
    else
      pen.CreatePen(row.style, row.width, COLORREF{0});
    dc.SelectObject(&pen);
    EXPECT_EQ(pen_of(dc, device), row.pen) << row.mode << " " << row.style;
  }
}

TEST(Pen, refusesWhatCannotBeAPen) {
  const LOGBRUSH brush{BS_SOLID, 0, 0};
  const DWORD dashes[17] = {1};
  CPen pen;
  EXPECT_FALSE(pen.CreatePen(PS_GEOMETRIC, 1, nullptr, 0, nullptr));
  EXPECT_FALSE(pen.CreatePen(PS_GEOMETRIC | PS_USERSTYLE, 1, &brush, 0, nullptr));
  EXPECT_FALSE(pen.CreatePen(PS_GEOMETRIC | PS_USERSTYLE, 1, &brush, 2, nullptr));
  EXPECT_FALSE(pen.CreatePen(PS_GEOMETRIC | PS_USERSTYLE, 1, &brush, 17, dashes));
  EXPECT_FALSE(pen.CreatePen(PS_GEOMETRIC | PS_USERSTYLE, 1, &brush, -1, dashes));
  EXPECT_EQ(pen.m_hObject, nullptr);
}

TEST(Brush, kindsAndHatches) {
  RecordingDevice device;
  CDC dc(device);
  CBrush solid(RGB(1, 2, 3)), hatched(HS_CROSS, RGB(4, 5, 6)), bad;
  EXPECT_FALSE(bad.CreateHatchBrush(6, 0));
  dc.SelectStockObject(NULL_PEN);
  const auto brush_now = [&] {
    device.clear();
    dc.Ellipse(0, 0, 9, 9);
    const std::string line = device.line(0);
    return line.substr(line.find("brush"), line.find(" | rop") - line.find("brush"));
  };
  EXPECT_EQ(brush_now(), "brush #ffffff");
  dc.SelectObject(&solid);
  EXPECT_EQ(brush_now(), "brush #010203");
  dc.SelectObject(&hatched);
  EXPECT_EQ(brush_now(), "brush cross #040506 gap #ffffff");
  dc.SetBkMode(TRANSPARENT);
  EXPECT_EQ(brush_now(), "brush cross #040506");
  dc.SelectStockObject(HOLLOW_BRUSH);
  EXPECT_EQ(brush_now(), "brush none");
}

}  // namespace
