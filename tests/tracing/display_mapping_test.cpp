#include "tool/tracing/display_mapping.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/tracings.h"
#include "tool/api/CCalcTool.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

framework::DeviceCapabilities printer_pages() {
  framework::DeviceCapabilities paper;
  paper.printer = true;
  paper.width = paper.height = 5000;
  return paper;
}

struct Film {
  tagPOINTLAT rec = support::lateral_record(0.1, {{"Po", {100, 200}}});
  framework::RecordingDevice screen, printer{printer_pages()};
  CDC on_screen{screen}, on_paper{printer};
};

TEST(pointMake2, mapsPointsOfTheTracing) {
  struct Row {
    const char *what;
    bool paper;
    CPointD p;
    double mag, rot;
    int actual, noActual;
    CPoint device;
  };
  // Origin (7, 9), factor 0.5. Turned ones: porion + 100 (cos 12, sin 12) = (197.815, 220.791).
  const Row rows[] = {
      {"screen", false, {200.5, 300.5}, 3, 0, 1, 0, {300 - 7, 450 - 9}},
      {"whole degrees", false, {200, 200}, 2, 12.9, 1, 0, {197 - 7, 220 - 9}},
      {"less than a degree", false, {200.5, 200.5}, 2, -0.9, 1, 0, {200 - 7, 200 - 9}},
      {"paper, not wanted", true, {200.5, 300.5}, 3, 0, 0, 0, {300 - 7, 450 - 9}},
      {"paper, overruled", true, {200.5, 300.5}, 3, 0, 1, 1, {300 - 7, 450 - 9}},
      // 101 pixels are 10.1 mm from porion: (110.1, 200) or (100, 210.1).
      {"life size", true, {201, 200}, 3.003, 0, 1, 0, {330 - 7, 9 - 600}},
      {"life size below", true, {100, 301}, 3.003, 0, 1, 0, {300 - 7, 9 - 630}},
      {"life size turned", true, {201, 200}, 3.003, 90, 1, 0, {300 - 7, 9 - 630}},
      {"porion", true, {100, 200}, 3.003, 0, 1, 0, {300 - 7, 9 - 600}},
  };
  for (const Row &row : rows) {
    Film film;
    tagDPOINT p = row.p.ToDPOINT();
    const CPoint device = CCalcTool::Point_Make2(row.paper ? &film.on_paper : &film.on_screen, 7, 9, row.mag,
                                                 &p, row.rot, &film.rec, row.actual, row.noActual, 0.5);
    EXPECT_EQ(device, row.device) << row.what << ' ' << device.x << ' ' << device.y;
  }
  EXPECT_EQ(CCalcTool::Point_Make2(nullptr, 7, 9, 2, CPoint(10, 20), 0, nullptr, 1, 0, 1), CPoint(13, 31));
}

TEST(pointText, standsAboveThePoint) {
  Film film;
  tagDPOINT p{200, 200};
  CCalcTool::Point_Text(&film.on_screen, 0, 0, 1, &p, "ANS", 12, RGB(1, 2, 3), 0, &film.rec, 1, 0, 1);
  CCalcTool::Point_Text(&film.on_paper, 0, 0, 3.013, &p, "ANS", 12, RGB(1, 2, 3), 0, &film.rec, 1, 0, 1);
  ASSERT_EQ(film.screen.size(), 1U);
  ASSERT_EQ(film.printer.size(), 1U);
  EXPECT_EQ(CPoint(film.screen[0].points[0]), CPoint(200, 188));
  EXPECT_EQ(CPoint(film.printer[0].points[0]), CPoint(331, -602 + 12));  // (110, 200) x 3.013
  EXPECT_EQ(film.screen[0].text, "ANS");
  EXPECT_EQ(film.screen[0].color, RGB(1, 2, 3));
  EXPECT_EQ(film.screen[0].font->lfHeight, 12);
  EXPECT_EQ(film.screen[0].font->lfWeight, 12);
}

TEST(drawMakeLine, inkAndRubberBand) {
  Film film;
  film.rec.lineWidth = 3;
  film.rec.printLineWidth = 7;
  const tagDPOINT base{10.5, 20.5};
  CPoint p1(13, 24);
  tagDPOINT p2{23, 44};
  const auto line = [&](CDC &dc, int style, int mode, double scale) {
    CCalcTool::Line_Make2(&dc, RGB(255, 0, 0), style, 1, 2, &base, 3, 4, p1, &p2, 2, 0, mode, scale, 0, 0, 0,
                          1, 0, &film.rec);
  };
  line(film.on_screen, 0, 1, 1);
  line(film.on_screen, 102, 0, 1);
  line(film.on_screen, 102, 1, 1);
  line(film.on_screen, 0, 1, 0);  // nothing
  // Offsets (10, 20) and (20, 40): (20.5, 40.5) and (30.5, 60.5), times 2, minus (1, 2).
  EXPECT_THAT(film.screen.lines(),
              testing::ElementsAre("polyline (40,79) (60,119) | pen solid 3 #ff0000 round | rop copy",
                                   "polyline (40,79) (60,119) | pen solid 1 #ffffff | rop xor",
                                   "polyline (40,79) (60,119) | pen solid 2 #ff0000 round | rop copy"));
  EXPECT_EQ(film.on_screen.GetROP2(), R2_COPYPEN);
  // 0.7 mm of the high half under code 102, at the 3 whole pixels per millimetre of 96 per inch.
  line(film.on_paper, 102, 1, 1);
  EXPECT_THAT(film.printer.line(0), testing::HasSubstr("pen solid 2 #ff0000"));
}

}  // namespace
