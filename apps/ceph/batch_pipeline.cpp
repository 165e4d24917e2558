#include "apps/ceph/batch_pipeline.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace app::batch {
namespace {

struct Job {
  InputLine line;
  LineResult result;
  bool done = false;
};

/// The lines on their way, oldest first. Every member function may be called by any thread.
class Window {
 public:
  explicit Window(const PipelineOptions &options) : options_(options) {}

  /// Waits for room; false when everything was called off.
  bool put(std::unique_ptr<Job> job) {
    std::unique_lock lock(mutex_);
    const std::size_t size = job->line.text.size();
    room_.wait(lock, [&] { return called_off_ || fits(size); });
    if (called_off_) return false;
    bytes_ += size;
    if (!job->done) waiting_.push_back(job.get());
    jobs_.push_back(std::move(job));
    (jobs_.back()->done ? finished_ : work_).notify_one();
    return true;
  }

  /// No more lines come.
  void close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    work_.notify_all();
    finished_.notify_all();
  }

  void call_off() {
    const std::lock_guard lock(mutex_);
    called_off_ = true;
    work_.notify_all();
    finished_.notify_all();
    room_.notify_all();
  }

  /// The next line to work on; null when there is none left.
  Job *take_work() {
    std::unique_lock lock(mutex_);
    work_.wait(lock, [&] { return called_off_ || closed_ || !waiting_.empty(); });
    if (called_off_ || waiting_.empty()) return nullptr;
    Job *job = waiting_.front();
    waiting_.pop_front();
    return job;
  }

  void finish(Job *job, LineResult result) {
    const std::lock_guard lock(mutex_);
    job->result = std::move(result);
    job->done = true;
    if (jobs_.front().get() == job) finished_.notify_one();
  }

  /// The oldest line once it is done; null when no line is left.
  std::unique_ptr<Job> take_finished() {
    std::unique_lock lock(mutex_);
    finished_.wait(lock, [&] { return called_off_ || (jobs_.empty() ? closed_ : jobs_.front()->done); });
    if (called_off_ || jobs_.empty()) return nullptr;
    std::unique_ptr<Job> job = std::move(jobs_.front());
    jobs_.pop_front();
    bytes_ -= job->line.text.size();
    room_.notify_one();
    return job;
  }

 private:
  bool fits(std::size_t size) const {
    return jobs_.empty() || (jobs_.size() < options_.window_lines && bytes_ + size <= options_.window_bytes);
  }

  const PipelineOptions &options_;
  std::mutex mutex_;
  std::condition_variable room_, work_, finished_;
  std::deque<std::unique_ptr<Job>> jobs_;
  std::deque<Job *> waiting_;
  std::size_t bytes_ = 0;
  bool closed_ = false;
  bool called_off_ = false;
};

LineResult guarded(const std::function<LineResult(const InputLine &)> &work, const InputLine &line) {
  try {
    return work(line);
  } catch (const std::exception &error) {
    return {{}, error.what()};
  }
}

class Pipeline {
 public:
  Pipeline(const std::function<LineResult(const InputLine &)> &work, const PipelineEvents &events,
           const PipelineOptions &options)
      : work_(work), events_(events), options_(options), window_(options_) {}

  PipelineOutcome run(LineReader &lines) {
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < std::max<std::size_t>(options_.jobs, 1); ++i)
      threads.emplace_back([this] { work_on_lines(); });
    threads.emplace_back([this] { write_results(); });
    std::exception_ptr reading_fault;
    try {
      read(lines);
    } catch (...) {
      reading_fault = std::current_exception();
    }
    window_.close();
    for (std::thread &thread : threads) thread.join();
    if (writing_fault_) std::rethrow_exception(writing_fault_);
    if (reading_fault) std::rethrow_exception(reading_fault);
    return outcome_;
  }

 private:
  void read(LineReader &lines) {
    while (auto line = lines.next()) {
      if (!line->too_long && line->text.find_first_not_of(" \t") == std::string::npos) continue;
      auto job = std::make_unique<Job>();
      job->line = std::move(*line);
      job->done = job->line.too_long;
      if (job->done) job->result.fault = "the line is too long";
      if (!window_.put(std::move(job))) return;
    }
  }

  void work_on_lines() {
    while (Job *job = window_.take_work()) window_.finish(job, guarded(work_, job->line));
  }

  void write_results() {
    try {
      while (const auto job = window_.take_finished()) {
        if (!write(*job)) break;
      }
    } catch (...) {
      writing_fault_ = std::current_exception();
    }
    if (outcome_.output_closed || writing_fault_) window_.call_off();
  }

  bool write(const Job &job) {
    const LineResult &result = job.result;
    if (!result.fault.empty()) {
      ++outcome_.total.bad;
      events_.bad_line(job.line.number, result.fault);
    } else if (!events_.write(result.output)) {
      outcome_.output_closed = true;
      return false;
    }
    ++outcome_.total.lines;
    outcome_.total.bytes += job.line.bytes;
    if (events_.progress) events_.progress(outcome_.total);
    return true;
  }

  const std::function<LineResult(const InputLine &)> &work_;
  const PipelineEvents &events_;
  PipelineOptions options_;
  Window window_;
  PipelineOutcome outcome_;           // of the writing thread until it is joined
  std::exception_ptr writing_fault_;  // likewise
};

}  // namespace

PipelineOutcome run_pipeline(LineReader &lines, const std::function<LineResult(const InputLine &)> &work,
                             const PipelineEvents &events, const PipelineOptions &options) {
  return Pipeline(work, events, options).run(lines);
}

}  // namespace app::batch
