#pragma once
// Result tables and diagnosis sentences of the engine as parts of a report.

#include <span>

#include "apps/ceph/data_folder.h"
#include "apps/ceph/patient_report.h"
#include "apps/common/report.h"
#include "tool/analysis/result_table.h"

namespace app {

/// A reason in UTF-8.
std::string reason_text(const analysis::Reason &reason);

/// The columns item, mean, sd, value, deviation and bar; with a second value for the tooth rows of a cast.
Table analysis_table(std::span<const analysis::TableRow> rows, bool with_second_value);

/// The whole table of an analysis with its title, comment and norms.
Table analysis_table(const LoadedAnalysis &one, const TracingFile &file, const PatientContext &context,
                     int precision);

/// Growth stages of the first analysis that has one that fits; for lateral films the norm file is asked last.
std::vector<Fact> growth_facts(std::span<const LoadedAnalysis> analyses, const TracingFile &file,
                               const PatientContext &context);

/// The sentences of the diagnosis files that the tracing can bear. A line whose formula needs a point that is
/// not placed is left out, and its reason goes to `left_out`.
struct Diagnosis {
  std::vector<std::string> sentences;  ///< UTF-8
  std::vector<std::string> left_out;   ///< UTF-8
};
std::string joined(const std::vector<std::string> &reasons);  ///< separated by semicolons
Diagnosis diagnose(std::span<const LoadedAnalysis> files, const TracingFile &file,
                   const PatientContext &context);

}  // namespace app
