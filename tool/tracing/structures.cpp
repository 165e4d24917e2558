#include "tool/tracing/structures.h"

#include <array>
#include <cstddef>

#include "tool/tracing/record_views.h"

namespace tracing {

namespace {

// Byte offsets; the tables have room for twelve structures, of which eight are drawn.
constexpr std::size_t table_size = 12;
constexpr std::size_t enabled_offset = 32;
constexpr std::size_t count_offset = 48;
constexpr std::size_t closed_offset = 72;
constexpr std::size_t points_offset = 336;
constexpr std::size_t spline_size = spline_capacity * sizeof(POINT);
constexpr std::size_t second_points_offset = points_offset + table_size * spline_size;
constexpr std::size_t splines_end = second_points_offset + table_size * spline_size;
static_assert(spline_size == 264 && second_points_offset == 3504 && splines_end == 6672);

}  // namespace

bool StructureRecord::enabled(int structure) const {
  return field<unsigned char>(record_, enabled_offset + static_cast<std::size_t>(structure)) == 1;
}

StructureSpline StructureRecord::spline(int structure, int which) const {
  const std::size_t place =
      static_cast<std::size_t>(which) * table_size + static_cast<std::size_t>(structure);
  StructureSpline spline{};
  spline.closed = field<unsigned char>(record_, closed_offset + place) != 0;
  const int count = field<unsigned char>(record_, count_offset + place);
  if (count > spline_capacity) return spline;
  spline.count = count;
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
    spline.points[i] = field<POINT>(record_, points_offset + place * spline_size + i * sizeof(POINT));
  return spline;
}

void convert_structure_record(const void *older, void *newer) {
  if (!older || !newer) return;
  auto *bytes = static_cast<std::byte *>(newer);
  std::memmove(bytes, older, second_points_offset);
  std::memset(bytes + count_offset + table_size, 0, table_size);
  std::memset(bytes + closed_offset + table_size, 0, table_size);
  std::memset(bytes + second_points_offset, 0, splines_end - second_points_offset);
}

void draw_outlines(CDC &dc, const Outlines &outlines, const Superimposition &on, const LineStyle &line,
                   Stroke stroke) {
  std::array<bool, trace_code::structures> hand_traced{};
  const auto wanted = [&](int code) { return outlines.only == -1 || outlines.only == code; };
  for (int i = 0; i < trace_entries; ++i) {
    const TraceEntry entry = trace_entry(outlines.traces, i);
    if (!entry.used() || !wanted(entry.code())) continue;
    const int code = entry.code();
    const bool structure = code < trace_code::structures;
    if (structure && code >= 0) hand_traced[static_cast<std::size_t>(code)] = true;
    if (structure || code >= trace_code::first_other)
      draw_superimposed_trace(dc, entry, on, outlines.reference, line, stroke);
  }
  const StructureRecord record(outlines.splines);
  for (int k = 0; k < trace_code::structures; ++k) {
    if (hand_traced[static_cast<std::size_t>(k)] || !wanted(k) || !record.enabled(k)) continue;
    for (const int which : {0, 1}) {
      const StructureSpline spline = record.spline(k, which);
      const auto points = std::span(spline.points).first(static_cast<std::size_t>(spline.count));
      draw_superimposed_spline(dc, {points, curve_ends(spline.closed)}, on, outlines.reference, line, stroke);
    }
  }
}

}  // namespace tracing
