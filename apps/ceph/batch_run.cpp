#include "apps/ceph/batch_run.h"

#include <array>

#include "apps/ceph/analysis_report.h"
#include "apps/ceph/batch_format.h"
#include "apps/ceph/data_folder.h"
#include "apps/ceph/exit_code.h"
#include "apps/common/tracing_file.h"

namespace app::batch {
namespace {

/// The chosen analyses of one kind of record, or why there are none.
struct KindAnalyses {
  std::vector<LoadedAnalysis> analyses;
  std::string fault;
};

/// Everything that the threads share; nothing in it changes once it is made.
class Worker {
 public:
  explicit Worker(const BatchOptions &options) : options_(options) {
    constexpr std::array modes{analysis::Mode::lateral, analysis::Mode::frontal, analysis::Mode::model};
    std::optional<CommandError> first_fault;
    bool any = false;
    for (std::size_t i = 0; i < modes.size(); ++i) {
      try {
        by_kind_[i].analyses = load_analyses(modes[i], options.analysis);
        any = true;
      } catch (const CommandError &fault) {
        by_kind_[i].fault = fault.what();
        if (!first_fault) first_fault = fault;
      }
    }
    if (!any) throw CommandError(*first_fault);
  }

  /// Makes the lines CSV rows under this header.
  void set_header(std::string_view header) { csv_.emplace(header, ReadOptions{options_.scale}); }

  LineResult operator()(const InputLine &line) const {
    try {
      return {result(line), {}};
    } catch (const InputError &fault) {
      return {{}, without_line_number(fault)};
    }
  }

 private:
  std::string result(const InputLine &line) const {
    const TracingFile file =
        csv_ ? csv_->read(line.text, line.number) : read_json_tracing(line.text, ReadOptions{options_.scale});
    const KindAnalyses &chosen = by_kind_[static_cast<std::size_t>(file.kind())];
    if (chosen.analyses.empty()) throw InputError(chosen.fault, {});
    const PatientContext context(file, options_.patient);
    std::vector<Table> tables;
    for (const LoadedAnalysis &one : chosen.analyses)
      tables.push_back(analysis_table(one, file, context, options_.precision));
    const ResultHead head{line.number, file.id};
    return options_.output == OutputFormat::csv ? csv_rows(head, tables) : json_line(head, tables);
  }

  /// The line number of the stream is told anyway; the one inside the message counts within the line.
  static std::string without_line_number(const InputError &fault) {
    std::string where = fault.where();
    if (where.compare(0, 5, "line ") == 0) {
      const std::size_t comma = where.find(", ");
      where.erase(0, comma == std::string::npos ? where.size() : comma + 2);
    }
    return InputError(fault.fault(), where, fault.right()).what();
  }

  BatchOptions options_;
  std::array<KindAnalyses, 3> by_kind_;  // by RecordKind
  std::optional<CsvTracings> csv_;
};

bool is_blank(const std::string &text) {
  return text.find_first_not_of(" \t") == std::string::npos;
}

/// The first line that says something decides; a JSON tracing is an object.
bool is_csv(InputFormat format, const InputLine &first) {
  if (format != InputFormat::automatic) return format == InputFormat::csv;
  return first.text[first.text.find_first_not_of(" \t")] != '{';
}

}  // namespace

PipelineOutcome run_batch(const BatchOptions &options, const BatchStreams &streams) {
  LineReader lines(streams.read, max_tracing_bytes);
  Worker worker(options);
  if (options.output == OutputFormat::csv && !streams.events.write(csv_header())) return {{}, true};
  while (lines.peek() && !lines.peek()->too_long && is_blank(lines.peek()->text)) lines.next();
  if (!lines.peek()) return {};
  if (!lines.peek()->too_long && is_csv(options.input, *lines.peek())) worker.set_header(lines.next()->text);
  const auto work = [&worker](const InputLine &line) { return worker(line); };
  return run_pipeline(lines, work, streams.events, options.pipeline);
}

}  // namespace app::batch
