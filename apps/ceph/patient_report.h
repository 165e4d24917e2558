#pragma once
// The patient of a tracing as the engine and as the reader of a report see him.

#include "apps/ceph/options.h"
#include "apps/common/norm_columns.h"
#include "apps/common/report.h"
#include "apps/common/tracing_file.h"
#include "tool/analysis/analysis.h"

namespace app {

/// What the options and the tracing file say together; the options win.
class PatientContext {
 public:
  PatientContext(const TracingFile &file, const PatientOptions &options);

  /// The patient for the norms of one file.
  analysis::Patient for_norms(const analysis::DefinitionFile &file) const;
  /// Whose norms these are, for instance "male, 12 years (column 7 of 13)".
  std::string norms(const analysis::DefinitionFile &file) const;
  int sex() const { return sex_.value_or(1); }
  const Growth &growth() const { return growth_; }

  /// Name, sex, age, film and scale.
  std::vector<Fact> facts() const;
  /// Growth stages of one file; empty when it has none that fits.
  std::vector<Fact> stage_facts(const analysis::DefinitionFile &file) const;
  /// What is not stated and was therefore assumed.
  std::vector<std::string> notes() const;

 private:
  std::string age_text() const;

  PatientInfo info_;
  std::string film_;
  double scale_;
  std::optional<int> sex_;
  Growth growth_;
  std::optional<int> age_code_;
  double magnification_;
  bool age_from_options_;
};

}  // namespace app
