#include "apps/ceph/table_report.h"

#include "apps/ceph/analysis_report.h"
#include "tool/analysis/definition_folder.h"

namespace app {
namespace {

void add_diagnosis(Report &report, const TracingFile &file, const PatientContext &context) {
  if (file.kind() != analysis::RecordKind::lateral) return;
  if (analysis::definition_paths(analysis::Mode::lateral_diagnosis).empty()) return;
  const Diagnosis diagnosis =
      diagnose(load_analyses(analysis::Mode::lateral_diagnosis, "all"), file, context);
  if (!diagnosis.sentences.empty())
    report.paragraphs.push_back({"diagnosis", "Diagnosis", diagnosis.sentences});
  if (!diagnosis.left_out.empty())
    report.notes.push_back("the diagnosis is incomplete: " + joined(diagnosis.left_out));
}

}  // namespace

Report table_report(const TracingOptions &options, const TracingFile &file) {
  use_data_folder(options.data.folder);
  const auto analyses = load_analyses(file.mode(), options.analysis);
  const PatientContext context(file, options.patient);
  Report report;
  report.title = analyses.size() == 1 ? analyses.front().title : "Cephalometric analyses";
  report.facts = context.facts();
  for (Fact &fact : growth_facts(analyses, file, context)) report.facts.push_back(std::move(fact));
  for (const LoadedAnalysis &one : analyses)
    report.tables.push_back(analysis_table(one, file, context, options.precision.code()));
  if (analyses.size() == 1) report.tables.front().title.clear();
  report.notes = context.notes();
  add_diagnosis(report, file, context);
  return report;
}

}  // namespace app
