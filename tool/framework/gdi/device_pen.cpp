#include "tool/framework/gdi/device_pen.h"

#include <algorithm>
#include <cstddef>

namespace framework {
namespace {

struct Pattern {
  int style;
  int count;
  std::array<int, 6> lengths;
};
// Pixels.
constexpr Pattern cosmetic_patterns[] = {
    {PS_DASH, 2, {18, 6}},
    {PS_DOT, 2, {3, 3}},
    {PS_DASHDOT, 4, {9, 6, 3, 6}},
    {PS_DASHDOTDOT, 6, {9, 3, 3, 3, 3, 3}},
};
// Widths.
constexpr Pattern geometric_patterns[] = {
    {PS_DASH, 2, {3, 1}},
    {PS_DOT, 2, {1, 1}},
    {PS_DASHDOT, 4, {3, 1, 1, 1}},
    {PS_DASHDOTDOT, 6, {3, 1, 1, 1, 1, 1}},
};

void use_pattern(DevicePen &pen, std::span<const Pattern> patterns, int style, int factor) {
  const auto found = std::ranges::find(patterns, style, &Pattern::style);
  if (found == patterns.end()) return;
  pen.dash_count = found->count;
  for (std::size_t i = 0; i < found->lengths.size(); ++i)
    pen.dashes[i] = std::min<int>(found->lengths[i] * factor, max_device_coordinate);
}

/// A cap makes each dash longer by the width, which would close the gaps of the system's patterns: dashes
/// give up that much, and gaps gain it, so that what is seen has the pattern's lengths.
void make_room_for_caps(DevicePen &pen) {
  for (int i = 0; i + 1 < pen.dash_count; i += 2) {
    int &dash = pen.dashes[static_cast<std::size_t>(i)];
    int &gap = pen.dashes[static_cast<std::size_t>(i) + 1];
    const int shorter = std::max(dash - pen.width, 1);
    gap += dash - shorter;
    dash = shorter;
  }
}

/// An odd pattern is gone through twice, so that dashes and gaps change places; without room for that its
/// last entry is left out.
void use_lengths(DevicePen &pen, const PenData &data, const Mapping &mapping) {
  const int given = std::clamp(data.dash_count, 0, static_cast<int>(data.dashes.size()));
  if (given == 0 ||
      std::all_of(data.dashes.begin(), data.dashes.begin() + given, [](DWORD d) { return d == 0; }))
    return;
  const bool twice = given % 2 == 1 && 2 * given <= static_cast<int>(pen.dashes.size());
  pen.dash_count = twice ? 2 * given : given - given % 2;
  for (int i = 0; i < pen.dash_count; ++i) {
    const DWORD length = data.dashes[static_cast<std::size_t>(i % given)];
    const int pixels = mapping.width_to_device(length);
    pen.dashes[static_cast<std::size_t>(i)] = length > 0 ? std::max(pixels, 1) : 0;
  }
}

DevicePen geometric_pen(const PenData &data, const Mapping &mapping) {
  DevicePen pen;
  const int caps = data.style & PS_ENDCAP_MASK;
  const int joins = data.style & PS_JOIN_MASK;
  const int style = data.style & PS_STYLE_MASK;
  pen.cap = caps == PS_ENDCAP_SQUARE ? LineCap::square
            : caps == PS_ENDCAP_FLAT ? LineCap::flat
                                     : LineCap::round;
  pen.join = joins == PS_JOIN_BEVEL   ? LineJoin::bevel
             : joins == PS_JOIN_MITER ? LineJoin::miter
                                      : LineJoin::round;
  pen.width = std::max(mapping.width_to_device(data.width), 1);
  if (style == PS_USERSTYLE)
    use_lengths(pen, data, mapping);
  else
    use_pattern(pen, geometric_patterns, style, std::min(pen.width, max_device_coordinate / 4));
  if (style != PS_USERSTYLE && pen.width > 1 && pen.cap != LineCap::flat) make_room_for_caps(pen);
  return pen;
}

/// Pens of CreatePen and cosmetic ones. A width of at most one logical unit keeps its dashes; where the map
/// mode makes that several pixels, the dashes grow with it.
DevicePen standard_pen(const PenData &data, const Mapping &mapping, std::optional<COLORREF> gap) {
  DevicePen pen;
  const int style = data.style & PS_STYLE_MASK;
  const bool cosmetic = data.width >= -1 && data.width <= 1;
  pen.width = std::max(mapping.width_to_device(data.width), 1);
  if (!cosmetic) return pen;
  if (style == PS_USERSTYLE)
    use_lengths(pen, data, Mapping());
  else
    use_pattern(pen, cosmetic_patterns, style, std::min(pen.width, max_device_coordinate / 18));
  if (pen.dash_count > 0) pen.gap_color = gap;
  return pen;
}

}  // namespace

DevicePen device_pen(const PenData &data, const Mapping &mapping, std::optional<COLORREF> gap) {
  DevicePen pen = data.style & PS_GEOMETRIC ? geometric_pen(data, mapping) : standard_pen(data, mapping, gap);
  const int style = data.style & PS_STYLE_MASK;
  pen.color = data.color & 0xFFFFFF;
  pen.visible = style != PS_NULL;
  pen.inside_frame = style == PS_INSIDEFRAME && pen.width > 1;
  return pen;
}

DeviceBrush solid_brush(COLORREF color) {
  DeviceBrush brush;
  brush.color = color & 0xFFFFFF;
  return brush;
}

DeviceBrush device_brush(const BrushData &data, std::optional<COLORREF> gap) {
  DeviceBrush brush = solid_brush(data.lbColor);
  switch (data.lbStyle) {
    case BS_SOLID:
      brush.kind = DeviceBrush::Kind::solid;
      break;
    case BS_HATCHED:
      brush.kind = DeviceBrush::Kind::hatched;
      brush.hatch = static_cast<int>(data.lbHatch);
      brush.gap_color = gap;
      break;
    default:
      brush.kind = DeviceBrush::Kind::none;
  }
  return brush;
}

}  // namespace framework
