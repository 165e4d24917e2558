#include "tool/framework/gdi/CDC.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tool/framework/gdi/raw_drawing.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

using framework::RecordingDevice;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(CDC, drawsWithTheSelectedObjects) {
  RecordingDevice device;
  CDC dc(device);
  CPen pen(PS_SOLID, 2, RGB(255, 0, 0));
  CBrush brush(RGB(0, 255, 0));
  CPen *old_pen = dc.SelectObject(&pen);
  CBrush *old_brush = dc.SelectObject(&brush);
  dc.MoveTo(1, 2);
  dc.LineTo(30, 4);
  EXPECT_EQ(dc.GetCurrentPosition(), CPoint(30, 4));
  dc.Rectangle(20, 10, 5, 6);
  EXPECT_EQ(dc.SelectObject(old_pen), &pen);
  EXPECT_EQ(dc.SelectObject(old_brush), &brush);
  const POINT points[] = {{0, 0}, {5, 5}, {9, 0}};
  dc.Polyline(points, 3);
  dc.Polyline(points, 1);
  dc.SetPolyFillMode(WINDING);
  dc.Polygon(points, 3);
  EXPECT_EQ(dc.GetCurrentPosition(), CPoint(30, 4));
  EXPECT_THAT(
      device.lines(),
      ElementsAre("polyline (1,2) (30,4) | pen solid 2 #ff0000 round | rop copy",
                  "rectangle (5,6) (20,10) | pen solid 2 #ff0000 round | brush #00ff00 | rop copy",
                  "polyline (0,0) (5,5) (9,0) | pen solid 1 #000000 | rop copy",
                  "polyline (0,0) | pen solid 1 #000000 | rop copy",
                  "polygon (0,0) (5,5) (9,0) | winding | pen solid 1 #000000 | brush #ffffff | rop copy"));
}

TEST(CDC, withoutAPenARectangleIsAPixelSmaller) {
  RecordingDevice device;
  CDC dc(device);
  dc.SelectStockObject(NULL_PEN);
  dc.Rectangle(5, 5, 20, 10);
  dc.Rectangle(5, 5, 6, 10);  // nothing left
  EXPECT_THAT(device.lines(), ElementsAre("rectangle (5,5) (19,9) | pen none | brush #ffffff | rop copy"));
}

TEST(CDC, modesKeepTheirValueWhenABadOneIsSet) {
  CDC dc;
  EXPECT_EQ(dc.SetBkMode(TRANSPARENT), OPAQUE);
  EXPECT_EQ(dc.SetROP2(R2_XORPEN), R2_COPYPEN);
  for (const int bad : {-1, 0, 17}) {
    EXPECT_EQ(dc.SetBkMode(bad), 0);
    EXPECT_EQ(dc.SetROP2(bad), 0);
    EXPECT_EQ(dc.SetPolyFillMode(bad), 0);
    EXPECT_EQ(dc.SetStretchBltMode(bad), 0);
  }
  EXPECT_EQ(dc.GetBkMode(), TRANSPARENT);
  EXPECT_EQ(dc.GetROP2(), R2_XORPEN);
}

TEST(CDC, withoutADeviceAcceptsEveryCall) {
  CDC dc;
  CPen pen(PS_SOLID, 1, COLORREF{0});
  CPen *old = dc.SelectObject(&pen);
  EXPECT_NE(old, nullptr);
  EXPECT_TRUE(dc.LineTo(5, 5));
  EXPECT_TRUE(dc.Rectangle(0, 0, 5, 5));
  EXPECT_TRUE(dc.FloodFill(0, 0, 0));
  EXPECT_EQ(dc.GetPixel(0, 0), CLR_INVALID);
  EXPECT_TRUE(dc.TextOut(0, 0, "abc"));
  CRect rect(0, 0, 100, 100);
  EXPECT_EQ(dc.DrawText("a\nb", -1, &rect, 0), 32);
  EXPECT_EQ(dc.GetTextExtent("abc"), CSize(24, 16));
  EXPECT_EQ(dc.StartDoc(nullptr), 1);
  EXPECT_EQ(dc.SelectObject(old), &pen);
  EXPECT_EQ(dc.SelectObject(static_cast<CPen *>(nullptr)), nullptr);
  EXPECT_EQ(dc.SelectObject(&pen), old);  // null changed nothing
}

TEST(CDC, objectsMayGoWhileTheyAreSelected) {
  RecordingDevice device;
  CDC dc(device);
  {
    CPen pen(PS_SOLID, 3, RGB(1, 2, 3));
    dc.SelectObject(&pen);
  }
  dc.LineTo(9, 9);
  EXPECT_EQ(device.line(0), "polyline (0,0) (9,9) | pen solid 3 #010203 round | rop copy");
  EXPECT_EQ(dc.GetCurrentPen(), nullptr);
  EXPECT_EQ(dc.SelectStockObject(WHITE_PEN), nullptr);
  EXPECT_EQ(dc.GetCurrentPen(), CPen::FromHandle(static_cast<HPEN>(GetStockObject(WHITE_PEN))));
}

