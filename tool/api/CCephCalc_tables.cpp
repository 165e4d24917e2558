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

void set_text(CListCtrl &list, int row, int column, const std::string &text) {
  if (!text.empty()) list.set_item_text(row, column, text);
}

void insert_row(CListCtrl &list, int at, const analysis::TableRow &row) {
  list.insert_item(at, row.item);
  set_text(list, at, 1, row.mean);
  set_text(list, at, 2, row.sd);
  set_text(list, at, 3, row.value);
  set_text(list, at, 4, row.second_value);
  if (row.display_flag) list.SetItemData(at, static_cast<DWORD_PTR>(*row.display_flag));
}

void insert_row(CListCtrl &list, int at, const analysis::SurgeryRow &row) {
  list.insert_item(at, row.item);
  set_text(list, at, 1, row.before.value);
  set_text(list, at, 2, row.before.mark);
  set_text(list, at, 3, row.after.value);
  set_text(list, at, 4, row.after.mark);
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
