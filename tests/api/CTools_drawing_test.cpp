#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "tests/support/every_primitive.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

using framework::RecordingDevice;
using support::drawing::at_p;
using support::drawing::box;
using support::drawing::org;
using support::drawing::red;
using support::drawing::small_font;
using testing::ElementsAre;

/// Figures with their points, pen and raster operation, for instance "polyline 1,2 3,4 w2 xor".
struct Drawing {
  RecordingDevice device;
  CDC dc;

  Drawing() : dc(device) {}
  explicit Drawing(double pixels_per_mm, int map_mode)  // on paper of 200 x 280 mm
      : device({.printer = true,
                .width = static_cast<int>(200 * pixels_per_mm),
                .height = static_cast<int>(280 * pixels_per_mm),
                .pixels_per_mm_x = pixels_per_mm,
                .pixels_per_mm_y = pixels_per_mm}),
        dc(device) {
    dc.SetMapMode(map_mode);
  }

  std::string call(std::size_t index) const {
    using Kind = RecordingDevice::Kind;
    const char *names[] = {"polyline", "polygon", "rectangle", "rounded", "ellipse",
                           "arc",      "region",  "text",      "fill"};
    const RecordingDevice::Call call = device[index];
    const framework::Paint &paint = *call.paint;
    std::ostringstream text;
    text << names[static_cast<int>(call.kind)];
    for (const POINT &point : call.points) text << ' ' << point.x << ',' << point.y;
    if (call.font) {
      const LOGFONTA &font = *call.font;
      const bool gothic =
          std::string(font.lfFaceName) == "\x82\x6C\x82\x72\x20\x83\x53\x83\x56\x83\x62\x83\x4E";
      text << " '" << call.text << "' " << (gothic ? "gothic" : font.lfFaceName) << ' ' << font.lfHeight
           << ' ' << font.lfWeight << " q" << int{font.lfQuality} << (font.lfItalic ? " italic" : "")
           << (font.lfStrikeOut ? " struck" : "") << (font.lfUnderline ? " underlined" : "")
           << (call.clip ? " clipped" : "");
      EXPECT_EQ(font.lfCharSet, 128);
      EXPECT_EQ(call.color, red);
      return text.str();
    }
    if (call.kind < Kind::fill_region) {
      text << " w" << paint.pen.width;
      for (int i = 0; i < paint.pen.dash_count; ++i)
        text << (i == 0 ? " dashes " : "-") << paint.pen.dashes[static_cast<std::size_t>(i)];
      EXPECT_EQ(paint.pen.color, red);
      EXPECT_FALSE(paint.pen.gap_color);
    }
    if (call.kind != Kind::polyline && call.kind != Kind::arc &&
        paint.brush.kind == framework::DeviceBrush::Kind::solid)
      text << " #" << std::hex << paint.brush.color;
    if (paint.rop == R2_XORPEN) text << " xor";
    return text.str();
  }

  std::vector<std::string> calls() const {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < device.size(); ++i) lines.push_back(call(i));
    return lines;
  }
};

struct Row {
  const char *call;
  void (*draw)(CDC *dc, double mag);
  const char *drawn;
};

