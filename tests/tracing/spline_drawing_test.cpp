#include "tool/tracing/spline_drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/trace_entries.h"
#include "tests/support/tracings.h"
#include "tool/api/CCalcTool.h"
#include "tool/api/CTools.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr COLORREF red = RGB(255, 0, 0), blue = RGB(0, 0, 255);

struct Paper {
  framework::RecordingDevice device;
  CDC dc{device};
};

void draw(Paper &paper, std::vector<tagPOINT> points, int closed = 0, int flip = 0, int step = 10,
          CPoint org = {}, double mag = 1.0, unsigned style = 0) {
  CTools::Draw_SPLine(&paper.dc, org, mag, points.data(), static_cast<short>(points.size()), red, style,
                      static_cast<unsigned char>(closed), 1, flip, step);
}

TEST(drawSpline, drawsShortListsAsLines) {
  Paper paper;
  draw(paper, {{10, 20}}, 0, 0, 10, {5, 6}, 1.5);
  draw(paper, {{10, 20}, {31, 40}}, 1, 0, 10, {5, 6}, 1.5);
  draw(paper, {{10, 20}, {31, 40}}, 0, 1, 10, {5, 6}, 1.5);
  draw(paper, {{10, 20}}, 0, 1);
  draw(paper, {});
  EXPECT_THAT(paper.device.lines(),
              ElementsAre("polyline (13,27) (7,21) | pen solid 1 #ff0000 | rop copy",
                          "polyline (7,27) (13,21) | pen solid 1 #ff0000 | rop copy",
                          "polyline (10,24) (41,54) | pen solid 1 #ff0000 | rop copy",
                          "polyline (10,-24) (41,-54) | pen solid 1 #ff0000 | rop copy",
                          "polyline (12,-22) (8,-18) | pen solid 1 #ff0000 | rop copy",
                          "polyline (8,-22) (12,-18) | pen solid 1 #ff0000 | rop copy"));
}

TEST(drawSpline, choosesVerticesAlongTheSpans) {
  // By Catmull-Rom spans sampled at k / max(10, D / (step / 2)), in another program. Control points between
  // the ends are met only where a sample falls on them; the end is appended although a sample lies there.
  Paper paper;
  draw(paper, {{0, 0}, {60, 0}, {60, 51}});
  draw(paper, {{0, 0}, {60, 0}, {60, 51}}, 0, 1, 25, {100, 10}, 2);
  draw(paper, {{0, 0}, {40, 0}, {40, 40}, {0, 40}}, 1);
  EXPECT_THAT(
      paper.device.lines(),
      ElementsAre(
          "polyline (0,0) (12,-1) (23,-2) (36,-3) (47,-3) (60,0) (64,12) (63,24) (62,37) (60,47) (60,51) | "
          "pen solid 1 #ff0000 | rop copy",
          "polyline (-100,10) (-40,16) (12,14) (27,-41) (20,-92) (20,-92) | pen solid 1 #ff0000 | rop copy",
          "polyline (40,0) (44,10) (44,24) (41,37) (29,44) (15,44) (2,41) (-4,29) (-4,15) (-1,2) (10,-4) "
          "(24,-4) (37,-1) (40,0) | pen solid 1 #ff0000 | rop copy"));
}

TEST(drawSpline, survivesAnyStepAndCoordinates) {
  Paper paper;
  for (const int step : {0, -10, INT32_MIN, INT32_MAX}) draw(paper, {{0, 0}, {60, 0}, {60, 51}}, 1, 0, step);
  draw(paper, {{INT32_MIN, 0}, {INT32_MAX, INT32_MAX}, {0, INT32_MIN}}, 0, 1, 10, {INT32_MIN, INT32_MAX},
       1e300);
  draw(paper, {{INT32_MIN, INT32_MAX}}, 0, 0, 10, {INT32_MIN, INT32_MAX});
  CTools::Draw_SPLine(&paper.dc, {}, 1, nullptr, 5, red, 0, 0, 1, 0, 10);
  CTools::Draw_SPLine(nullptr, {}, 1, nullptr, 0, red, 0, 0, 1, 0, 10);
}

