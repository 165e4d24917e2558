// Any bytes as a definition file: parsed, compiled and evaluated whole in every mode, and read as growth
// stages and display settings.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fuzz/fixed_tracing.h"
#include "tool/analysis/analysis.h"
#include "tool/analysis/display_settings.h"
#include "tool/analysis/result_table.h"
#include "tool/analysis/stages.h"

namespace {

/// What holds for every file, whatever its bytes.
void require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

void check_lines(const analysis::DefinitionFile &file) {
  for (const analysis::Line &line : file.lines()) {
    require(line.text.size() <= analysis::max_line_bytes);
    require(line.offset <= file.text().size());
    require(line.own == analysis::classify_line(line.text));
  }
  require(file.title().size() <= analysis::max_line_bytes);
  require(file.comment().size() <= analysis::max_line_bytes);
}

void evaluate(const std::string &text, analysis::Mode mode, fuzz::Records &records) {
  const analysis::Analysis analysis(analysis::DefinitionFile(text), mode);
  const analysis::Tracing tracing = records.tracing(mode);
  const analysis::Patient patient{static_cast<int>(text.size() % 3), 203, 1.2};
  const auto rows = analysis::result_table(analysis, tracing, patient, 9);
  for (const auto &row : rows) {
    require(row.item.size() <= text.size());
  }
  for (const analysis::Item &item : analysis.items()) {
    require(item.text.size() <= analysis::max_item_text_bytes);
    require(analysis.find_item(item.text).has_value());
  }
  static_cast<void>(analysis::diagnosis(analysis, tracing, patient));
  if (mode == analysis::Mode::surgery) {
    static_cast<void>(analysis::surgery_table(analysis, tracing, tracing, patient, 2));
  }
}

void read_stages(const analysis::DefinitionFile &file) {
  for (const auto set : {analysis::StageSet::first, analysis::StageSet::second}) {
    for (const int sex : {1, 2}) {
      const auto stages = analysis::stages(file, sex, set);
      const int match = analysis::match_stage(stages, 9.5, 4.0);
      require(match >= -1 && match < static_cast<int>(stages.size()));
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static fuzz::Records records;
  const std::string text(reinterpret_cast<const char *>(data), size);
  const analysis::DefinitionFile file(text);
  check_lines(file);
  read_stages(file);
  for (const analysis::Mode mode : fuzz::modes) {
    evaluate(text, mode, records);
  }
  require(analysis::parse_display_settings(text).segments.size() <= analysis::DisplaySettings::max_segments);
  return 0;
}
