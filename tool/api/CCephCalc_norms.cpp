// CCephCalc: norms, SD units and growth stages.

#include <algorithm>
#include <cstring>

#include "tool/analysis/definition_folder.h"
#include "tool/analysis/evaluator.h"
#include "tool/analysis/norms.h"
#include "tool/analysis/stages.h"
#include "tool/api/CCephCalc.h"
#include "tool/env/text.h"
#include "tool/framework/text/decimal.h"
#include "tool/framework/text/numbers.h"
#include "tool/framework/ui/CComboBox.h"
#include "tool/framework/ui/CWinApp.h"

using analysis::Analysis;
using analysis::DefinitionFile;
using analysis::Evaluator;
using analysis::Mode;
using analysis::NormKind;
using analysis::Patient;
using analysis::Tracing;

namespace {

NormKind norm_kind(int which) {
  return which == 0 ? NormKind::mean : NormKind::sd;
}

/// The column of an item's norm line in a file; empty optional when the file has no such line.
std::optional<std::string_view> norm_field(const DefinitionFile &file, const char *item, NormKind which,
                                           int sex, int age_code) {
  const auto line = analysis::find_norm_line(file, item ? item : "", which, sex);
  if (!line) return std::nullopt;
  return analysis::norm_column(*line, age_code);
}

/// Only a formula can refer to items, so only then another file has to be read.
std::optional<Analysis> references_of(std::string_view field, int mode, int file_index) {
  if (env::is_number(field) || field.find('"') == std::string_view::npos) return std::nullopt;
  return Analysis::load(Mode{mode}, file_index, Analysis::Diagnosis::no);
}

std::optional<std::size_t> stage_index(const std::vector<analysis::Stage> &stages, double age,
                                       double dental) {
  const int match = analysis::match_stage(stages, age, dental);
  if (match < 0) return std::nullopt;
  return static_cast<std::size_t>(match);
}

template <std::size_t Width>
std::string_view field_text(const char (&field)[Width]) {
  return {field, static_cast<std::size_t>(std::find(field, field + Width, '\0') - field)};
}

}  // namespace

CString CCephCalc::Get_MeanSD(int mode, int fileIndex, int which, int sex, char *fileText, void *record,
                              unsigned short *kCount, tagKPOINT *kPoints, unsigned short *uCount,
                              tagUPOINT *uPoints, int fileLength, const char *item, int ageCode,
                              double magnification, int kind) {
  if (!fileText || fileLength <= 0) return {};
  const DefinitionFile file(std::string(fileText, static_cast<std::size_t>(fileLength)));
  const auto field = norm_field(file, item, norm_kind(which), sex, ageCode);
  if (!field) return {};
  const std::optional<Analysis> references = references_of(*field, mode, fileIndex);
  const Tracing tracing(Mode{mode}, record, kCount, kPoints, uCount, uPoints);
  return CString(Evaluator(tracing, Patient{sex, ageCode, magnification}, references ? &*references : nullptr,
                           Evaluator::Reasons::ignore)
                     .norm_field_text(*field, kind));
}

int CCephCalc::Get_MeanSD(int mode, int fileIndex, double *out, int which, int sex, char *fileText,
                          void *record, unsigned short *kCount, tagKPOINT *kPoints, unsigned short *uCount,
                          tagUPOINT *uPoints, int fileLength, const char *item, int ageCode,
                          double magnification, int kind) {
  const CString text = Get_MeanSD(mode, fileIndex, which, sex, fileText, record, kCount, kPoints, uCount,
                                  uPoints, fileLength, item, ageCode, magnification, kind);
  const bool found = !text.IsEmpty() && env::is_number(text.view());
  if (out) *out = found ? framework::decimal_value(text.view()) : 0.0;
  return found;
}

void CCephCalc::GetMeanSD(const char *path, const char *item, int sex, int ageCode, CString &mean,
                          CString &sd) {
  mean.Empty();
  sd.Empty();
  if (!path || *path == '\0') return;
  std::optional<DefinitionFile> read = DefinitionFile::read(path);
  if (!read) return;
  const Analysis file(std::move(*read), Mode::model, Analysis::Diagnosis::no);
  const Tracing no_tracing(Mode::model, nullptr, nullptr, nullptr, nullptr, nullptr);
  constexpr int unscaled_kind = 1;
  const auto text = [&](NormKind which) {
    const auto field = norm_field(file.file(), item, which, sex, ageCode);
    Evaluator evaluator(no_tracing, Patient{sex, ageCode, 1.0}, &file, Evaluator::Reasons::ignore);
    return field ? CString(evaluator.norm_field_text(*field, unscaled_kind)) : CString();
  };
  mean = text(NormKind::mean);
  sd = text(NormKind::sd);
}