TEST(drawSpline, drawsImagesInPieces) {
  Paper paper;
  tagPOINT points[] = {{0, 0}, {14, 0}, {28, 0}};
  CTools::Draw_SPLine_Image(&paper.dc, {}, 1.0, points, 3, red, 0, 0, 9, 0, 13, 1600, 0);
  for (const auto &line : paper.device.lines()) EXPECT_THAT(line, testing::HasSubstr("pen solid 4 #ff0000"));
  ASSERT_GE(paper.device.size(), 2U);
  EXPECT_EQ(CPoint(paper.device[0].points[0]), CPoint(0, 0));
  EXPECT_EQ(CPoint(paper.device[1].points[0]), CPoint(paper.device[0].points[1]));
  EXPECT_EQ(CPoint(paper.device[paper.device.size() - 1].points[1]), CPoint(28, 0));
}

// Hand-drawn traces ----------------------------------------------------------------------------------------

TEST(drawFreelineTrace, turnsMarksAndDraws) {
  const auto entry = support::trace_entry("x", "8", {{0, {{110, 100}, {130, 100}}}, {1, {{100, 60}}}});
  Paper paper;
  CCalcTool::DrawFreelineTrace(&paper.dc, {1, 2}, 2.0, {100, 100}, entry.data(), 0.0, 3, red, 0, 0, blue);
  EXPECT_THAT(paper.device.lines(),
              ElementsAre("polyline (219,198) (259,198) | pen solid 3 #ff0000 round | rop copy",
                          "polyline (203,122) (195,114) | pen solid 3 #ff0000 round | rop copy",
                          "polyline (195,122) (203,114) | pen solid 3 #ff0000 round | rop copy"));
  paper.device.clear();
  CCalcTool::DrawFreelineTrace(&paper.dc, {}, 1.0, {100, 100}, entry.data(), 45.0, 1, red, 0, 1, blue);
  // 45 degrees clockwise: (100, 100) + (7.07, 7.07) and (21.2, 21.2); (0, -40) becomes (28.28, -28.28).
  EXPECT_THAT(paper.device.lines(),
              ElementsAre("ellipse (103,103) (111,111) | pen solid 1 #0000ff | brush #0000ff | rop copy",
                          "ellipse (117,117) (125,125) | pen solid 1 #0000ff | brush #0000ff | rop copy",
                          "polyline (107,107) (121,121) | pen solid 1 #ff0000 | rop copy",
                          "ellipse (124,67) (132,75) | pen solid 1 #0000ff | brush #0000ff | rop copy",
                          "polyline (130,73) (126,69) | pen solid 1 #ff0000 | rop copy",
                          "polyline (126,73) (130,69) | pen solid 1 #ff0000 | rop copy"));
}

/// Puts a superimposed trace's points at twice their distance from (100, 100), about (50, 50).
void draw_superimposed(Paper &paper, const support::TraceBytes &entry, int mode, double scale = 2.0) {
  tagPOINTLAT rec{};
  rec.lineWidth = 3;
  const tagDPOINT base{50.5, 50.5};
  CCalcTool::Draw_SPLine2FreeLine(&paper.dc, 0, 0, 1.0, red, 0, &base, 100, 100, 0.0, mode, scale, 0.0, 0, 0,
                                  1, 0, entry.data(), &rec);
}

TEST(drawSuperimposedTrace, mapsEveryPoint) {
  const auto entry = support::trace_entry("x", "8", {{0, {{110, 105}, {130, 115}}}});
  Paper paper;
  draw_superimposed(paper, entry, 1);
  draw_superimposed(paper, entry, 0);
  draw_superimposed(paper, entry, 1, 0.0);
  EXPECT_THAT(paper.device.lines(),
              ElementsAre("polyline (70,60) (110,80) | pen solid 3 #ff0000 round | rop copy",
                          "polyline (70,60) (110,80) | pen solid 3 #ff0000 round | rop xor"));
}

// Structures -----------------------------------------------------------------------------------------------