// clang-format off
const Row calls[] = {
    {DRAWING_CALL(Draw_Line(dc, 1, 2, 3, 4, 5, red, 104, 0)), "polyline 1,2 3,4 w1 dashes 9-3"},
    {DRAWING_CALL(Draw_Line(dc, 1, 2, 3, 4, 5, red, 0, 2)), "polyline 1,-2 3,-4 w5"},
    {DRAWING_CALL(Draw_Line2(dc, 1, 2, 3, 4, 5, red, 1)), "polyline 1,2 3,4 w5 dashes 10-10"},  // caps add 5
    {DRAWING_CALL(Draw_Line_Image(dc, 1, 2, 3, 4, 5, red, 1, 1)), "polyline 1,-2 3,-4 w5"},
    {DRAWING_CALL(Line_MakeH(dc->m_hDC, 1, 2, 3, 4, 5, red, 0)), "polyline 1,2 3,4 w5"},
    {DRAWING_CALL(Line_Make2(dc, {3, -3}, {5, 7}, 0.5, {10, 20}, 1, red, 0, 0)), "polyline -9,-21 -8,-17 w1"},
    {DRAWING_CALL(Line_Make2(dc, {1, 2}, {3, 4}, 1, org, 1, red, 0, 1)), "polyline 1,2 3,4 w1 xor"},
    {DRAWING_CALL(Line_Make2_Image(dc, {1, 2}, {3, 4}, 2, {1, 1}, 9, red, 0, 1, 1600, 0)),
     "polyline 1,3 5,7 w4 xor"},
    {DRAWING_CALL(Line_Maked(dc, &support::drawing::at_a, &support::drawing::at_b, 1.5, {1, 2}, 3, red, 0)),
     "polyline 29,43 179,223 w4"},
    {DRAWING_CALL(Draw_LineF(dc, {1, 2}, 2, {3, 4}, {5, 6}, 1, red, 0)), "polyline 5,6 9,10 w1"},
    {DRAWING_CALL(Draw_LineF(dc, 3, -3, 5, 7, 0.5, 1, red, 0)), "polyline 1,-1 2,3 w1"},
    {DRAWING_CALL(P_Line(dc, 10, 20, 2, 0.5, 1, 2, 3, 5, 1, red, 0)), "polyline 22,-11 26,-12 w1"},

    {DRAWING_CALL(Area_Make(dc, 1, 2, 3, 4, 1, red, 0)), "polyline 1,2 3,2 3,4 1,4 1,2 w1"},
    {DRAWING_CALL(Area_Make(dc, CRect(1, 2, 3, 4), 2, red, 0)), "polyline 1,2 3,2 3,4 1,4 1,2 w2"},
    {DRAWING_CALL(Area_MakeF(dc, 1, 2, 3, 5, 1.5, 1, red, 0)), "polyline 1,3 4,3 4,7 1,7 1,3 w1"},
    {DRAWING_CALL(DrawRect(dc, {1, 2, 3, 5}, 1.5, 1, red, 0)), "polyline 1,3 4,3 4,7 1,7 1,3 w1"},
    {DRAWING_CALL(P_Area(dc, 10, 20, 1, 1, 1, 2, 3, 4, 1, red, 0)),
     "polyline 11,-22 13,-22 13,-24 11,-24 11,-22 w1"},
    {DRAWING_CALL(Frame_Make(dc, {1, 2, 3, 4}, 1, red, 0)), "polyline 1,2 3,2 3,4 1,4 1,2 w1 xor"},
    {DRAWING_CALL(Rect_Make(dc, CRect(1, 2, 13, 14), 3, red, 0xFF00)), "rectangle 1,2 13,14 w3 #ff00"},
    {DRAWING_CALL(Rect_Make(dc, {1, 2, 3, 5}, 1.5, {1, 1}, 1, red, 0, 1)),
     "polyline 0,2 3,2 3,6 0,6 0,2 w1 xor"},
    {DRAWING_CALL(Rect_Make(dc, {1, 2, 3, 2}, 2, {1, 1}, 1, red, 0, 1)), "polyline 1,3 5,3 w1 xor"},
    {DRAWING_CALL(Rect_MakeEx(dc, {1, 2, 21, 22}, 1.5, {1, 1}, 3, 2, red, 0, 1, 0xFF00)),
     "rounded 0,2 30,32 4,4 w2 #ff00"},
    {DRAWING_CALL(Rect_MakeEx(dc, {1, 2, 21, 22}, 1, org, 3, 2, red, 0, 0, 0xFF00)),
     "rounded 1,2 21,22 3,3 w2"},
    {DRAWING_CALL(Rect_MakeEx(dc, {1, 2, 1, 22}, 2, org, 3, 2, red, 0, 1, 0xFF00)), "polyline 2,4 2,44 w2"},
    {DRAWING_CALL(Box_MakeH(dc->m_hDC, 1, 2, 13, 14, 1, red, 0xFF00)), "rectangle 1,2 13,14 w1 #ff00"},
    {DRAWING_CALL(DrawRect(dc, 5, 6, 0xFF00, red)), "fill 5,6 #ff00"},

    {DRAWING_CALL(Ellipse(dc, 1, 2, 13, 14, 2, red, 0xFF00, 0, 0)), "ellipse 1,2 13,14 w2 #ff00"},
    {DRAWING_CALL(Ellipse(dc, 1, 2, 13, 14, 2, red, 0xFF00, 0, 1)), "ellipse 1,-14 13,-2 w2 #ff00"},
    {DRAWING_CALL(EllipseF(dc, 1, 2, 13, 14, 1.5, 2, red, 1)), "ellipse 1,3 19,21 w2 dashes 4-4"},
    {DRAWING_CALL(Arc_MakeF(dc, 1, 2, 13, 14, 15, 7, 1, 9, 1.5, 1, red, 0)), "arc 1,3 19,21 22,10 1,13 w1"},
    {DRAWING_CALL(Draw_Circle(dc, 10, 20, 14, 24, 7, red, 102, 0)), "ellipse 5,15 15,25 w2"},  // radius 5.66
    {DRAWING_CALL(Draw_Circle(dc, 10, 20, 14, 24, 1, red, 0, 2)), "ellipse 5,-25 15,-15 w1"},
    {DRAWING_CALL(Spot(dc, {1, 2}, 1.5, {10, 20}, 3, red, 0)), "ellipse 9,23 18,32 w1 #ff"},
    {DRAWING_CALL(Spot(dc, {1, 2}, 1.5, {10, 20}, 3, red, 1)), "ellipse 9,-32 18,-23 w1 #ff"},
    {DRAWING_CALL(Spot(dc, org, 1, {10, 20}, 0, red, 0)), "ellipse 9,19 11,21 w1 #ff"},
    {DRAWING_CALL(Spot2(dc, {1, 2}, 1.5, {11, 21}, 3, red, 0)), "ellipse 12,26 18,32 w1 #ff"},
    {DRAWING_CALL(Spot2(dc, org, 1.5, {11, 21}, 0, red, 0)), "ellipse 15,30 17,32 w1 #ff"},

    {DRAWING_CALL(TextMake(dc, 1, 2, "A&B", 30, 700, 9, 1, red, 1, 0, 1, 0)),
     "text 1,2 'A&B' Times New Roman 30 700 q3 italic struck"},
    {DRAWING_CALL(TextMake(dc, 1, 2, "A", 30, 400, 0, 0, red, 1, 1, 0, 1)),
     "text 1,-2 'A' gothic 30 400 q3 underlined"},
    {DRAWING_CALL(TextMakeOut(dc, 1, 2, "A&B", 30, 400, 9, 0, red, 1)), "text 1,2 'A&B' gothic 30 400 q2"},
    {DRAWING_CALL(Draw_Text(dc, {1, 2}, 1.5, {10, 20}, 3, "A", 15, red, 400, 0, 0)),
     "text 18,32 'A' gothic 22 400 q3"},
    {DRAWING_CALL(P_Text(dc, 10, 20, 1.5, 2, 1, 2, "A", 15, 301, 9, 1, red)),
     "text 16,-44 'A' Times New Roman 22 451 q3 italic"},
    {DRAWING_CALL(Rect_Text(dc, {10, 20, 90, 80}, 1.5, {1, 2}, "A", 15, red, 0, 400, 0)),
     "text 17,28 'A' gothic 22 400 q2 clipped"},
    {DRAWING_CALL(Rect_Text(dc, {10, 20, 90, 80}, 1.5, {1, 2}, "A", 15, red, DT_NOCLIP, 400, 1)),
     "text 17,-28 'A' gothic 22 400 q2"},
    {DRAWING_CALL(Rect_Text(dc, {10, 20, 90, 80}, 1.5, {1, 2}, "A&B", small_font, red, 0)),
     "text 14,28 'A&B' Times New Roman 18 400 q2 clipped"},
    {DRAWING_CALL(Rect_Text_LF(dc, {-10, -20, 0, 0}, 1.5, {1, 2}, "A", small_font, red, 0)),
     "text -1,-2 'A' Times New Roman 18 400 q2"},
};
// clang-format on

