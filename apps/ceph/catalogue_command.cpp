// ceph catalogue: the fixed measurements of lateral and frontal films, and the bone age.

#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>
#include <optional>

#include "apps/ceph/commands.h"
#include "apps/ceph/data_folder.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/fixed_values.h"
#include "apps/ceph/output.h"
#include "apps/ceph/patient_report.h"
#include "tool/analysis/bone_age.h"
#include "tool/analysis/result_table.h"

namespace app {
namespace {

Table values_table(const std::vector<FixedValue> &values, std::string title, int precision) {
  Table table;
  table.key = "groups";
  table.title = std::move(title);
  table.columns = {
      {"number", "No.", Align::right}, {"measurement", "Measurement"}, {"value", "Value", Align::right}};
  table.value_column = 2;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const FixedValue &one = values[i];
    std::string reason = one.reason;
    if (reason.empty() && !std::isfinite(one.value)) reason = "the points coincide";
    table.rows.push_back({false,
                          {{std::to_string(i), static_cast<double>(i)},
                           {one.name, {}},
                           {analysis::format_value(one.value, precision), one.value}},
                          std::move(reason)});
  }
  return table;
}

Fact bone_age_fact(const tagCVBA &vertebrae, const PatientContext &context) {
  for (int k = 11; k <= 21; ++k)
    if (vertebrae.pt[k].x == 0 && vertebrae.pt[k].y == 0)
      return {"bone_age", "Bone age", "P" + std::to_string(k) + " is not placed", {}};
  const std::string path = data_folder() + "cvba.dat";
  const double years =
      analysis::bone_age(vertebrae, analysis::bone_age_coefficients(path.c_str(), context.sex()));
  if (!std::isfinite(years)) return {"bone_age", "Bone age", "the points coincide", {}};
  return {"bone_age", "Bone age", analysis::format_value(years, 1) + " years", years};
}

struct CatalogueOptions : TracingOptions {
  std::optional<int> nf_to_fh;  ///< as the profile value "NFtoFH"
};

int run(const CatalogueOptions &options) {
  const TracingFile file = options.read();
  if (options.nf_to_fh && !file.lateral())
    throw CommandError(
        ExitCode::usage,
        options.path + ": is not a lateral film; --nf-to-fh; only lateral films have that angle");
  const PatientContext context(file, options.patient);
  Report report;
  report.facts = context.facts();
  if (const tagPOINTLAT *lateral = file.lateral()) {
    report.title = "Fixed lateral measurements";
    int group = 0;
    for (const auto &values : lateral_values(*lateral, options.nf_to_fh.value_or(1) != 0))
      report.tables.push_back(
          values_table(values, "Group " + std::to_string(group++), options.precision.code()));
  } else if (const tagPOINTPA *frontal = file.frontal()) {
    report.title = "Fixed frontal measurements";
    report.tables.push_back(values_table(frontal_values(*frontal), "", options.precision.code()));
  } else {
    throw CommandError(
        ExitCode::usage,
        options.path + ": is a cast; TRACING; a lateral or frontal film (for casts: ceph model)");
  }
  if (file.vertebrae) {
    use_data_folder(options.data.folder);
    report.facts.push_back(bone_age_fact(*file.vertebrae, context));
  }
  deliver(report, options.output);
  return static_cast<int>(ExitCode::done);
}

}  // namespace

void add_catalogue_command(CLI::App &program, int &exit_code) {
  CLI::App *command = program.add_subcommand(
      "catalogue", "The 148 fixed lateral or 18 frontal measurements, and the bone age");
  const auto options = std::make_shared<CatalogueOptions>();
  command->add_option("TRACING", options->path, "JSON or CSV tracing; - reads standard input")->required();
  command
      ->add_option("--nf-to-fh", options->nf_to_fh,
                   "sign of the two angles between nasal floor (ANS-PNS) and Frankfort plane (Or-Po): 1 "
                   "negates them (default), 0 leaves them as measured")
      ->check(CLI::IsMember({0, 1}));
  options->add_rest_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
