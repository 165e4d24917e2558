#include "tests/support/every_primitive.h"

#include <gtest/gtest.h>

#include "backends/qt/qt_platform.h"
#include "tests/qt/bitmap.h"

namespace {

using support::drawing::every_primitive;

TEST(everyPrimitive, leavesTheContextOfAPictureAsFound) {
  qt_backend::ensure_gui_application();
  for (const auto &primitive : every_primitive) {
    support::Bitmap bitmap(200, 200);
    CDC dc(bitmap.device);
    support::drawing::expect_context_left_as_found(dc, primitive);
  }
}

TEST(everyPrimitive, drawnTwiceAsExclusiveOrRestoresThePicture) {
  qt_backend::ensure_gui_application();
  for (const auto &primitive : every_primitive) {
    support::Bitmap bitmap(200, 200, RGB(200, 120, 40));
    CDC dc(bitmap.device);
    const std::vector<COLORREF> before = bitmap.colors();
    dc.SetROP2(R2_XORPEN);
    primitive.draw(&dc, 1.0);
    EXPECT_NE(bitmap.colors(), before) << primitive.call;
    primitive.draw(&dc, 1.0);
    EXPECT_EQ(bitmap.colors(), before) << primitive.call;
  }
}

}  // namespace
