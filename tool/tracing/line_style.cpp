#include "tool/tracing/line_style.h"

#include <algorithm>

#include "tool/framework/text/numbers.h"

namespace tracing {

namespace {

constexpr int system_dash_style = PS_GEOMETRIC | PS_ENDCAP_SQUARE;
constexpr int own_dash_style = PS_GEOMETRIC | PS_ENDCAP_SQUARE | PS_USERSTYLE;

bool is_dashed(int style) {
  return style >= PS_DASH && style <= PS_DASHDOTDOT;
}

/// Tenths of a millimetre.
int print_width(const LineStyle &line) {
  const auto bits = static_cast<std::uint32_t>(line.width);
  return static_cast<int>(line.style == thick_solid ? bits >> 16 : bits & 0xFFFFU);
}

PenSpec pen_of(const LineStyle &line) {
  return {.style = line.style, .width = line.width, .color = line.color};
}

PenSpec geometric_pen(const LineStyle &line) {
  PenSpec pen = pen_of(line);
  pen.kind = PenSpec::Kind::system_dashes;
  pen.style |= system_dash_style;
  return pen;
}

PenSpec own_dash_pen(const LineStyle &line, int unit) {
  const auto u = static_cast<DWORD>(unit);
  PenSpec pen = pen_of(line);
  pen.kind = PenSpec::Kind::own_dashes;
  pen.style = own_dash_style;
  pen.dashes = {line.style == PS_DOT ? u : 3 * u, u, u, u, u, u};
  pen.dash_count = line.style == PS_DASHDOTDOT ? 6 : line.style == PS_DASHDOT ? 4 : 2;
  return pen;
}

}  // namespace

Medium Medium::of(const CDC &dc) {
  Medium medium;
  if (!dc.IsPrinting()) return medium;
  medium.printer = true;
  medium.map_mode = dc.GetMapMode();
  const int millimetres = dc.GetDeviceCaps(HORZSIZE);
  if (millimetres > 0) medium.pixels_per_mm = dc.GetDeviceCaps(HORZRES) / millimetres;
  return medium;
}

LineStyle resolved_code(const LineStyle &line) {
  switch (line.style) {
    case thin_solid:
      return {1, line.color, PS_SOLID};
    case thick_solid:
      return {2, line.color, PS_SOLID};
    case thin_dot:
      return {1, line.color, PS_DOT};
    case thin_dash:
      return {1, line.color, PS_DASH};
    case thin_dashdot:
      return {1, line.color, PS_DASHDOT};
    case thin_dashdotdot:
      return {1, line.color, PS_DASHDOTDOT};
    default:
      return line;
  }
}

LineStyle adapted(const LineStyle &line, const Medium &medium) {
  LineStyle result = resolved_code(line);
  if (!medium.printer) return result;
  const double millimetres = std::max(print_width(line) / 10.0, 0.1);
  switch (medium.map_mode) {
    case MM_TEXT:
      result.width = std::max(result.width, framework::to_int(millimetres * medium.pixels_per_mm));
      break;
    case MM_LOMETRIC:
      result.width = framework::to_int(millimetres * 10);
      break;
    case MM_HIMETRIC:
      result.width = framework::to_int(millimetres * 100);
      break;
    default:
      break;
  }
  return result;
}

int dash_unit(const Medium &medium) {
  if (!medium.printer) return 3;
  switch (medium.map_mode) {
    case MM_TEXT:
      return std::max(medium.pixels_per_mm, 1);
    case MM_LOMETRIC:
      return 10;
    case MM_HIMETRIC:
      return 100;
    default:
      return 3;
  }
}

PenSpec standard_pen(const LineStyle &line) {
  return pen_of(resolved_code(line));
}

PenSpec reference_pen(const LineStyle &line, const Medium &medium) {
  const LineStyle fitted = adapted(line, medium);
  if (fitted.width >= 1 && is_dashed(fitted.style)) return own_dash_pen(fitted, dash_unit(medium));
  return pen_of(fitted);
}

PenSpec system_dash_pen(const LineStyle &line) {
  const LineStyle resolved = resolved_code(line);
  return resolved.width >= 2 && is_dashed(resolved.style) ? geometric_pen(resolved) : pen_of(resolved);
}

PenSpec system_style_pen(const LineStyle &line) {
  const LineStyle resolved = resolved_code(line);
  return resolved.width >= 2 && resolved.style != PS_SOLID ? geometric_pen(resolved) : pen_of(resolved);
}

PenSpec image_pen(const LineStyle &line, const Medium &medium) {
  if (line.style != thick_solid) return standard_pen(line);
  int width = line.width;
  if (medium.printer) {
    const int text_width = std::max(framework::to_int(medium.pixels_per_mm * 0.6), 2);
    width = medium.map_mode == MM_TEXT       ? text_width
            : medium.map_mode == MM_LOMETRIC ? 6
            : medium.map_mode == MM_HIMETRIC ? 60
                                             : 2;
  }
  return {.style = PS_SOLID, .width = width, .color = line.color};
}

PenSpec outline_pen(const LineStyle &line, const Medium &medium) {
  return system_dash_pen(adapted(line, medium));
}

}  // namespace tracing
