#pragma once
// The work of ceph batch, free of the terminal: tracings from a stream, results to a stream.

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "apps/ceph/batch_pipeline.h"
#include "apps/ceph/options.h"

namespace app::batch {

enum class InputFormat { automatic, json, csv };
enum class OutputFormat { ndjson, csv };

struct BatchOptions {
  std::string analysis;  ///< index, title or "all"; empty: the first
  InputFormat input = InputFormat::automatic;
  OutputFormat output = OutputFormat::ndjson;
  PatientOptions patient;
  std::optional<double> scale;  ///< millimetres per pixel, for tracings that state none
  int precision = 1;            ///< code of the shown texts; JSON numbers are whole
  PipelineOptions pipeline;
};

struct BatchStreams {
  LineReader::Read read;
  PipelineEvents events;
};

/// The data folder must have been chosen. One result a good line, in the order of the input: an object of the
/// members line, film and analyses (NDJSON), or one CSV row a measurement. Throws CommandError when the
/// analysis does not exist and InputError when the input has no usable header.
PipelineOutcome run_batch(const BatchOptions &options, const BatchStreams &streams);

}  // namespace app::batch
