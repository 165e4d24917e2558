// The recorded calls in words.

#include <cstdio>

#include "tool/framework/gdi/recording_device.h"
#include "tool/framework/text/cp932.h"

namespace framework {
namespace {

using Kind = RecordingDevice::Kind;
using Call = RecordingDevice::Call;

constexpr const char *kind_names[] = {
    "polyline",   "polygon",        "rectangle",  "rounded_rectangle", "ellipse",
    "arc",        "fill_region",    "text",       "flood_fill",        "set_pixel",
    "put_pixels", "begin_document", "begin_page", "end_page",          "end_document",
};
constexpr const char *rop_names[] = {
    "?",    "black",   "not merge", "mask not",  "not copy", "mask pen not",  "not",   "xor",   "not mask",
    "mask", "not xor", "nop",       "merge not", "copy",     "merge pen not", "merge", "white",
};
constexpr const char *hatch_names[] = {"horizontal", "vertical", "fdiagonal",
                                       "bdiagonal",  "cross",    "diagcross"};
constexpr const char *region_names[] = {"empty", "rectangle", "polygon", "ellipse", "rows"};

std::string color_text(COLORREF color) {
  char text[8];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", GetRValue(color), GetGValue(color), GetBValue(color));
  return text;
}

std::string point_text(POINT point) {
  return "(" + std::to_string(point.x) + "," + std::to_string(point.y) + ")";
}

std::string pen_text(const DevicePen &pen) {
  if (!pen.visible) return " | pen none";
  std::string text = " | pen ";
  if (pen.dash_count == 0) text += "solid";
  for (int i = 0; i < pen.dash_count; ++i)
    text += (i > 0 ? "," : "") + std::to_string(pen.dashes[static_cast<std::size_t>(i)]);
  text += " " + std::to_string(pen.width) + " " + color_text(pen.color);
  if (pen.width > 1) {
    text += pen.cap == LineCap::square ? " square" : pen.cap == LineCap::flat ? " flat" : " round";
    text += pen.join == LineJoin::bevel ? " bevel" : pen.join == LineJoin::miter ? " miter" : "";
  }
  if (pen.inside_frame) text += " inside";
  if (pen.gap_color) text += " gap " + color_text(*pen.gap_color);
  return text;
}

std::string brush_text(const DeviceBrush &brush) {
  if (brush.kind == DeviceBrush::Kind::none) return " | brush none";
  if (brush.kind == DeviceBrush::Kind::solid) return " | brush " + color_text(brush.color);
  const bool known = brush.hatch >= HS_HORIZONTAL && brush.hatch <= HS_DIAGCROSS;
  std::string text =
      std::string(" | brush ") + (known ? hatch_names[brush.hatch] : "?") + " " + color_text(brush.color);
  if (brush.gap_color) text += " gap " + color_text(*brush.gap_color);
  return text;
}

std::string font_text(const LOGFONTA &font) {
  std::string text = " | font \"" + utf8_for_display(font.lfFaceName) + "\" " + std::to_string(font.lfHeight);
  text += " weight " + std::to_string(font.lfWeight);
  if (font.lfWidth != 0) text += " width " + std::to_string(font.lfWidth);
  if (font.lfItalic) text += " italic";
  if (font.lfUnderline) text += " underline";
  if (font.lfStrikeOut) text += " strikeout";
  if (font.lfEscapement != 0) text += " turned " + std::to_string(font.lfEscapement);
  return text;
}

std::string transfer_text(DWORD operation) {
  switch (operation) {
    case SRCCOPY:
      return " | copy";
    case SRCPAINT:
      return " | paint";
    case SRCAND:
      return " | and";
    case SRCINVERT:
      return " | invert";
    default:
      break;
  }
  char text[16];
  std::snprintf(text, sizeof text, " | 0x%08X", static_cast<unsigned>(operation));
  return text;
}

/// What belongs to one kind of call, before pen and brush.
std::string details(const Call &call) {
  switch (call.kind) {
    case Kind::polygon:
      return call.operation == WINDING ? " | winding" : "";
    case Kind::fill_region:
      return std::string(" | ") + region_names[call.operation];
    case Kind::text:
      return " \"" + utf8_for_display(call.text) + "\"" + font_text(*call.font) + " | " +
             color_text(call.color);
    case Kind::flood_fill:
      return (call.operation == FLOODFILLSURFACE ? " | surface " : " | border ") + color_text(call.color);
    case Kind::set_pixel:
      return " | " + color_text(call.color);
    case Kind::put_pixels:
      return transfer_text(call.operation);
    case Kind::begin_document:
      return " \"" + utf8_for_display(call.text) + "\"";
    default:
      return "";
  }
}

bool has_pen(Kind kind) {
  return kind <= Kind::arc;
}
bool has_brush(Kind kind) {
  return kind != Kind::polyline && kind != Kind::arc &&
         (kind <= Kind::fill_region || kind == Kind::flood_fill);
}

}  // namespace

std::string RecordingDevice::line(std::size_t index) const {
  const Call call = (*this)[index];
  std::string text = kind_names[static_cast<std::size_t>(call.kind)];
  for (const POINT &point : call.points) text += " " + point_text(point);
  text += details(call);
  if (call.paint) {
    if (has_pen(call.kind)) text += pen_text(call.paint->pen);
    if (has_brush(call.kind)) text += brush_text(call.paint->brush);
    if (has_pen(call.kind) || has_brush(call.kind) || call.kind == Kind::text)
      text += std::string(" | rop ") + rop_names[call.paint->rop];
  }
  if (call.clip) {
    const RECT &box = call.clip->bounds();
    text += " | clip " + point_text({box.left, box.top}) + "-" + point_text({box.right, box.bottom});
  }
  if (call.ignored) text += " | ignored";
  return text;
}

std::vector<std::string> RecordingDevice::lines() const {
  std::vector<std::string> all;
  for (std::size_t i = 0; i < size(); ++i) all.push_back(line(i));
  return all;
}

}  // namespace framework
