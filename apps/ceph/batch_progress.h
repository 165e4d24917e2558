#pragma once
// The progress bar of ceph batch on a terminal.

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "apps/ceph/batch_pipeline.h"

namespace app::batch {

/// One line of at most `width` columns: a bar and a percentage when the size of the input is known, then
/// counts.
std::string progress_line(const Progress &progress, std::optional<std::size_t> input_bytes,
                          std::size_t width);

/// Redraws the line at most ten times a second. Not for use by several threads.
class ProgressBar {
 public:
  using Write = std::function<void(std::string_view)>;
  ProgressBar(Write write, std::optional<std::size_t> input_bytes, std::size_t width);

  void show(const Progress &progress);
  /// Takes the line away, for other messages and at the end.
  void clear();

 private:
  Write write_;
  std::optional<std::size_t> input_bytes_;
  std::size_t width_;
  bool shown_ = false;
  std::optional<std::chrono::steady_clock::time_point> drawn_;
};

}  // namespace app::batch