TEST(CToolsDrawing, drawsOneFigure) {
  for (const Row &row : calls) {
    Drawing drawing;
    row.draw(&drawing.dc, 1.0);
    EXPECT_THAT(drawing.calls(), ElementsAre(row.drawn)) << row.call;
  }
}

TEST(CToolsDrawing, arrowHeadsFollowTheShaft) {
  Drawing drawing;
  CTools::DrawArrowLine(&drawing.dc, {10, 100}, {110, 100}, 20, 2, 2, {5, 7}, 3, red, 0);
  ASSERT_EQ(drawing.device.size(), 2U);
  EXPECT_EQ(drawing.call(0), "polyline 15,193 215,193 w3");
  // 20 cos 20 = 18.8 back and 20 sin 20 = 6.8 to each side: (91, 93) and (91, 106).
  for (const char *part : {"region", "215,193", "177,179", "177,205", "#ff"})
    EXPECT_THAT(drawing.call(1), testing::HasSubstr(part));
  CTools::DrawArrowLine(&drawing.dc, {10, 100}, {110, 100}, 20, 3, 1, org, 3, red, 0);
  EXPECT_EQ(drawing.device.size(), 5U);
}

TEST(CToolsDrawing, referenceLines) {
  tagDPOINT a{0, 0}, b{10, 10}, p{50, 50};
  constexpr RECT clip{0, 0, 100, 200};
  CPoint end(-1, -1);
  Drawing drawing;
  CDC *dc = &drawing.dc;
  CTools::Vartical_Line(dc, &a, &b, &p, clip, 5, 6, red, &end, 3, 2, 9, 1);
  EXPECT_TRUE(end == CPoint(100, 0));
  CTools::Parallel_Line_Image(dc, &a, &b, &p, clip, 5, 6, red, &end, 3, 1, 9, 1, 0, 0);
  EXPECT_TRUE(end == CPoint(200, 200));
  CTools::Parallel_Line(dc, CPoint(0, 0), CPoint(10, -10), &p, clip, 5, 6, red, &end, 0, 2, 9, 1, 0, 0);
  EXPECT_TRUE(end == CPoint(100, 0));
  CTools::Vartical_Line_Image(dc, CPoint(0, 0), CPoint(10, 10), &p, clip, 0, 0, red, nullptr, 3, 1, 9, 0);
  CTools::Vartical_Line_Image(dc, CPoint(0, 0), CPoint(10, 0), &p, clip, 0, 0, red, &end, 25, 1, 1.7, 2);
  EXPECT_TRUE(end == CPoint(100, 0));  // left alone
  EXPECT_THAT(drawing.calls(),
              ElementsAre("polyline -5,194 195,-6 w3 dashes 9-3", "polyline -5,-6 195,194 w3",
                          "polyline 0,100 100,0 w3", "polyline 50,0 50,200 w4 dashes 3-3"));
}