TEST(CDC, followsItsHandle) {
  RecordingDevice first, second;
  CDC a(first), c;
  auto b = std::make_unique<CDC>(second);
  c.m_hDC = a.m_hDC;
  c.LineTo(1, 1);
  c.SetOutputDC(b->m_hDC);
  c.LineTo(2, 2);
  c.SetROP2(R2_XORPEN);  // of the shared context
  EXPECT_EQ(b->GetROP2(), R2_XORPEN);
  EXPECT_EQ(first.size(), 1u);
  EXPECT_EQ(second.size(), 1u);
  EXPECT_EQ(CDC::FromHandle(c.m_hDC), b.get());
  b.reset();
  EXPECT_TRUE(c.LineTo(3, 3));  // stale: no device
  EXPECT_EQ(second.size(), 1u);
  EXPECT_EQ(CDC::FromHandle(c.m_hDC), nullptr);
  c.m_hDC = a.m_hDC;
  c.LineTo(4, 4);
  EXPECT_EQ(first.size(), 2u);
  c.m_hDC = static_cast<HDC>(GetStockObject(BLACK_PEN));
  c.LineTo(5, 5);
  EXPECT_EQ(first.size(), 2u);
}

TEST(CDC, questionsGoToTheAttributeContext) {
  RecordingDevice screen;
  RecordingDevice paper(framework::DeviceCapabilities{.printer = true, .width = 210, .height = 297});
  CDC dc(screen), printer(paper);
  dc.SetAttribDC(printer.m_hDC);
  EXPECT_TRUE(dc.IsPrinting());
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 210);
  printer.SetMapMode(MM_LOMETRIC);
  EXPECT_EQ(dc.SetMapMode(MM_TEXT), MM_LOMETRIC);  // set on both
  EXPECT_EQ(printer.GetMapMode(), MM_TEXT);
  dc.LineTo(1, 1);
  EXPECT_EQ(screen.size(), 1u);
  EXPECT_EQ(paper.size(), 0u);
}

TEST(CDC, attachedContextsAreDeletedDetachedOnesAreNot) {
  RecordingDevice device;
  CDC dc(device);
  const HDC handle = dc.m_hDC;
  {
    CDC other;
    EXPECT_FALSE(dc.Attach(handle));
    EXPECT_TRUE(other.Attach(handle));
    EXPECT_EQ(CDC::FromHandle(handle), &dc);
    EXPECT_EQ(other.Detach(), handle);
    EXPECT_EQ(other.m_hDC, nullptr);
  }
  EXPECT_EQ(dc.Detach(), handle);
  CDC *wrapper = CDC::FromHandle(handle);
  ASSERT_NE(wrapper, nullptr);
  EXPECT_EQ(CDC::FromHandle(handle), wrapper);
  wrapper->LineTo(1, 1);
  EXPECT_EQ(device.size(), 1u);
  EXPECT_TRUE(wrapper->DeleteDC());
  EXPECT_EQ(CDC::FromHandle(handle), nullptr);
  CDC overwritten(device);
  overwritten.m_hDC = nullptr;
  EXPECT_EQ(overwritten.Detach(), nullptr);  // its own context still goes with it
}

TEST(CDC, savesAndRestoresEverything) {
  RecordingDevice device;
  CDC dc(device);
  CPen pen(PS_SOLID, 7, COLORREF{0});
  CRgn clip;
  clip.CreateRectRgn(1, 1, 5, 5);
  EXPECT_EQ(dc.SaveDC(), 1);
  dc.SelectObject(&pen);
  dc.SetROP2(R2_NOT);
  EXPECT_EQ(dc.SaveDC(), 2);
  dc.SelectClipRgn(&clip);
  dc.SetMapMode(MM_TWIPS);
  dc.MoveTo(9, 9);
  EXPECT_FALSE(dc.RestoreDC(3));
  EXPECT_FALSE(dc.RestoreDC(-3));
  EXPECT_FALSE(dc.RestoreDC(0));
  EXPECT_TRUE(dc.RestoreDC(-1));
  EXPECT_EQ(dc.GetMapMode(), MM_TEXT);
  dc.LineTo(1, 1);
  EXPECT_EQ(device.line(0), "polyline (0,0) (1,1) | pen solid 7 #000000 round | rop not");
  EXPECT_TRUE(dc.RestoreDC(1));
  EXPECT_EQ(dc.GetROP2(), R2_COPYPEN);
  EXPECT_FALSE(dc.RestoreDC(-1));
}

