#include "tool/tracing/display_mapping.h"

#include "tool/geometry/distances.h"
#include "tool/geometry/transforms.h"
#include "tool/geometry/truncation.h"
#include "tool/tracing/text.h"

namespace tracing {

namespace {

constexpr int gothic_font = 1;

}  // namespace

bool life_size(const CDC &dc, bool wanted, bool overruled) {
  return wanted && !overruled && dc.IsPrinting();
}

CPoint device_point(const DisplayMapping &mapping, const LateralRecord &record, CPointD p) {
  using geometry::integer_difference;
  const CPointD porion(record.porion());
  const int whole_degrees = framework::to_int(mapping.rotation);
  const CPointD turned = geometry::rotated(porion, p, whole_degrees, 1.0);
  if (!mapping.life_size) {
    const CPoint zoomed = geometry::truncate(turned * mapping.factor * mapping.mag);
    return {integer_difference(zoomed.x, mapping.origin.x), integer_difference(zoomed.y, mapping.origin.y)};
  }
  const double distance_mm = geometry::length(porion, turned, record.scale());
  const CPointD life = geometry::turned_offset(porion, turned, porion, distance_mm, 0.0, 1.0);
  const CPoint zoomed = geometry::truncate(life * mapping.mag);
  return {integer_difference(zoomed.x, mapping.origin.x), integer_difference(mapping.origin.y, zoomed.y)};
}

void draw_label(CDC &dc, const DisplayMapping &mapping, const LateralRecord &record, CPointD p,
                const Label &label) {
  const CPoint at = device_point(mapping, record, p);
  const int top = mapping.life_size ? geometry::integer_sum(at.y, label.size)
                                    : geometry::integer_difference(at.y, label.size);
  draw_text(dc, {at.x, top}, label.text,
            {.height = label.size, .weight = label.size, .font_kind = gothic_font, .color = label.color});
}

}  // namespace tracing
