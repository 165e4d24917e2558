#include "apps/ceph/patient_report.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace app {
namespace {

std::string decimal(const char *format, double value) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), format, value);
  return text.data();
}

std::string date_text(const Date &date) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", date.year, date.month, date.day);
  return text.data();
}

int whole_months(const Date &from, const Date &to) {
  return (to.year - from.year) * 12 + to.month - from.month - (to.day < from.day ? 1 : 0);
}

std::string_view sex_name(int sex) {
  return sex == 1 ? "male" : "female";
}

}  // namespace

PatientContext::PatientContext(const TracingFile &file, const PatientOptions &options)
    : info_(file.patient),
      film_(file.id),
      scale_(file.scale()),
      sex_(options.sex ? options.sex : file.patient.sex),
      growth_{options.age ? options.age : file.patient.age(), file.patient.dental_stage},
      age_code_(options.age_code),
      magnification_(options.magnification.value_or(file.magnification.value_or(1.1))),
      age_from_options_(options.age.has_value()) {}

analysis::Patient PatientContext::for_norms(const analysis::DefinitionFile &file) const {
  analysis::Patient patient;
  patient.sex = sex();
  patient.age_code = age_code_ ? *age_code_ : norm_columns(file, sex(), growth_).age_code;
  patient.magnification = magnification_;
  return patient;
}

std::string PatientContext::norms(const analysis::DefinitionFile &file) const {
  const std::string column =
      age_code_ ? "age code " + std::to_string(*age_code_) : norm_columns(file, sex(), growth_).meaning;
  return std::string(sex_name(sex())) + ", " + column;
}

std::string PatientContext::age_text() const {
  if (info_.birth && info_.date && !age_from_options_) {
    const int months = whole_months(*info_.birth, *info_.date);
    return std::to_string(months / 12) + " years " + std::to_string(months % 12) + " months";
  }
  return decimal("%.4g years", *growth_.age);
}

std::vector<Fact> PatientContext::facts() const {
  std::vector<Fact> all;
  if (!info_.name.empty()) all.push_back({"patient", "Patient", info_.name, {}});
  if (sex_) all.push_back({"sex", "Sex", std::string(sex_name(*sex_)), {}});
  if (growth_.age) all.push_back({"age", "Age", age_text(), growth_.age});
  if (!growth_.dental_stage.empty())
    all.push_back({"dental_stage", "Dental stage", growth_.dental_stage, {}});
  if (info_.date) all.push_back({"date", "Date", date_text(*info_.date), {}});
  if (!film_.empty()) all.push_back({"film", "Film", film_, {}});
  all.push_back({"scale", "Scale", decimal("%.6g mm per pixel", scale_), scale_});
  all.push_back({"magnification", "Magnification", decimal("%.4g", magnification_), magnification_});
  return all;
}

std::vector<Fact> PatientContext::stage_facts(const analysis::DefinitionFile &file) const {
  const GrowthStages stages = growth_stages(file, sex(), growth_);
  std::vector<Fact> all;
  if (!stages.by_age.empty()) all.push_back({"growth_stage", "Growth stage", stages.by_age, {}});
  if (!stages.by_teeth.empty()) all.push_back({"dental_growth_stage", "Stage by teeth", stages.by_teeth, {}});
  return all;
}

std::vector<std::string> PatientContext::notes() const {
  std::vector<std::string> all;
  if (!sex_) all.emplace_back("the sex is not stated; the norms are those of males (--sex)");
  if (!growth_.age && !age_code_)
    all.emplace_back("the age is not stated; where norms change with age they are those of adults (--age)");
  return all;
}

}  // namespace app
