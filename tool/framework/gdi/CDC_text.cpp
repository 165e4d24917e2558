// Text of a context.

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

#include "tool/framework/gdi/context_calls.h"
#include "tool/framework/gdi/text_layout.h"
#include "tool/framework/text/cp932.h"

using framework::DeviceContext;
using framework::Mapping;
using framework::Paint;
using framework::Region;
using framework::TextLine;

namespace {

/// At most `count` bytes up to the terminator; negative: all of them.
std::string_view text_of(const char *text, int count) {
  if (!text) return {};
  return {text, count < 0 ? std::strlen(text) : strnlen(text, static_cast<std::size_t>(count))};
}

/// A step in the direction of the writing, turned with it.
POINT turned(const LOGFONTA &font, int right, int down) {
  if (font.lfEscapement == 0) return {right, down};
  const double angle = font.lfEscapement / 1800.0 * std::numbers::pi;
  const double c = std::cos(angle), s = std::sin(angle);
  return {framework::round_within(right * c + down * s, framework::max_device_coordinate),
          framework::round_within(down * c - right * s, framework::max_device_coordinate)};
}

POINT sum(POINT a, POINT b) {
  return {a.x + b.x, a.y + b.y};
}

/// The cells of a text.
Region cells(POINT top_left, const LOGFONTA &font, SIZE extent) {
  if (font.lfEscapement == 0)
    return Region::rectangle({top_left.x, top_left.y, top_left.x + extent.cx, top_left.y + extent.cy});
  const POINT corners[] = {top_left, sum(top_left, turned(font, extent.cx, 0)),
                           sum(top_left, turned(font, extent.cx, extent.cy)),
                           sum(top_left, turned(font, 0, extent.cy))};
  return Region::polygon(corners, framework::FillRule::alternate);
}

/// Paints text in device pixels, under the context's raster operation and a clip.
class TextPainter {
 public:
  TextPainter(DeviceContext &dc, const Region *clip) : dc_(dc), paint_(dc.paint()) { paint_.clip = clip; }

  void paint(POINT top_left, std::string_view text, SIZE extent) const {
    if (text.empty()) return;
    const LOGFONTA &font = dc_.device_font();
    if (dc_.state().background_mode == OPAQUE)
      fill(cells(top_left, font, extent), dc_.state().background_color, paint_.rop);
    dc_.device()->text({top_left, text, &font, dc_.state().text_color & 0xFFFFFF}, paint_);
  }

  void fill(const Region &area, COLORREF color, int rop) const {
    Paint paint = dc_.paint_with(color);
    paint.clip = paint_.clip;
    paint.rop = rop;
    dc_.device()->fill_region(area, paint);
  }

  void underline(POINT at, int width, const TEXTMETRICA &metrics) const {
    const int thickness = std::max<int>(metrics.tmHeight / 16, 1);
    const LONG y = at.y + metrics.tmAscent + thickness;
    fill(Region::rectangle({at.x, y, at.x + width, y + thickness}), dc_.state().text_color, paint_.rop);
  }

 private:
  DeviceContext &dc_;
  Paint paint_;
};

/// The clip of a context within a box.
Region clip_within(const DeviceContext &dc, const RECT &box) {
  const Region inside = Region::rectangle(box);
  return dc.state().clip ? Region::combined(*dc.state().clip, inside, RGN_AND) : inside;
}

/// Top left corner of a text whose reference point is `at`.
POINT aligned(DeviceContext &dc, POINT at, SIZE extent) {
  const UINT horizontal = dc.state().text_align & TA_CENTER, vertical = dc.state().text_align & TA_BASELINE;
  const int right = horizontal == TA_CENTER ? extent.cx / 2 : horizontal == TA_RIGHT ? extent.cx : 0;
  const int down = vertical == TA_BASELINE ? dc.text_metrics().tmAscent
                   : vertical == TA_BOTTOM ? extent.cy
                                           : 0;
  return sum(at, turned(dc.device_font(), -right, -down));
}

void paint_spaced(DeviceContext &dc, const TextPainter &painter, POINT at, std::string_view text,
                  const int *advances) {
  double reached = 0;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t end = framework::next_character(text, i);
    const std::string_view character = text.substr(i, end - i);
    const int x = framework::round_within(reached, framework::max_device_coordinate);
    painter.paint(sum(at, turned(dc.device_font(), x, 0)), character, dc.text_extent(character));
    for (; i < end; ++i)
      reached += std::copysign(dc.state().mapping.width_to_device(advances[i]), advances[i]);
  }
}

/// Where DrawText puts its lines.
struct TextBlock {
  std::vector<TextLine> lines;
  TEXTMETRICA metrics{};
  int width = 0;
  int height = 0;
};

TextBlock lay_out(DeviceContext &dc, std::string_view text, UINT format, int width) {
  TextBlock block;
  block.metrics = dc.text_metrics();
  const framework::TextMeasures measures{[&dc](std::string_view part) { return dc.text_extent(part).cx; },
                                         std::max<int>(8 * block.metrics.tmAveCharWidth, 1)};
  block.lines = framework::lay_out_text(text, format, width, measures);
  for (const TextLine &line : block.lines) block.width = std::max(block.width, line.width);
  block.height = framework::round_within(static_cast<double>(block.lines.size()) * block.metrics.tmHeight,
                                         framework::max_device_coordinate);
  return block;
}