CString CCephCalc::GetMeanSDFile(tagHINPUT *links, int count) {
  for (int i = 0; links && i < count; ++i) {
    if (field_text(links[i].key) != "$[MeanSDLink]") continue;
    const CString directory = AfxGetApp()->GetProfileString("DB_DIR", "ANAITEMPATH", "");
    if (directory.IsEmpty()) return {};
    return directory + "\\CalcForm_Model\\" + CString(field_text(links[i].value));
  }
  return {};
}

int CCephCalc::GetSDU(double value, double mean, double sd) {
  return framework::to_int(GetDoubleSDU(value, mean, sd));
}

double CCephCalc::GetDoubleSDU(double value, double mean, double sd) {
  return sd == 0.0 ? 0.0 : (value - mean) / sd;
}

double CCephCalc::GetDentalAge(const char *code) {
  return analysis::dental_stage(code ? code : "");
}

int CCephCalc::GetStage(const char *path, int sex, double age, double dentalStage, CString &name) {
  name.Empty();
  if (!path || *path == '\0') return 0;
  const std::optional<DefinitionFile> file = DefinitionFile::read(path);
  if (!file) return 0;
  const std::vector<analysis::Stage> stages = analysis::stages(*file, sex);
  const std::optional<std::size_t> match = stage_index(stages, age, dentalStage);
  if (!match) return 0;
  name = CString(stages[*match].name);
  return static_cast<int>(*match);
}

int CCephCalc::SetStageList(int mode, CComboBox *combo, int fileIndex, int sex, double age,
                            double dentalStage, int set, const char *selectName) {
  if (!combo) return 0;
  combo->ResetContent();
  const std::optional<DefinitionFile> file =
      DefinitionFile::read(analysis::definition_path(Mode{mode}, fileIndex).c_str());
  if (!file) return 0;
  const auto stages =
      analysis::stages(*file, sex, set == 2 ? analysis::StageSet::second : analysis::StageSet::first);
  std::size_t selected = stage_index(stages, age, dentalStage).value_or(0);
  for (std::size_t i = 0; i < stages.size(); ++i) {
    combo->AddString(stages[i].name.c_str());
    if (selectName && *selectName != '\0' && stages[i].name == selectName) selected = i;
  }
  combo->SetCurSel(static_cast<int>(selected));
  return static_cast<int>(stages.size());
}

int CCephCalc::Get_RickettsStage(int sex, double age, double second) {
  const std::optional<DefinitionFile> file =
      DefinitionFile::read(analysis::definition_path(Mode::lateral, analysis::lateral_norm_file).c_str());
  if (!file) return 0;
  return static_cast<int>(stage_index(analysis::numeric_stages(*file, sex), age, second).value_or(0));
}

double CCephCalc::Get_RickettsParam(tagPOINTLAT *points, int itemIndex, int sex, int ageCode,
                                    double magnification, unsigned int /*reserved*/, char *nameOut,
                                    double *valueOut, double *sdOut, double *meanOut) {
  const std::optional<Analysis> file =
      Analysis::load(Mode::lateral, analysis::lateral_norm_file, Analysis::Diagnosis::no);
  if (!file) return 0.0;
  const auto items = file->items();
  int number = itemIndex;
  const auto found = std::find_if(items.begin(), items.end(), [&](const analysis::Item &item) {
    return item.listed && !item.heading && number-- == 0;
  });
  if (itemIndex < 0 || found == items.end()) return 0.0;
  const auto index = static_cast<std::size_t>(found - items.begin());
  const Tracing tracing(Mode::lateral, points, nullptr, nullptr, nullptr, nullptr);
  Evaluator evaluator(tracing, Patient{sex, ageCode, magnification}, &*file, Evaluator::Reasons::ignore);
  const double value = evaluator.run(file->compiled().program, file->compiled().plans[index].formula);
  const std::optional<double> mean = evaluator.norm_number(index, NormKind::mean);
  const std::optional<double> sd = evaluator.norm_number(index, NormKind::sd);
  if (nameOut) {
    std::memcpy(nameOut, found->text.data(), found->text.size());
    nameOut[found->text.size()] = '\0';
  }
  if (valueOut) *valueOut = value;
  if (sdOut) *sdOut = sd.value_or(0.0);
  if (meanOut) *meanOut = mean.value_or(0.0);
  return mean && sd ? GetDoubleSDU(value, *mean, *sd) : 0.0;
}
