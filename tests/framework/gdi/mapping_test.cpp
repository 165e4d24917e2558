#include "tool/framework/gdi/mapping.h"

#include <gtest/gtest.h>

#include <limits>

#include "tool/framework/gdi/CDC.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

using framework::DeviceCapabilities;
using framework::RecordingDevice;

constexpr int far = std::numeric_limits<int>::max();
constexpr int limit = 1 << 26;

/// A4 at 600 dots per inch: 210 mm x 297 mm.
DeviceCapabilities a4_printer() {
  DeviceCapabilities printer;
  printer.printer = true;
  printer.width = 4961;
  printer.height = 7016;
  printer.pixels_per_mm_x = printer.pixels_per_mm_y = 600 / 25.4;
  return printer;
}

DeviceCapabilities with_pixels_per_mm(double x, double y) {
  DeviceCapabilities device;
  device.width = device.height = 1000;
  device.pixels_per_mm_x = x;
  device.pixels_per_mm_y = y;
  return device;
}

TEST(MapMode, oneInchIsSixHundredPixels) {
  struct Row {
    int mode;
    POINT logical, device;
  };
  for (const Row &row :
       {Row{MM_TEXT, {600, 600}, {600, 600}}, Row{MM_LOMETRIC, {254, 254}, {600, -600}},
        Row{MM_HIMETRIC, {2540, -2540}, {600, 600}}, Row{MM_LOENGLISH, {100, 100}, {600, -600}},
        Row{MM_HIENGLISH, {1000, 1000}, {600, -600}}, Row{MM_TWIPS, {1440, 1440}, {600, -600}}}) {
    RecordingDevice device(a4_printer());
    CDC dc(device);
    EXPECT_EQ(dc.SetMapMode(row.mode), MM_TEXT);
    POINT point = row.logical;
    dc.LPtoDP(&point);
    EXPECT_EQ(CPoint(point), CPoint(row.device)) << row.mode;
    dc.DPtoLP(&point);
    EXPECT_EQ(CPoint(point), CPoint(row.logical)) << row.mode;
  }
}

TEST(MapMode, roundsHalvesAwayFromZeroAndClamps) {
  RecordingDevice device(with_pixels_per_mm(5, 50));  // one unit of MM_LOMETRIC: 0.5 and 5 pixels
  CDC dc(device);
  struct Row {
    int mode;
    POINT logical, device;
  };
  for (const Row &row : {Row{MM_LOMETRIC, {1, 1}, {1, -5}}, Row{MM_LOMETRIC, {-1, -1}, {-1, 5}},
                         Row{MM_LOMETRIC, {3, 0}, {2, 0}}, Row{MM_LOMETRIC, {far, far}, {limit, -limit}},
                         Row{MM_TEXT, {far, -far - 1}, {limit, -limit}}}) {
    dc.SetMapMode(row.mode);
    POINT point = row.logical;
    dc.LPtoDP(&point);
    EXPECT_EQ(CPoint(point), CPoint(row.device));
  }
  dc.SetWindowOrg(-far - 1, far);
  dc.SetViewportOrg(far, far);
  POINT point{far, -far};
  dc.LPtoDP(&point);
  EXPECT_EQ(CPoint(point), CPoint(limit, -limit));
  point = {-far, far};
  dc.DPtoLP(&point);  // stays within 32 bits
  dc.OffsetViewportOrg(far, far);
}

TEST(MapMode, originsMoveWithoutChangingTheRounding) {
  RecordingDevice device(with_pixels_per_mm(10, 10));
  CDC dc(device);
  dc.SetMapMode(MM_LOMETRIC);
  EXPECT_EQ(dc.SetWindowOrg(100, 200), CPoint(0, 0));
  EXPECT_EQ(dc.SetViewportOrg(7, 900), CPoint(0, 0));
  EXPECT_EQ(dc.OffsetViewportOrg(3, -5), CPoint(7, 900));
  EXPECT_EQ(dc.GetViewportOrg(), CPoint(10, 895));
  POINT point{105, 230};
  dc.LPtoDP(&point);
  EXPECT_EQ(CPoint(point), CPoint(15, 865));
  RECT rect{100, 200, 110, 190};
  dc.LPtoDP(&rect);
  EXPECT_EQ(CRect(rect), CRect(10, 895, 20, 905));
}

