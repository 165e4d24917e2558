#include "apps/drawing/sheet.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "tool/framework/text/cp932.h"

namespace app {
namespace {

constexpr int roman_face = 9;  // font kind of TextMake
constexpr int gothic_face = 1;

bool is_ascii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The font that TextMake makes, for measuring.
void select_font(CFont &font, std::string_view utf8, int height, bool bold) {
  LOGFONTA wanted{};
  wanted.lfHeight = height;
  wanted.lfWeight = bold ? FW_BOLD : FW_NORMAL;
  wanted.lfCharSet = SHIFTJIS_CHARSET;
  wanted.lfQuality = NONANTIALIASED_QUALITY;
  const std::string face = is_ascii(utf8) ? "Times New Roman" : framework::cp932_for_display("ＭＳ ゴシック");
  face.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  font.CreateFontIndirect(&wanted);
}

}  // namespace

int Sheet::pixels(double mm) const {
  return static_cast<int>(std::lround(mm * pixels_per_mm_));
}

CRect Sheet::at(const SheetBox &box) const {
  return {pixels(box.left), pixels(box.top), pixels(box.right), pixels(box.bottom)};
}

void Sheet::line(SheetPoint from, SheetPoint to, int tenths, COLORREF color, int style) const {
  const CPoint a = at(from);
  const CPoint b = at(to);
  CTools::Draw_Line(&context_, a.x, a.y, b.x, b.y, tenths, color, style, 0);
}

void Sheet::fill(const SheetBox &box, COLORREF color) const {
  CBrush brush(color);
  const CRect rect = at(box);
  context_.FillRect(&rect, &brush);
}

double Sheet::text_width(std::string_view utf8, const TextLook &look) const {
  CFont font;
  select_font(font, utf8, pixels(look.height), look.bold);
  CFont *before = context_.SelectObject(&font);
  const std::string text = framework::cp932_for_display(utf8);
  const CSize extent = context_.GetTextExtent(text.data(), static_cast<int>(text.size()));
  context_.SelectObject(before);
  return extent.cx / pixels_per_mm_;
}

void Sheet::text(SheetPoint place, std::string_view utf8, const TextLook &look) const {
  if (look.side != TextSide::left)
    place.x -= text_width(utf8, look) * (look.side == TextSide::middle ? 0.5 : 1.0);
  const CPoint p = at(place);
  const std::string text = framework::cp932_for_display(utf8);
  CTools::TextMake(&context_, p.x, p.y, text.c_str(), static_cast<unsigned>(pixels(look.height)),
                   look.bold ? FW_BOLD : FW_NORMAL, is_ascii(utf8) ? roman_face : gothic_face, 0, look.color,
                   TRANSPARENT, 0, 0, 0);
}

}  // namespace app
