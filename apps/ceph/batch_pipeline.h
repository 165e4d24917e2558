#pragma once
// Many threads work on the lines of a stream; the results come out in the order of the lines. Only a bounded
// number of lines is held: the reader waits for the writer.

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "apps/ceph/batch_lines.h"

namespace app::batch {

/// What became of one line: an output, or a fault that says why there is none.
struct LineResult {
  std::string output;
  std::string fault;
};

struct PipelineOptions {
  std::size_t jobs = 1;                              ///< working threads, at least 1
  std::size_t window_lines = 256;                    ///< lines held at most
  std::size_t window_bytes = std::size_t{64} << 20;  ///< of these lines; a single line may have more
};

struct Progress {
  std::size_t lines = 0;  ///< written or refused so far, blank ones not counted
  std::size_t bad = 0;
  std::size_t bytes = 0;  ///< of the input
};

struct PipelineEvents {
  /// Writes an output; false when nobody reads any more, which ends everything. Called by one thread at a
  /// time.
  std::function<bool(std::string_view output)> write;
  /// Tells of a bad line. Called by one thread at a time, in order with the outputs.
  std::function<void(std::size_t line_number, std::string_view fault)> bad_line;
  /// Called after every line; may be empty.
  std::function<void(const Progress &)> progress;
};

struct PipelineOutcome {
  Progress total;
  bool output_closed = false;
};

/// `work` is called by several threads at once; whatever it throws makes the line a bad one. Throws what
/// reading throws, after the lines read before have been written.
PipelineOutcome run_pipeline(LineReader &lines, const std::function<LineResult(const InputLine &)> &work,
                             const PipelineEvents &events, const PipelineOptions &options);

}  // namespace app::batch
