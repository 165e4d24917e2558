// CCephCalc: definition files and display settings.

#include <cstring>

#include "tool/analysis/definition_file.h"
#include "tool/analysis/definition_folder.h"
#include "tool/analysis/display_settings.h"
#include "tool/api/CCephCalc.h"
#include "tool/framework/files/read_file.h"
#include "tool/framework/ui/CComboBox.h"

using analysis::DefinitionFile;
using analysis::Mode;

CString CCephCalc::FormFile(int mode, int index) {
  return CString(analysis::definition_path(Mode{mode}, index));
}

CString CCephCalc::CalcModeFile(int mode, int index) {
  return CString(analysis::display_setting_path(Mode{mode}, index));
}

int CCephCalc::Str_Check(const char *line) {
  return line ? static_cast<int>(analysis::classify_line(line)) : 0;
}

CString CCephCalc::Get_Title(const char *path) {
  const std::optional<DefinitionFile> file = DefinitionFile::read(path);
  return file ? CString(file->title()) : CString();
}

CString CCephCalc::GetComment(int mode, int index) {
  const std::optional<DefinitionFile> file =
      DefinitionFile::read(analysis::definition_path(Mode{mode}, index).c_str());
  return file ? CString(file->comment()) : CString();
}

CString CCephCalc::Get_NumStr(char *list, int index) {  // NOLINT(readability-non-const-parameter): published
  return list ? CString(analysis::list_field(list, index)) : CString();
}

void CCephCalc::GetType(char *formula, int *kind, int *flag) {
  const analysis::KindSuffix suffix = analysis::split_kind_suffix(formula ? formula : "");
  if (kind) *kind = suffix.kind;
  if (flag) *flag = suffix.display_flag;
  if (formula)
    std::memset(formula + suffix.formula.size(), '\0', std::strlen(formula) - suffix.formula.size());
}

void CCephCalc::SetCalcMode(int mode, CComboBox *combo) {
  if (!combo) return;
  for (const analysis::DisplayListEntry &entry : analysis::display_setting_list(Mode{mode})) {
    const CString title = Get_Title(entry.path.c_str());
    if (title.IsEmpty()) continue;
    combo->SetItemData(combo->AddString(title), static_cast<DWORD_PTR>(entry.number));
  }
  combo->SetCurSel(0);
  if (combo->GetCount() < 2) combo->EnableWindow(FALSE);
}

void CCephCalc::ReadCalcMode(const char *path, void *segments, CStringArray *points, CStringArray *labels,
                             CStringArray *pointSettings) {
  std::optional<std::string> text = framework::read_whole_file(path);
  if (!text) return;
  const analysis::DisplaySettings settings = analysis::parse_display_settings(std::move(*text));
  if (segments && !settings.segments.empty()) {
    std::memcpy(segments, settings.segments.data(),
                settings.segments.size() * sizeof(analysis::DisplaySegment));
  }
  const auto append = [](CStringArray *target, const std::vector<std::string> &texts) {
    if (!target) return;
    for (const std::string &one : texts) target->Add(CString(one));
  };
  append(points, settings.points);
  append(labels, settings.labels);
  append(pointSettings, settings.point_settings);
}

int CCephCalc::CheckCalcModePoint(CStringArray *points, const char *name) {
  if (!points || points->GetSize() == 0) return 1;
  for (int i = 0; i < points->GetSize(); ++i) {
    if (name && points->GetAt(i) == name) return 1;
  }
  return 0;
}