TEST(CToolsDrawing, outlines) {
  int outline[50][2] = {{0, 0}, {5, 5}, {0, 10}};
  int single[50][2] = {{7, 7}};
  tagDPOINT a{100.5, 100.5}, b{100.5, 120.5};
  Drawing drawing;
  CDC *dc = &drawing.dc;
  CTools::Line_Pile(dc, 0, 0, &a, &b, outline, {0, 0}, {0, 10}, red, 1, org, 0, 1, 3, 1, 0, 0);
  CTools::Line_Pile(dc, 0, 0, CPoint(100, 100), &b, outline, org, org, red, 1, org, 0, 0, 1, 0, 0, 1);
  CTools::Line_Pile_Image(dc, 1, 2, &a, &b, outline, org, org, red, 1, org, 0, 1, 3, 104, 0, 0, 1600, 0);
  CTools::Line_Pile(dc, 0, 0, &a, CPoint(3, 4), single, org, org, red, 1, org, 0, 1, 1, 0, 0, 0);
  EXPECT_THAT(drawing.calls(), ElementsAre("polyline 100,100 110,110 100,120 w3 dashes 6-6",
                                           "polyline 0,0 0,0 0,0 w1", "polyline 99,98 109,108 w1 dashes 18-6",
                                           "polyline 109,108 99,118 w1 dashes 18-6", "polyline 100,100 w1"));
}