TEST(MapMode, scalesByExtents) {
  struct Row {
    int mode;
    SIZE window, viewport;
    POINT device_of_30_30;
  };
  for (const Row &row :
       {Row{MM_ANISOTROPIC, {3, 3}, {2, -4}, {20, -40}}, Row{MM_ANISOTROPIC, {-60, 60}, {40, 30}, {-20, 15}},
        // Equal units: the smaller of 2 and 4 pixels.
        Row{MM_ISOTROPIC, {100, 100}, {200, 400}, {60, 60}},
        Row{MM_ISOTROPIC, {100, 100}, {200, -400}, {60, -60}}}) {
    RecordingDevice device(with_pixels_per_mm(4, 4));
    CDC dc(device);
    dc.SetMapMode(row.mode);
    dc.SetWindowExt(row.window.cx, row.window.cy);
    dc.SetViewportExt(row.viewport.cx, row.viewport.cy);
    POINT point{30, 30};
    dc.LPtoDP(&point);
    EXPECT_EQ(CPoint(point), CPoint(row.device_of_30_30));
    EXPECT_EQ(dc.SetWindowExt(0, 5), CSize(0, 0));  // refused
  }
  RecordingDevice device(with_pixels_per_mm(4, 8));  // pixels twice as wide as high
  CDC dc(device);
  dc.SetMapMode(MM_ISOTROPIC);
  dc.SetWindowExt(100, 100);
  dc.SetViewportExt(200, 200);
  POINT point{30, 30};
  dc.LPtoDP(&point);
  EXPECT_EQ(CPoint(point), CPoint(30, 60));
}

TEST(MapMode, anisotropicKeepsTheUnitsOfTheModeBefore) {
  RecordingDevice device(with_pixels_per_mm(10, 10));
  CDC dc(device);
  dc.SetMapMode(MM_HIMETRIC);
  EXPECT_EQ(dc.SetMapMode(MM_ANISOTROPIC), MM_HIMETRIC);
  POINT point{100, 100};
  dc.LPtoDP(&point);
  EXPECT_EQ(CPoint(point), CPoint(10, -10));
  EXPECT_EQ(dc.SetMapMode(MM_TEXT), MM_ANISOTROPIC);
  EXPECT_EQ(dc.SetMapMode(0), 0);
  EXPECT_EQ(dc.SetMapMode(9), 0);
  EXPECT_EQ(dc.SetWindowExt(5, 5), CSize(0, 0));  // only the last two modes have extents
  EXPECT_EQ(dc.GetMapMode(), MM_TEXT);
}

TEST(MapMode, boxesReachTheDeviceSorted) {
  RecordingDevice device(with_pixels_per_mm(10, 10));
  CDC dc(device);
  dc.SetMapMode(MM_LOMETRIC);
  dc.Ellipse(0, 100, 50, 20);
  dc.Arc(0, 100, 50, 20, 50, 60, 0, 60);
  dc.RoundRect(50, 20, 0, 100, 6, 8);
  ASSERT_EQ(device.size(), 3u);
  EXPECT_TRUE(device.line(0).starts_with("ellipse (0,-100) (50,-20) |")) << device.line(0);
  EXPECT_TRUE(device.line(1).starts_with("arc (0,-100) (50,-20) (50,-60) (0,-60) |")) << device.line(1);
  EXPECT_TRUE(device.line(2).starts_with("rounded_rectangle (0,-100) (50,-20) (6,8) |")) << device.line(2);
}

TEST(DeviceCaps, tellSizesInWholeMillimetres) {
  RecordingDevice printer(a4_printer());
  const CDC paper(printer);
  const CDC nothing;
  struct Row {
    int index, of_paper, of_nothing;
  };
  for (const Row &row :
       {Row{HORZSIZE, 210, 508}, Row{VERTSIZE, 297, 286}, Row{HORZRES, 4961, 1920}, Row{VERTRES, 7016, 1080},
        Row{LOGPIXELSX, 600, 96}, Row{LOGPIXELSY, 600, 96}, Row{TECHNOLOGY, DT_RASPRINTER, DT_RASDISPLAY},
        Row{BITSPIXEL, 32, 32}, Row{999, 0, 0}}) {
    EXPECT_EQ(paper.GetDeviceCaps(row.index), row.of_paper) << row.index;
    EXPECT_EQ(nothing.GetDeviceCaps(row.index), row.of_nothing) << row.index;
  }
  EXPECT_TRUE(paper.IsPrinting());
  EXPECT_FALSE(nothing.IsPrinting());
  CDC memory;
  ASSERT_TRUE(memory.CreateCompatibleDC(&paper));
  EXPECT_EQ(memory.GetDeviceCaps(HORZSIZE), 210);
  EXPECT_FALSE(memory.IsPrinting());
}

}  // namespace
