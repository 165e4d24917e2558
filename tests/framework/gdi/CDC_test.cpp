#include "tool/framework/gdi/CDC.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tool/framework/gdi/recording_device.h"

namespace {

using framework::RecordingDevice;
using testing::ElementsAre;

TEST(CDC, drawsLinesAndBoxesWithTheSelectedObjects) {
  RecordingDevice device;
  CDC dc(device);
  CPen pen(PS_SOLID, 2, RGB(255, 0, 0));
  CBrush brush(RGB(0, 255, 0));
  CPen *old_pen = dc.SelectObject(&pen);
  CBrush *old_brush = dc.SelectObject(&brush);
  dc.MoveTo(1, 2);
  dc.LineTo(30, 4);
  dc.Rectangle(20, 10, 5, 6);
  EXPECT_EQ(dc.SelectObject(old_pen), &pen);
  EXPECT_EQ(dc.SelectObject(old_brush), &brush);
  const POINT points[] = {{0, 0}, {5, 5}, {9, 0}};
  dc.Polyline(points, 3);
  EXPECT_THAT(device.lines(),
              ElementsAre("polyline (1,2) (30,4) | pen solid 2 #ff0000 round | rop copy",
                          "rectangle (5,6) (20,10) | pen solid 2 #ff0000 round | brush #00ff00 | rop copy",
                          "polyline (0,0) (5,5) (9,0) | pen solid 1 #000000 | rop copy"));
}

}  // namespace