TEST(CToolsDrawing, printedWidths) {
  struct PrintRow {
    double pixels_per_mm;
    int map_mode, width, style;
    const char *pen;
  };
  // With 10 (100) pixels per millimetre a unit of MM_LOMETRIC (MM_HIMETRIC) is a pixel.
  const PrintRow rows[] = {
      {23.62, MM_TEXT, 1, 0, " w2"},
      {23.62, MM_TEXT, 3, 0, " w6"},
      {10, MM_LOMETRIC, 5, 104, " w5 dashes 30-10"},
      {10, MM_LOMETRIC, 20 << 16 | 2, 102, " w20"},
      {100, MM_HIMETRIC, 5, 103, " w50 dashes 100-100"},
  };
  for (const PrintRow &row : rows) {
    Drawing drawing(row.pixels_per_mm, row.map_mode);
    CTools::Draw_Line(&drawing.dc, 0, 0, 100, 0, row.width, red, row.style, 0);
    EXPECT_THAT(drawing.calls(), ElementsAre(testing::EndsWith(row.pen))) << row.width;
  }
}

TEST(CToolsDrawing, printMagnification) {
  Drawing drawing(10, MM_TEXT);  // 2000 x 2800 pixels
  const std::pair<CSize, double> rows[] = {
      {{1000, 1000}, 2.0}, {{100, 2000}, 1.4}, {{1000, 1400}, 2.0}, {{0, 1400}, 2.0}, {{0, 0}, 0.0}};
  for (const auto &[extent, mag] : rows)
    EXPECT_EQ(CTools::GetPrintMag(&drawing.dc, extent), mag) << extent.cx;
}

TEST(CToolsDrawing, measuresAndKeepsFonts) {
  Drawing drawing;
  CDC *dc = &drawing.dc;
  CFont selected;
  selected.CreateFontIndirect(&small_font);
  dc->SelectObject(&selected);
  CTools::TextMake(dc, 0, 0, "A", 0, 700, 1, 0, red, 1, 0, 0, 0);
  EXPECT_EQ(CTools::Rect_Text(dc, {0, 0, 90, 30}, 2, org, "ABC", 10, red, DT_RIGHT, 400, 0), 30);
  EXPECT_THAT(drawing.calls(), ElementsAre("text 0,0 'A' Times New Roman 12 400 q2",
                                           "text 150,0 'ABC' gothic 20 400 q2 clipped"));
}

TEST(CToolsDrawing, leavesTheContextAsFound) {
  for (const support::drawing::Primitive &primitive : support::drawing::every_primitive) {
    Drawing drawing;
    support::drawing::expect_context_left_as_found(drawing.dc, primitive);
    EXPECT_GT(drawing.device.size(), 0U) << primitive.call;
  }
}

TEST(CToolsDrawing, survivesAnyArguments) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  for (const double mag : {0.0, -1.0, 1e-300, 1e300, -infinite, infinite, std::nan("")})
    for (const support::drawing::Primitive &primitive : support::drawing::every_primitive) {
      Drawing drawing;
      CDC without_device;
      for (CDC *dc : {&drawing.dc, &without_device, static_cast<CDC *>(nullptr)}) primitive.draw(dc, mag);
    }

  Drawing drawing;
  CDC *dc = &drawing.dc;
  CTools::TextMake(dc, 0, 0, nullptr, 30, 400, 9, 0, red, 1, 0, 0, 0);
  CTools::TextMakeOut(dc, 0, 0, nullptr, 30, 400, 9, 0, red, 1);
  CTools::Rect_Text(dc, box, 1, org, nullptr, 15, red, 0, 400, 0);
  CTools::Rect_Text_LF(dc, box, 1, org, nullptr, small_font, red, 0);
  CTools::Line_Pile(dc, 0, 0, org, org, nullptr, org, org, red, 1, org, 0, 1, 1, 0, 0, 0);
  EXPECT_EQ(drawing.device.size(), 0U);
  constexpr int most = std::numeric_limits<int>::max(), least = std::numeric_limits<int>::min();
  CTools::Draw_Line(dc, least, least, most, most, most, red, 1, 1);
  CTools::Draw_Line2(dc, 0, 0, 9, 9, 5, red, -7);
  CTools::Draw_Circle(dc, least, most, most, least, most, red, 1, 1);
  CTools::Spot2(dc, {most, least}, 1, {least, most}, -32768, red, 1);
  CTools::Parallel_Line(dc, CPoint(least, most), CPoint(most, least), &at_p, {least, least, most, most}, most,
                        least, red, nullptr, 1, 2, 0, 77, 0, 0);
}

}  // namespace