struct Splines {
  std::array<unsigned char, 6700> bytes{};
  void set(int k, bool second, std::vector<POINT> points, int enabled = 1, int count = -1) {
    const auto i = static_cast<std::size_t>(k);
    bytes[32 + i] = static_cast<unsigned char>(enabled);
    bytes[(second ? 60U : 48U) + i] =
        static_cast<unsigned char>(count < 0 ? static_cast<int>(points.size()) : count);
    std::memcpy(&bytes[(second ? 3504U : 336U) + 264 * i], points.data(), points.size() * sizeof(POINT));
  }
};

std::vector<std::string> outlines(const support::TraceStoreBytes &traces, const Splines &splines, int only) {
  Paper paper;
  tagPOINTLAT rec{};
  rec.lineWidth = 1;
  const tagDPOINT base{0.5, 0.5};
  CCalcTool::Set_Trace(&paper.dc, 0, 0, 1.0, red, 0, &base, 0, 0, 0.0, 1, 1.0, 0.0, 0, 0, 1, 0, &rec,
                       traces.data(), splines.bytes.data(), only);
  std::vector<std::string> lines = paper.device.lines();
  for (std::string &line : lines) line.resize(line.find(" |"));
  return lines;
}

TEST(setTrace, drawsTracesBeforeSplines) {
  support::TraceStoreBytes traces{};
  const auto trace = [](const char *code, int x) {
    return support::trace_entry("t", code, {{0, {{x, 10}, {x, 20}}}});
  };
  traces[0] = trace("3", 300);
  traces[1] = trace("8", 800);  // a tooth
  traces[2] = trace("11", 1100);
  traces[5] = trace("12", 120);
  traces[6] = support::trace_entry("", "12", {{0, {{7, 7}, {9, 9}}}});
  traces[19] = trace("99", 99);
  Splines splines;
  splines.set(0, false, {{1, 2}, {3, 4}});
  splines.set(0, true, {{5, 6}, {7, 8}});
  splines.set(2, false, {{20, 2}, {20, 4}}, 0);
  splines.set(3, false, {{33, 2}, {33, 4}});
  splines.set(4, true, {{40, 2}, {40, 4}}, 1);
  splines.set(5, false, {{50, 50}});
  splines.set(6, false, {{60, 60}, {61, 61}}, 1, 34);  // more than there is room for
  splines.set(7, false, {{70, 2}, {70, 4}}, 2);
  const char *t3 = "polyline (300,10) (300,20)", *t12 = "polyline (120,10) (120,20)",
             *t99 = "polyline (99,10) (99,20)", *s0 = "polyline (1,2) (3,4)", *s0b = "polyline (5,6) (7,8)",
             *s4 = "polyline (40,2) (40,4)", *s5 = "ellipse (48,48) (52,52)";
  EXPECT_THAT(outlines(traces, splines, -1), ElementsAre(t3, t12, t99, s0, s0b, s4, s5));
  EXPECT_THAT(outlines(traces, splines, 3), ElementsAre(t3));
  EXPECT_THAT(outlines(traces, splines, 12), ElementsAre(t12));
  EXPECT_THAT(outlines(traces, splines, 4), ElementsAre(s4));
  EXPECT_THAT(outlines(traces, splines, 8), IsEmpty());
  traces[0] = {};
  EXPECT_THAT(outlines(traces, splines, 3), ElementsAre("polyline (33,2) (33,4)"));
}

TEST(convertStructureRecord, keepsFirstSplinesOnly) {
  Splines older, newer;
  older.bytes.fill(7);
  newer.bytes.fill(9);
  CCalcTool::ConvSPPO_1to2(older.bytes.data(), newer.bytes.data());
  for (std::size_t i = 0; i < newer.bytes.size(); ++i) {
    const bool second = (i >= 60 && i < 72) || (i >= 84 && i < 96) || (i >= 3504 && i < 6672);
    EXPECT_EQ(newer.bytes[i], second ? 0 : i < 3504 ? 7 : 9) << i;
  }
}

}  // namespace