/// Distance of the first line from the top of the box; other places than the top are for single lines.
int first_line_y(const TextBlock &block, UINT format, int box_height) {
  if (!(format & DT_SINGLELINE)) return 0;
  if (format & DT_BOTTOM) return box_height - block.height;
  return format & DT_VCENTER ? (box_height - block.height) / 2 : 0;
}

void paint_block(const TextBlock &block, const TextPainter &painter, POINT corner, int box_width,
                 UINT format) {
  POINT at = corner;
  for (const TextLine &line : block.lines) {
    const int spare = box_width - line.width;
    at.x = corner.x + (format & DT_RIGHT ? spare : format & DT_CENTER ? spare / 2 : 0);
    for (const framework::TextPiece &piece : line.pieces)
      painter.paint({at.x + piece.x, at.y}, piece.text, {piece.width, block.metrics.tmHeight});
    if (line.underline_width > 0)
      painter.underline({at.x + line.underline_x, at.y}, line.underline_width, block.metrics);
    at.y += block.metrics.tmHeight;
  }
}

}  // namespace

// One line
// ------------------------------------------------------------------------------------------------------------
BOOL CDC::TextOut(int x, int y, const char *text, int count) {
  return count < 0 ? FALSE : ExtTextOut(x, y, 0, nullptr, text, static_cast<UINT>(count));
}

BOOL CDC::TextOut(int x, int y, const CString &text) {
  return ExtTextOut(x, y, 0, nullptr, text);
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, const RECT *rect, const char *text, UINT count,
                     const int *advances) {
  DeviceContext &dc = context();
  if (!dc.device()) return TRUE;
  const Mapping &mapping = dc.state().mapping;
  const RECT box = rect ? mapping.box_to_device(*rect) : RECT{0, 0, 0, 0};
  const Region clip = rect && options & ETO_CLIPPED ? clip_within(dc, box) : Region();
  const TextPainter painter(dc, rect && options & ETO_CLIPPED ? &clip : dc.state().clip.get());
  if (rect && options & ETO_OPAQUE && box.left < box.right && box.top < box.bottom)
    painter.fill(Region::rectangle(box), dc.state().background_color, R2_COPYPEN);
  std::string buffer;
  const std::string_view line =
      framework::without_controls(text_of(text, static_cast<int>(std::min<UINT>(count, 0x7FFFFFFF))), buffer);
  const SIZE extent = dc.text_extent(line);
  const POINT corner = aligned(dc, mapping.to_device({x, y}), extent);
  if (advances)
    paint_spaced(dc, painter, corner, line, advances);
  else
    painter.paint(corner, line, extent);
  return TRUE;
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, const RECT *rect, const CString &text, const int *advances) {
  return ExtTextOut(x, y, options, rect, text, static_cast<UINT>(text.GetLength()), advances);
}

// In a rectangle
// ------------------------------------------------------------------------------------------------------------
int CDC::DrawText(const char *text, int count, RECT *rect, UINT format) {
  if (!text || !rect) return 0;
  DeviceContext &dc = context();
  const Mapping &mapping = dc.state().mapping;
  const POINT corner = mapping.to_device({rect->left, rect->top});
  const POINT opposite = mapping.to_device({rect->right, rect->bottom});
  const TextBlock block = lay_out(dc, text_of(text, count), format, opposite.x - corner.x);
  if (format & DT_CALCRECT) {
    const POINT end = mapping.to_logical({corner.x + block.width, corner.y + block.height});
    rect->right = end.x;
    rect->bottom = end.y;
    return mapping.height_to_logical(block.height);
  }
  const int y = first_line_y(block, format, opposite.y - corner.y);
  if (dc.device()) {
    const Region clip = format & DT_NOCLIP ? Region() : clip_within(dc, mapping.box_to_device(*rect));
    const TextPainter painter(dc, format & DT_NOCLIP ? dc.state().clip.get() : &clip);
    paint_block(block, painter, {corner.x, corner.y + y}, opposite.x - corner.x, format);
  }
  return mapping.height_to_logical(y + block.height);
}

int CDC::DrawText(const CString &text, RECT *rect, UINT format) {
  return DrawText(text, text.GetLength(), rect, format);
}

// Measures
// ------------------------------------------------------------------------------------------------------------
CSize CDC::GetTextExtent(const char *text, int count) const {
  DeviceContext &dc = attributes();
  std::string buffer;
  const SIZE extent = dc.text_extent(framework::without_controls(text_of(text, std::max(count, 0)), buffer));
  const Mapping &mapping = dc.state().mapping;
  return {mapping.width_to_logical(extent.cx), mapping.height_to_logical(extent.cy)};
}

CSize CDC::GetTextExtent(const CString &text) const {
  return GetTextExtent(text, text.GetLength());
}

BOOL CDC::GetTextMetrics(TEXTMETRICA *metrics) const {
  if (!metrics) return FALSE;
  DeviceContext &dc = attributes();
  const Mapping &mapping = dc.state().mapping;
  *metrics = dc.text_metrics();
  for (LONG *height : {&metrics->tmHeight, &metrics->tmAscent, &metrics->tmDescent,
                       &metrics->tmInternalLeading, &metrics->tmExternalLeading})
    *height = mapping.height_to_logical(*height);
  for (LONG *width : {&metrics->tmAveCharWidth, &metrics->tmMaxCharWidth})
    *width = mapping.width_to_logical(*width);
  return TRUE;
}
