#pragma once
// Every drawing primitive once, for laws that all of them keep. With magnification 1 each paints something
// inside the first 200 x 200 pixels of a screen; it must survive any other magnification, and a null context.

#include <gtest/gtest.h>

#include "tool/api/CTools.h"
#include "tool/framework/gdi/handle_table.h"

/// A call of CTools on `dc`, as text and as a function.
#define DRAWING_CALL(...) #__VA_ARGS__, [](CDC * dc, [[maybe_unused]] double mag) { CTools::__VA_ARGS__; }

namespace support::drawing {

struct Primitive {
  const char *call;
  void (*draw)(CDC *dc, double mag);
  bool keeps_text_color = true;
};

constexpr COLORREF red = RGB(255, 0, 0), green = RGB(0, 255, 0);
constexpr LOGFONTA small_font{12, 0, 0, 0, 400, 0, 0, 0, 128, 0, 0, 2, 0, "Times New Roman"};
inline int tooth[50][2] = {{0, 0}, {8, 10}, {-4, 25}, {0, 40}};
inline tagPOINT curve[] = {{20, 30}, {120, 40}, {110, 150}, {60, 160}};
inline tagDPOINT at_a{20.5, 30.5}, at_b{120.5, 150.5}, at_p{60.5, 90.5};
constexpr CPoint org, from(20, 30), to(120, 150);
constexpr RECT box{20, 30, 120, 150};

// clang-format off
inline const Primitive every_primitive[] = {
    {DRAWING_CALL(Draw_Line(dc, 20, 30, 120, 150, 3, red, 1, 0))},
    {DRAWING_CALL(Draw_Line2(dc, 20, 30, 120, 150, 3, red, 1))},
    {DRAWING_CALL(Draw_Line_Image(dc, 20, 30, 120, 150, 1, red, 104, 0))},
    {DRAWING_CALL(Line_MakeH(dc ? dc->m_hDC : nullptr, 20, 30, 120, 150, 3, red, 2))},
    {DRAWING_CALL(Line_Make2(dc, from, to, mag, org, 3, red, 1, 1))},
    {DRAWING_CALL(Line_Make2_Image(dc, from, to, mag, org, 1, red, 0, 1, 1600, 0))},
    {DRAWING_CALL(Line_Maked(dc, &at_a, &at_b, mag, org, 2, red, 0))},
    {DRAWING_CALL(Draw_LineF(dc, org, mag, from, to, 2, red, 0))},
    {DRAWING_CALL(Draw_LineF(dc, 20, 30, 120, 150, mag, 2, red, 0))},
    {DRAWING_CALL(P_Line(dc, 5, -200, mag, mag, 20, 30, 120, 150, 2, red, 0))},
    {DRAWING_CALL(DrawArrowLine(dc, from, to, 20 * mag, 3, mag, org, 2, red, 0))},
    {DRAWING_CALL(Area_Make(dc, 20, 30, 120, 150, 2, red, 0))},
    {DRAWING_CALL(Area_Make(dc, box, 2, red, 0))},
    {DRAWING_CALL(Area_MakeF(dc, 20, 30, 120, 150, mag, 1, red, 2))},
    {DRAWING_CALL(DrawRect(dc, box, mag, 1, red, 2))},
    {DRAWING_CALL(P_Area(dc, 5, -200, mag, mag, 20, 30, 120, 150, 2, red, 0))},
    {DRAWING_CALL(Frame_Make(dc, box, 3, red, 0))},
    {DRAWING_CALL(Rect_Make(dc, box, 2, red, green))},
    {DRAWING_CALL(Rect_Make(dc, box, mag, org, 2, red, 0, 1))},
    {DRAWING_CALL(Rect_Make(dc, {20, 30, 120, 30}, mag, org, 2, red, 0, 1))},
    {DRAWING_CALL(Rect_MakeEx(dc, box, mag, org, 10, 2, red, 0, 1, green))},
    {DRAWING_CALL(Rect_MakeEx(dc, box, mag, org, 10, 2, red, 0, 0, green))},
    {DRAWING_CALL(Box_MakeH(dc ? dc->m_hDC : nullptr, 20, 30, 120, 150, 2, red, green))},
    {DRAWING_CALL(DrawRect(dc, 60, 60, green, red))},
    {DRAWING_CALL(Ellipse(dc, 20, 30, 120, 150, 2, red, green, 0, 0))},
    {DRAWING_CALL(EllipseF(dc, 20, 30, 120, 150, mag, 3, red, 1))},
    {DRAWING_CALL(Arc_MakeF(dc, 20, 30, 120, 150, 120, 90, 20, 90, mag, 2, red, 0))},
    {DRAWING_CALL(Draw_Circle(dc, 70, 90, 110, 90, 3, red, 1, 0))},
    {DRAWING_CALL(Spot(dc, org, mag, from, 4, red, 0))},
    {DRAWING_CALL(Spot2(dc, org, mag, from, 4, red, 0))},
    {DRAWING_CALL(Parallel_Line(dc, &at_a, &at_b, &at_p, box, 0, 0, red, nullptr, 3, mag, 1, 1, 0, 0))},
    {DRAWING_CALL(Parallel_Line_Image(dc, from, to, &at_p, box, 0, 0, red, nullptr, 1, mag, 1, 104, 0, 0))},
    {DRAWING_CALL(Vartical_Line(dc, from, to, &at_p, box, 0, 0, red, nullptr, 3, mag, 1, 1))},
    {DRAWING_CALL(Vartical_Line_Image(dc, &at_a, &at_b, &at_p, box, 0, 0, red, nullptr, 1, mag, mag, 0))},
    {DRAWING_CALL(Line_Pile(dc, 0, 0, &at_a, &at_b, tooth, org, org, red, mag, org, mag, mag, 3, 1, 0, 0))},
    {DRAWING_CALL(Line_Pile_Image(dc, 0, 200, from, &at_b, tooth, org, org, red, mag, org, 0, mag, 2, 0, 1, 1,
                                  1600, 0))},
    {DRAWING_CALL(Draw_SPLine(dc, org, mag, curve, 4, red, 1, 1, 3, 0, 10))},
    {DRAWING_CALL(Draw_SPLine(dc, org, mag, curve, 1, red, 0, 0, 3, 0, 10))},
    {DRAWING_CALL(Draw_SPLine_Image(dc, org, mag, curve, 4, red, 104, 0, 3, 0, 10, 1600, 0))},
    {DRAWING_CALL(TextMake(dc, 20, 30, "SNA", 20, 400, 9, 1, red, 2, 0, 1, 1)), false},
    {DRAWING_CALL(TextMakeOut(dc, 20, 30, "SNA", 20, 400, 0, 1, red, 2)), false},
    {DRAWING_CALL(Draw_Text(dc, org, mag, from, 3, "SNA", 20, red, 400, 1, 0)), false},
    {DRAWING_CALL(P_Text(dc, 5, -200, mag, mag, 20, 30, "SNA", 20, 400, 1, 0, red)), false},
    {DRAWING_CALL(Rect_Text(dc, box, mag, org, "SNA", 20, red, 0, 400, 0))},
    {DRAWING_CALL(Rect_Text(dc, box, mag, org, "SNA", small_font, red, 0x25))},
    {DRAWING_CALL(Rect_Text_LF(dc, box, mag, org, "SNA", small_font, red, 0x25))},
};
// clang-format on

inline void expect_context_left_as_found(CDC &dc, const Primitive &primitive) {
  SCOPED_TRACE(primitive.call);
  constexpr COLORREF text_color = RGB(7, 8, 9);
  CPen pen(PS_DASH, 1, RGB(1, 2, 3));
  CBrush brush(RGB(4, 5, 6));
  CFont font;
  font.CreateFontIndirect(&small_font);
  dc.SelectObject(&pen);
  dc.SelectObject(&brush);
  dc.SelectObject(&font);
  dc.SetBkMode(OPAQUE);
  dc.SetROP2(R2_MASKPEN);
  dc.SetTextColor(text_color);
  const std::size_t handles = framework::HandleTable::instance().size();
  primitive.draw(&dc, 1.0);
  EXPECT_EQ(dc.GetCurrentPen(), &pen);
  EXPECT_EQ(dc.GetCurrentBrush(), &brush);
  EXPECT_EQ(dc.GetCurrentFont(), &font);
  EXPECT_EQ(dc.GetBkMode(), OPAQUE);
  EXPECT_EQ(dc.GetROP2(), R2_MASKPEN);
  EXPECT_EQ(dc.GetTextColor() == text_color, primitive.keeps_text_color);
  EXPECT_EQ(framework::HandleTable::instance().size(), handles) << "objects left behind";
}

}  // namespace support::drawing
