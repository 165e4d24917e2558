// That each exported operation hands its arguments to the right places; the rules are tested with the core.

#include <gtest/gtest.h>

#include "tests/support/tracings.h"
#include "tool/api/CCalcTool.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

const tagDPOINT base{100, 200};

// Offset (30, 40) doubled and turned by 90 degrees clockwise about porion (100, 200): (160, 280) becomes
// (20, 260). Less (1, 2), times 3, less (4, 5): (53, 769); upward from 5: -769.
struct Film {
  tagPOINTLAT rec = support::lateral_record(0.1, {{"Po", {100, 200}}});
};

TEST(CCalcToolMapping, passesItsArguments) {
  Film film;
  tagDPOINT p{37, 48}, out{-7, -7};
  const auto near = [](CPoint device, int x, int y) {
    EXPECT_NEAR(device.x, x, 1);
    EXPECT_NEAR(device.y, y, 1);
  };
  near(CCalcTool::Point_Make(30, 40, 4, 5, &base, 3, 0, 2, 1, 2, 90, 1, 0, &film.rec), 53, 769);
  near(CCalcTool::Point_Make(30, 40, 4, 5, &base, 3, 0, 2, 1, 2, 90, 1, 1, &film.rec), 53, -769);
  near(CCalcTool::Point_Make(4, 5, &base, 7, 8, &p, 3, 0, 2, 1, 2, 90, 1, 0, &film.rec), 53, 769);
  near(CCalcTool::Point_Make(4, 5, &base, 7, 8, CPoint(37, 48), 3, 0, 2, 1, 2, 90, 1, 0, &film.rec), 53, 769);
  near(CCalcTool::Draw_MakeLine(30, 40, 4, 5, &base, 0, 2, 1, 2, 90, &film.rec), 15, 253);
  near(CCalcTool::Line_Make2(4, 5, &base, CPoint(130, 240), 0, 2, 1, 2, 90, &film.rec), 15, 253);
  CCalcTool::Get_TRPoint(30, 40, 4, 5, &base, &out, 3, 0, 2, 1, 2, 90, 1, 0, CPoint(100, 200));
  EXPECT_NEAR(out.x, 53, 1e-6);
  EXPECT_NEAR(out.y, 769, 1e-6);
  CCalcTool::Get_TRPoint(30, 40, 4, 5, &base, &out, 3, 0, 0, 1, 2, 90, 1, 0, CPoint(100, 200));
  EXPECT_NEAR(out.x, 53, 1e-6) << "untouched";
  EXPECT_EQ(CCalcTool::Point_Make(30, 40, 4, 5, &base, 3, 0, 0, 1, 2, 90, 1, 0, &film.rec), CPoint(0, 0));
  // Without a turn no record is needed.
  near(CCalcTool::Point_Make(30, 40, 0, 0, &base, 1, 0, 1, 0, 0, 0, 1, 0, nullptr), 130, 240);
  CDC dc;
  for (const int code : {0, -1}) {
    CCalcTool::Trans_SPline(&dc, 4, 5, &base, 7, 8, 1.5, 0, &p, 2, &out, static_cast<unsigned>(code), 3, 0, 1,
                            2, 90, CPoint(100, 200));
    // Code -1: (160, -120) turned about (100, 200) is (420, 260).
    EXPECT_NEAR(out.x, ((code ? 420 : 20) - 1) * 4.5 - 4, 1e-5);
    EXPECT_NEAR(out.y, (260 - 2) * 4.5 - 5, 1e-5);
  }
}

TEST(CCalcToolMapping, superimpositionStatus) {
  const auto a = support::lateral_record(0.1, {{"S", {100, 100}}, {"N", {200, 100}}, {"Ba", {50, 300}}});
  const auto b = support::lateral_record(0.1, {{"S", {100, 100}}, {"N", {200, 0}}});
  double angle = 0, x = -1, y = -1;
  const tagPOINT *landmarks = a.pt + analysis::first_landmark_entry;
  const auto status = [&](unsigned mode, unsigned refMode, unsigned i4) {
    CCalcTool::Get_Profiro_Status(landmarks, &angle, &x, &y, mode, refMode, 0, 1, 1, i4, &b);
  };
  status(1, 0, 25);  // N projected onto the parallel of S-N through Ba
  EXPECT_NEAR(angle, 45 * 3.1415 / 180, 1e-8);
  EXPECT_EQ(x, 200);
  EXPECT_EQ(y, 300);
  status(1, 2, 0);
  EXPECT_EQ(y, 100) << "nasion";
  angle = x = y = -1;
  status(1, 0, 51);
  status(1, 3, 0);
  EXPECT_EQ(angle, -1);
  EXPECT_EQ(x, -1);
}

TEST(CCalcToolTeeth, templatesTakeTheRecordInEitherPlace) {
  Film film;
  const auto lines = [&](bool twice) {
    framework::RecordingDevice device;
    CDC dc(device);
    const void *rec = &film.rec;
    if (twice) {
      CCalcTool::Write_U1(&dc, 3, 4, 30, 40, 1, 0, 4, 5, &base, 3, 0, 1, 2, 1, 2, 90, 1, 0, rec, 1, 1, rec,
                          rec, 0);
      CCalcTool::Write_L1(&dc, 3, 4, 30, 40, 1, 0, 4, 5, &base, 3, 0, 1, 2, 1, 2, 90, 1, 0, rec, 1, 1, rec,
                          rec, 0);
      CCalcTool::Write_Um(&dc, 3, 4, 30, 40, 5, 9, 1, 0, 4, 5, &base, 3, 0, 1, 2, 1, 2, 90, 1, 0, rec, 1, 1,
                          rec);
      CCalcTool::Write_Lm(&dc, 3, 4, 30, 40, 5, 9, 1, 0, 4, 5, &base, 3, 0, 1, 2, 1, 2, 90, 1, 0, rec, 1, 1,
                          rec);
    } else {
      CCalcTool::Write_U1(&dc, 3, 4, 30, 40, 1, 0, 4, 5, &base, 3, 0, 1, 2, 1, 2, 90, 1, 0, 1, 1, rec, rec,
                          0);
      CCalcTool::Write_L1(&dc, 3, 4, 30, 40, 1, 0, 4, 5, &base, 3, 0, 1, 2, 1, 2, 90, 1, 0, 1, 1, rec, rec,
                          0);
      CCalcTool::Write_Um(&dc, 3, 4, 30, 40, 5, 9, 1, 0, 4, 5, &base, 3, 0, 1, 2, 1, 2, 90, 1, 0, 1, 1, rec);
      CCalcTool::Write_Lm(&dc, 3, 4, 30, 40, 5, 9, 1, 0, 4, 5, &base, 3, 0, 1, 2, 1, 2, 90, 1, 0, 1, 1, rec);
    }
    return device.lines();
  };
  EXPECT_EQ(lines(true).size(), 4U + 4 + 6 + 6);
  EXPECT_EQ(lines(true), lines(false));
}

}  // namespace
