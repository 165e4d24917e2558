#pragma once
// Hand-drawn outlines: the application's store of 20 entries, each a name, a kind and runs of points. The
// bytes are the application's and are never trusted: a run that does not fit into its entry, and everything
// behind it, is not read. Coordinates are 16-bit image pixels.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>

#include "tool/framework/types.h"
#include "tool/geometry/CPointD.h"

namespace tracing {

inline constexpr int trace_entries = 20;
inline constexpr std::size_t trace_entry_size = 2000;

/// Kinds of outline. Codes from 12 on are other outlines.
namespace trace_code {
inline constexpr int structures = 8;  ///< 0 to 7: anatomical structures
inline constexpr int upper_incisor = 8;
inline constexpr int lower_incisor = 9;
inline constexpr int upper_molar = 10;
inline constexpr int lower_molar = 11;
inline constexpr int first_other = 12;
}  // namespace trace_code

/// Where a run's points lie in its entry.
struct RunPlace {
  std::int16_t flag;
  int count;
  std::size_t points;  ///< byte offset; x and y, 2 bytes each
};

/// One entry, borrowed. A null entry is unused and empty.
class TraceEntry {
 public:
  explicit TraceEntry(const void *entry) : bytes_(static_cast<const std::byte *>(entry)) {}

  const std::byte *bytes() const { return bytes_; }

  bool used() const;  ///< has a name
  int code() const;   ///< its kind, read as a decimal number: "08" is 8, no number is 0

  std::optional<RunPlace> first_run() const { return run_at(runs_offset); }
  std::optional<RunPlace> run_after(const RunPlace &run) const { return run_at(end_of(run)); }
  CPoint point(const RunPlace &run, int i) const;

 private:
  static constexpr std::size_t code_offset = 35;
  static constexpr std::size_t runs_offset = 44;
  static constexpr std::size_t point_size = 4;
  static constexpr std::size_t end_of(const RunPlace &run) {
    return run.points + static_cast<std::size_t>(run.count) * point_size;
  }
  std::optional<RunPlace> run_at(std::size_t offset) const;

  const std::byte *bytes_;
};

/// The runs of an entry one after another, decoded into a buffer of their own.
class TraceRuns {
 public:
  struct Run {
    bool closed;
    std::span<POINT> points;  ///< valid until the next run is asked for; may be changed
  };

  explicit TraceRuns(TraceEntry entry) : entry_(entry), place_(entry.first_run()) {}
  std::optional<Run> next();

 private:
  static constexpr std::size_t most_points = trace_entry_size / 4;
  TraceEntry entry_;
  std::optional<RunPlace> place_;
  std::array<POINT, most_points> points_;
};

/// Entry 0 to 19 of a store.
TraceEntry trace_entry(const void *store, int index);

/// Moves every point by minus the offset, in 16 bits.
void move_trace(void *entry, int dx, int dy);

struct TraceTurn {
  int dx, dy;  ///< subtracted first
  CPointD centre;
  double angle;  ///< degrees, positive turns counter-clockwise on the screen
  double scale;  ///< 0 puts every point onto the centre
};
/// Moves and turns every point; each is truncated and kept in 16 bits.
void turn_trace(void *entry, const TraceTurn &turn);

}  // namespace tracing
