#include "tool/tracing/teeth.h"

#include <cmath>
#include <cstring>

#include "tool/geometry/angles.h"
#include "tool/geometry/truncation.h"
#include "tool/tracing/drawing_scope.h"
#include "tool/tracing/spline_drawing.h"

namespace tracing {

namespace {

bool is_incisor(Tooth tooth) {
  return tooth == Tooth::upper_incisor || tooth == Tooth::lower_incisor;
}

int code_of(Tooth tooth) {
  switch (tooth) {
    case Tooth::upper_incisor:
      return trace_code::upper_incisor;
    case Tooth::lower_incisor:
      return trace_code::lower_incisor;
    case Tooth::upper_molar:
      return trace_code::upper_molar;
    case Tooth::lower_molar:
      return trace_code::lower_molar;
  }
  return -1;
}

FittedTooth fitted(Tooth tooth, const ToothPoints &at, const TemplateChoice &choice, const MolarFit &molar) {
  if (choice.type < 0 || choice.type >= tooth_types) return {};
  const auto type = static_cast<std::size_t>(choice.type);
  const AdjustmentRecord adjust(choice.adjust);
  switch (tooth) {
    case Tooth::upper_incisor:
      return fitted_incisor(upper_incisor_templates[type], at.a, at.b, adjust.upper_incisor(),
                            choice.mirrored);
    case Tooth::lower_incisor:
      return fitted_incisor(lower_incisor_templates[type], at.a, at.b, adjust.lower_incisor(),
                            choice.mirrored);
    case Tooth::upper_molar:
      return fitted_upper_molar(upper_molar_templates[type], at, molar);
    case Tooth::lower_molar:
      return fitted_lower_molar(lower_molar_templates[type], at, molar);
  }
  return {};
}

template <typename Draw>
void for_each_trace_of(const void *traces, Tooth tooth, Draw draw) {
  for (int i = 0; i < trace_entries; ++i) {
    const TraceEntry entry = trace_entry(traces, i);
    if (entry.used() && entry.code() == code_of(tooth)) draw(entry);
  }
}

/// A trace entry that the program may change.
struct EntryCopy {
  std::array<std::byte, trace_entry_size> bytes;
  explicit EntryCopy(TraceEntry entry) { std::memcpy(bytes.data(), entry.bytes(), bytes.size()); }
};

/// What takes a tooth from where it was traced to where it is now. An axis without length is not turned.
TraceTurn followed(const MovedTooth &points) {
  const CPoint shift = geometry::truncate(points.traced_a - points.at.a);
  const double turn = geometry::signed_angle(points.traced_a, points.traced_b, points.at.a, points.at.b);
  return {.dx = shift.x,
          .dy = shift.y,
          .centre = points.at.a,
          .angle = std::isnan(turn) ? 0.0 : turn,
          .scale = 1.0};
}

}  // namespace

void draw_superimposed_template(CDC &dc, Tooth tooth, const ToothPoints &offsets,
                                const TemplateChoice &choice, const Superimposition &on,
                                const LateralRecord &record, const ToothInk &ink) {
  if (on.scale == 0.0) return;
  const bool rubber_band = ink.stroke == Stroke::rubber_band;
  LineStyle line = record.line(ink.color, ink.style);
  if (rubber_band) line = is_incisor(tooth) ? LineStyle{1, ink.color, ink.style} : LineStyle{1, 0xFFFFFF, 0};
  const ToothPoints at{device_coordinates(on, offsets.a), device_coordinates(on, offsets.b),
                       device_coordinates(on, offsets.c)};
  const FittedTooth shape = fitted(tooth, at, choice, {.upward = on.flip, .whole_pixels = false});
  const OutlineView view{.origin = {}, .centre = on.centre};
  DrawingScope scope(dc);
  scope.exclusive_or(rubber_band);
  for (const FittedPiece &piece : shape.pieces()) {
    OutlineFit fit = piece.fit;
    fit.pivot_first = on.flip && (is_incisor(tooth) || !rubber_band);
    draw_transferred_outline(dc, piece.outline, fit, view, line);
  }
}

void draw_superimposed_tooth(CDC &dc, Tooth tooth, const MovedTooth &points, const TemplateChoice &choice,
                             const Superimposition &on, const LateralRecord &record, const void *traces,
                             const ToothInk &ink) {
  const bool moved = points.at.a != points.traced_a || points.at.b != points.traced_b;
  const LineStyle line = record.line(ink.color, ink.style);
  bool traced = false;
  for_each_trace_of(traces, tooth, [&](TraceEntry entry) {
    traced = true;
    if (!moved) {
      draw_superimposed_trace(dc, entry, on, points.reference, line, ink.stroke);
      return;
    }
    EntryCopy copy(entry);
    turn_trace(copy.bytes.data(), followed(points));
    draw_superimposed_trace(dc, TraceEntry(copy.bytes.data()), on, points.reference, line, ink.stroke);
  });
  if (traced) return;
  const ToothPoints offsets{points.at.a - points.reference, points.at.b - points.reference,
                            points.at.c - points.reference};
  draw_superimposed_template(dc, tooth, offsets, choice, on, record, ink);
}

void draw_own_tooth(CDC &dc, Tooth tooth, const ToothPoints &at, const TemplateChoice &choice,
                    const DisplayMapping &mapping, const LateralRecord &record, const void *traces,
                    const OwnToothStyle &style) {
  const TraceView view{
      .mapping = {mapping.origin, mapping.life_size ? mapping.mag : mapping.mag * mapping.factor, false},
      .centre = record.porion(),
      .rotation = mapping.rotation};
  bool traced = false;
  for_each_trace_of(traces, tooth, [&](TraceEntry entry) {
    traced = true;
    draw_trace(dc, entry, view, style.line, style.spots ? &*style.spots : nullptr);
  });
  if (traced) return;
  TemplateChoice own = choice;
  own.mirrored = mapping.life_size;
  const ToothPoints device{device_point(mapping, record, at.a), device_point(mapping, record, at.b),
                           device_point(mapping, record, at.c)};
  const FittedTooth shape = fitted(tooth, device, own, {.upward = mapping.life_size, .whole_pixels = true});
  LineStyle image_line = style.line;
  image_line.width = image_line_width(style.image_width);
  for (const FittedPiece &piece : shape.pieces()) {
    OutlineFit fit = piece.fit;
    fit.pivot_first = mapping.life_size;
    if (style.image_width != 0) {
      draw_transferred_outline_image(dc, piece.outline, fit, {}, image_line);
    } else {
      draw_transferred_outline(dc, piece.outline, fit, {}, style.line);
    }
  }
}

}  // namespace tracing
