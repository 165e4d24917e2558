#include "apps/ceph/batch_progress.h"

#include <algorithm>
#include <utility>

namespace app::batch {
namespace {

constexpr std::size_t bar_columns = 30;
constexpr std::chrono::milliseconds redraw_interval{100};

std::string bar(std::size_t done, std::size_t all) {
  const double part = all == 0 ? 1.0 : std::min(1.0, static_cast<double>(done) / static_cast<double>(all));
  const auto filled = static_cast<std::size_t>(part * bar_columns);
  const auto percent = static_cast<int>(part * 100);
  return "[" + std::string(filled, '#') + std::string(bar_columns - filled, '.') + "] " +
         std::to_string(percent) + " % ";
}

}  // namespace

std::string progress_line(const Progress &progress, std::optional<std::size_t> input_bytes,
                          std::size_t width) {
  std::string line;
  if (input_bytes) line += bar(progress.bytes, *input_bytes);
  line += std::to_string(progress.lines) + (progress.lines == 1 ? " tracing" : " tracings");
  if (progress.bad > 0) line += ", " + std::to_string(progress.bad) + " bad";
  return line.substr(0, width);
}

ProgressBar::ProgressBar(Write write, std::optional<std::size_t> input_bytes, std::size_t width)
    : write_(std::move(write)), input_bytes_(input_bytes), width_(width) {}

void ProgressBar::show(const Progress &progress) {
  const auto now = std::chrono::steady_clock::now();
  if (drawn_ && now - *drawn_ < redraw_interval) return;
  drawn_ = now;
  shown_ = true;
  write_("\r" + progress_line(progress, input_bytes_, width_) + "\x1b[K");
}

void ProgressBar::clear() {
  if (std::exchange(shown_, false)) write_("\r\x1b[K");
}

}  // namespace app::batch