TEST(CDC, clipsToRegionsAndBoxes) {
  RecordingDevice device;
  CDC dc(device);
  CRect box;
  EXPECT_EQ(dc.GetClipBox(&box), SIMPLEREGION);
  EXPECT_EQ(box, CRect(0, 0, 1920, 1080));
  CRgn circle;
  circle.CreateEllipticRgn(10, 10, 50, 50);
  EXPECT_EQ(dc.SelectObject(&circle), COMPLEXREGION);
  dc.SetViewportOrg(20, 20);
  EXPECT_EQ(dc.IntersectClipRect(0, 0, 100, 100), COMPLEXREGION);  // logical units
  EXPECT_EQ(dc.GetClipBox(&box), COMPLEXREGION);
  EXPECT_EQ(box, CRect(0, 0, 30, 30));
  dc.LineTo(1, 1);
  EXPECT_TRUE(device.line(0).ends_with("| clip (20,20)-(50,50)")) << device.line(0);
  EXPECT_EQ(dc.IntersectClipRect(500, 500, 600, 600), NULLREGION);
  CRgn none;
  EXPECT_EQ(dc.SelectClipRgn(&none), ERROR_REGION);
  EXPECT_EQ(dc.SelectClipRgn(nullptr), SIMPLEREGION);
}

TEST(CDC, regionsAreFilledInLogicalUnits) {
  RecordingDevice device;
  CDC dc(device);
  dc.SetViewportOrg(100, 0);
  const POINT triangle[] = {{0, 0}, {4, 0}, {0, 4}};
  CRgn region, box, both;
  region.CreatePolygonRgn(triangle, 3, ALTERNATE);
  box.CreateRectRgn(1, 1, 3, 9);
  both.CreateRectRgn(0, 0, 0, 0);
  both.CombineRgn(&region, &box, RGN_AND);
  EXPECT_TRUE(both.PtInRegion(1, 1));
  EXPECT_FALSE(both.PtInRegion(2, 1));
  CBrush brush(RGB(0, 0, 255)), none;
  dc.FillRgn(&region, &brush);
  dc.FillRgn(&box, &brush);
  dc.FillRgn(&both, &brush);
  EXPECT_FALSE(dc.FillRgn(&region, &none));
  EXPECT_THAT(device.lines(),
              ElementsAre("fill_region (100,0) (104,0) (100,4) | polygon | brush #0000ff | rop copy",
                          "fill_region (101,1) (103,9) | rectangle | brush #0000ff | rop copy",
                          "fill_region (101,1) (102,2) | rectangle | brush #0000ff | rop copy"));
}

TEST(RecordingDevice, tellsWhatPaperCannotDo) {
  RecordingDevice paper(framework::DeviceCapabilities{.printer = true, .width = 100, .height = 100});
  CDC dc(paper);
  dc.SetROP2(R2_XORPEN);
  dc.LineTo(5, 5);
  dc.SetROP2(R2_COPYPEN);
  EXPECT_FALSE(dc.FloodFill(1, 1, RGB(255, 0, 0)));
  EXPECT_THAT(paper.lines(),
              ElementsAre("polyline (0,0) (5,5) | pen solid 1 #000000 | rop xor | ignored",
                          "flood_fill (1,1) | border #ff0000 | brush #ffffff | rop copy | ignored"));
}

TEST(RecordingDevice, passesCallsOn) {
  RecordingDevice last(framework::DeviceCapabilities{.printer = true, .width = 77, .height = 88});
  RecordingDevice front(static_cast<framework::DrawingDevice &>(last));
  CDC dc(front);
  EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 77);
  const DOCINFOA document{sizeof(DOCINFOA), "report", nullptr};
  EXPECT_GT(dc.StartDoc(&document), 0);
  dc.StartPage();
  dc.Ellipse(0, 0, 5, 5);
  dc.TextOut(1, 1, "x");
  dc.SetPixel(3, 3, RGB(9, 9, 9));
  dc.Arc(0, 0, 9, 9, 0, 0, 9, 9);
  dc.RoundRect(0, 0, 9, 9, 2, 2);
  dc.EndPage();
  dc.EndDoc();
  EXPECT_EQ(front.lines(), last.lines());
  EXPECT_EQ(front.line(0), "begin_document \"report\"");
  EXPECT_EQ(front.size(), 10u);  // opaque text is two calls
  front.clear();
  EXPECT_THAT(front.lines(), IsEmpty());
}

TEST(RecordingDevice, keepsEveryCallAsItCame) {
  RecordingDevice device;
  CDC dc(device);
  CPen pens[] = {{PS_SOLID, 2, RGB(1, 1, 1)}, {PS_SOLID, 3, RGB(2, 2, 2)}};
  CRgn clip;
  clip.CreateRectRgn(0, 0, 7, 7);
  for (int i = 0; i < 1000; ++i) {
    dc.SelectObject(&pens[i % 2]);
    dc.SelectClipRgn(i % 3 == 0 ? &clip : nullptr);
    dc.LineTo(i, -i);
  }
  for (int i = 0; i < 1000; ++i) {
    const RecordingDevice::Call call = device[static_cast<std::size_t>(i)];
    ASSERT_EQ(call.points[1].x, i);
    ASSERT_EQ(call.paint->pen.width, 2 + i % 2);
    ASSERT_EQ(call.paint->clip, nullptr);
    ASSERT_EQ(call.clip != nullptr, i % 3 == 0);
  }
}

}  // namespace
