// CCephCalc: the result tables written into the caller's list control.

#include "tool/analysis/definition_folder.h"
#include "tool/analysis/result_table.h"
#include "tool/api/CCephCalc.h"
#include "tool/framework/ui/CListCtrl.h"

using analysis::Analysis;
using analysis::Mode;
using analysis::Patient;
using analysis::Tracing;

namespace {

std::optional<Analysis> load(Mode mode, int file_index) {
  return Analysis::load(mode, file_index, Analysis::Diagnosis::no);
}

/// Inserts the texts up to the last one that is not empty.
void insert_row(CListCtrl &list, int at, std::span<const std::string_view> texts, int data) {
  while (texts.size() > 1 && texts.back().empty()) texts = texts.first(texts.size() - 1);
  list.insert_row(at, texts, static_cast<DWORD_PTR>(data));
}

void insert_row(CListCtrl &list, int at, const analysis::TableRow &row) {
  const std::string_view texts[] = {row.item, row.mean, row.sd, row.value, row.second_value};
  insert_row(list, at, texts, row.display_flag.value_or(0));
}

void insert_row(CListCtrl &list, int at, const analysis::SurgeryRow &row) {
  const std::string_view texts[] = {row.item, row.before.value, row.before.mark, row.after.value,
                                    row.after.mark};
  insert_row(list, at, texts, 0);
}

}  // namespace

void CCephCalc::User_Calc(int mode, CListCtrl *list, void *record, int fileIndex, unsigned short *kCount,
                          tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints, int sex,
                          int ageCode, double magnification, int precision) {
  if (!list) return;
  const std::optional<Analysis> file = load(Mode{mode}, fileIndex);
  if (!file) return;
  const Tracing tracing(Mode{mode}, record, kCount, kPoints, uCount, uPoints);
  int at = 0;
  analysis::visit_result_rows(*file, tracing, Patient{sex, ageCode, magnification}, precision,
                              analysis::Explain::no,
                              [&](const analysis::TableRow &row) { insert_row(*list, at++, row); });
}

void CCephCalc::User_CalcSurg(CListCtrl *list, void *before, void *after, unsigned short *kCount,
                              tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints, int sex,
                              int ageCode, double magnification, int precision) {
  if (!list) return;
  list->DeleteAllItems();
  const std::optional<Analysis> file = load(Mode::surgery, 0);
  if (!file) return;
  const Tracing present(Mode::surgery, before, kCount, kPoints, uCount, uPoints);
  const Tracing planned(Mode::surgery, after, kCount, kPoints, uCount, uPoints);
  int at = 0;
  for (const analysis::SurgeryRow &row : analysis::surgery_table(
           *file, present, planned, Patient{sex, ageCode, magnification}, precision, analysis::Explain::no)) {
    insert_row(*list, at++, row);
  }
}

void CCephCalc::User_Diag(int mode, CListCtrl *list, void *record, int fileIndex, unsigned short *kCount,
                          tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints, int sex,
                          int firstColumn, int secondColumn, double magnification, int /*reserved*/) {
  if (!list) return;
  const std::optional<Analysis> file = load(Mode{mode}, fileIndex);
  if (!file) return;
  const Tracing tracing(Mode{mode}, record, kCount, kPoints, uCount, uPoints);
  const int age_code = static_cast<int>(secondColumn * 100LL + firstColumn);
  int at = 0;
  for (const std::string &sentence :
       analysis::diagnosis(*file, tracing, Patient{sex, age_code, magnification})) {
    list->InsertItem(at++, sentence.c_str());
  }
}
