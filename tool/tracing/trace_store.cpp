#include "tool/tracing/trace_store.h"

#include <algorithm>
#include <string_view>

#include "tool/framework/text/decimal.h"
#include "tool/geometry/transforms.h"
#include "tool/geometry/truncation.h"

namespace tracing {

namespace {

std::int16_t word(const std::byte *bytes) {
  std::int16_t value = 0;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

void store_word(std::byte *bytes, std::int32_t value) {
  const auto low = static_cast<std::uint16_t>(static_cast<std::uint32_t>(value));
  std::memcpy(bytes, &low, sizeof low);
}

/// Replaces each point of each run by what `moved` makes of it.
template <typename Moved>
void change_points(void *entry, Moved moved) {
  const TraceEntry trace(entry);
  auto *bytes = static_cast<std::byte *>(entry);
  for (auto run = trace.first_run(); run; run = trace.run_after(*run)) {
    for (int i = 0; i < run->count; ++i) {
      const CPoint p = moved(trace.point(*run, i));
      std::byte *at = bytes + run->points + static_cast<std::size_t>(i) * 4;
      store_word(at, p.x);
      store_word(at + 2, p.y);
    }
  }
}

}  // namespace

bool TraceEntry::used() const {
  return bytes_ && *bytes_ != std::byte{0};
}

int TraceEntry::code() const {
  if (!bytes_) return 0;
  const auto *begin = reinterpret_cast<const char *>(bytes_ + code_offset);
  const auto *end = std::find(begin, begin + (runs_offset - code_offset), '\0');
  return framework::whole_number({begin, static_cast<std::size_t>(end - begin)});
}

std::optional<RunPlace> TraceEntry::run_at(std::size_t offset) const {
  constexpr std::size_t header_size = 4;
  if (!bytes_ || offset + header_size > trace_entry_size) return std::nullopt;
  const RunPlace run{word(bytes_ + offset), word(bytes_ + offset + 2), offset + header_size};
  if (run.count <= 0 || end_of(run) > trace_entry_size) return std::nullopt;
  return run;
}

CPoint TraceEntry::point(const RunPlace &run, int i) const {
  const std::byte *at = bytes_ + run.points + static_cast<std::size_t>(i) * point_size;
  return {word(at), word(at + 2)};
}

std::optional<TraceRuns::Run> TraceRuns::next() {
  if (!place_) return std::nullopt;
  const RunPlace run = *place_;
  place_ = entry_.run_after(run);
  for (int i = 0; i < run.count; ++i) points_[static_cast<std::size_t>(i)] = entry_.point(run, i);
  const bool closed = static_cast<unsigned char>(run.flag) != 0;
  return Run{closed, std::span(points_).first(static_cast<std::size_t>(run.count))};
}

TraceEntry trace_entry(const void *store, int index) {
  const auto *bytes = static_cast<const std::byte *>(store);
  return TraceEntry(bytes ? bytes + static_cast<std::size_t>(index) * trace_entry_size : nullptr);
}

void move_trace(void *entry, int dx, int dy) {
  change_points(entry, [&](CPoint p) {
    return CPoint(geometry::integer_difference(p.x, dx), geometry::integer_difference(p.y, dy));
  });
}

void turn_trace(void *entry, const TraceTurn &turn) {
  change_points(entry, [&](CPoint p) {
    const CPoint shifted(geometry::integer_difference(p.x, turn.dx),
                         geometry::integer_difference(p.y, turn.dy));
    return geometry::truncate(geometry::rotated(turn.centre, shifted, -turn.angle, turn.scale));
  });
}

}  // namespace tracing
