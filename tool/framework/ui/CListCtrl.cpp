#include "tool/framework/ui/CListCtrl.h"

#include <algorithm>

#include "tool/framework/text/copy_text.h"
#include "tool/framework/text/cp932.h"

const CListCtrl::Row *CListCtrl::row_at(int index) const {
  return index >= 0 && index < GetItemCount() ? &rows_[static_cast<std::size_t>(index)] : nullptr;
}

CListCtrl::Row *CListCtrl::row_at(int index) {
  return index >= 0 && index < GetItemCount() ? &rows_[static_cast<std::size_t>(index)] : nullptr;
}

const CListCtrl::Column *CListCtrl::column_at(int index) const {
  return index >= 0 && index < GetColumnCount() ? &columns_[static_cast<std::size_t>(index)] : nullptr;
}

int CListCtrl::InsertColumn(int index, const char *heading, int format, int width, int) {
  if (index < 0) return -1;
  const int position = std::min(index, GetColumnCount());
  if (position < GetColumnCount())
    for (Row &row : rows_)
      if (position < static_cast<int>(row.texts.size())) row.texts.emplace(row.texts.begin() + position);
  columns_.insert(columns_.begin() + position, Column{heading, format, std::max(width, 0)});
  return position;
}

BOOL CListCtrl::DeleteColumn(int index) {
  if (!column_at(index)) return FALSE;
  columns_.erase(columns_.begin() + index);
  for (Row &row : rows_)
    if (index < static_cast<int>(row.texts.size())) row.texts.erase(row.texts.begin() + index);
  return TRUE;
}

int CListCtrl::GetColumnWidth(int index) const {
  const Column *column = column_at(index);
  return column ? column->width : 0;
}

BOOL CListCtrl::SetColumnWidth(int index, int width) {
  if (!column_at(index)) return FALSE;
  columns_[static_cast<std::size_t>(index)].width = std::max(width, 0);
  return TRUE;
}

CString CListCtrl::GetColumnText(int index) const {
  const Column *column = column_at(index);
  return column ? column->heading : CString();
}

int CListCtrl::GetColumnFormat(int index) const {
  const Column *column = column_at(index);
  return column ? column->format : LVCFMT_LEFT;
}

int CListCtrl::insert_item(int index, std::string_view text) {
  return insert_row(index, {&text, 1}, 0);
}

int CListCtrl::insert_row(int index, std::span<const std::string_view> texts, DWORD_PTR data) {
  if (index < 0) return -1;
  const int position = std::min(index, GetItemCount());
  Row &row = *rows_.emplace(rows_.begin() + position);
  if (!spare_texts_.empty()) {
    row.texts = std::move(spare_texts_.back());
    spare_texts_.pop_back();
  }
  row.texts.reserve(std::max({columns_.size(), texts.size(), std::size_t{4}}));
  for (const std::string_view text : texts) row.texts.emplace_back(text);
  row.data = data;
  return position;
}

BOOL CListCtrl::DeleteItem(int index) {
  if (!row_at(index)) return FALSE;
  rows_.erase(rows_.begin() + index);
  return TRUE;
}

BOOL CListCtrl::DeleteAllItems() {
  // A list that is emptied is mostly filled again at once: a screenful of rows leaves its memory.
  constexpr std::size_t most_spare_rows = 256;
  for (Row &row : rows_) {
    if (spare_texts_.size() >= most_spare_rows) break;
    row.texts.clear();
    spare_texts_.push_back(std::move(row.texts));
  }
  rows_.clear();
  selection_mark_ = -1;
  return TRUE;
}

BOOL CListCtrl::set_item_text(int row, int sub_item, std::string_view text) {
  Row *found = row_at(row);
  if (!found || sub_item < 0 || sub_item >= most_sub_items) return FALSE;
  const auto position = static_cast<std::size_t>(sub_item);
  if (position >= found->texts.size()) {
    if (text.empty()) return TRUE;
    found->texts.resize(position + 1);
  }
  found->texts[position] = text;
  return TRUE;
}

std::string_view CListCtrl::item_text(int row, int sub_item) const {
  const Row *found = row_at(row);
  if (!found || sub_item < 0 || sub_item >= static_cast<int>(found->texts.size())) return {};
  return found->texts[static_cast<std::size_t>(sub_item)];
}

int CListCtrl::GetItemText(int row, int sub_item, char *text, int size) const {
  return framework::copy_text(item_text(row, sub_item), text, size);
}

BOOL CListCtrl::SetItemData(int row, DWORD_PTR data) {
  Row *found = row_at(row);
  if (!found) return FALSE;
  found->data = data;
  return TRUE;
}

DWORD_PTR CListCtrl::GetItemData(int row) const {
  const Row *found = row_at(row);
  return found ? found->data : 0;
}

UINT CListCtrl::GetItemState(int row, UINT mask) const {
  const Row *found = row_at(row);
  return found ? found->state & mask : 0;
}

BOOL CListCtrl::SetItemState(int row, UINT state, UINT mask) {
  if (row != -1 && !row_at(row)) return FALSE;
  for (int i = 0; i < GetItemCount(); ++i) {
    UINT &current = rows_[static_cast<std::size_t>(i)].state;
    if (row == -1 || row == i)
      current = (current & ~mask) | (state & mask);
    else if ((state & mask & LVIS_FOCUSED) != 0)
      current &= ~LVIS_FOCUSED;  // only one row has the focus
  }
  return TRUE;
}

int CListCtrl::GetNextItem(int row, int flags) const {
  const UINT wanted =
      ((flags & LVNI_FOCUSED) != 0 ? LVIS_FOCUSED : 0U) | ((flags & LVNI_SELECTED) != 0 ? LVIS_SELECTED : 0U);
  for (int i = std::max(row, -1); i < GetItemCount() - 1; ++i)
    if (GetItemState(i + 1, wanted) == wanted) return i + 1;
  return -1;
}

UINT CListCtrl::GetSelectedCount() const {
  return static_cast<UINT>(std::count_if(rows_.begin(), rows_.end(),
                                         [](const Row &row) { return (row.state & LVIS_SELECTED) != 0; }));
}

int CListCtrl::SetSelectionMark(int row) {
  return std::exchange(selection_mark_, row);
}

int CListCtrl::FindItem(const LVFINDINFO *wanted, int start) const {
  if (!wanted) return -1;
  const std::string_view text = wanted->psz ? wanted->psz : "";
  const auto matches = [&](const Row &row) {
    if ((wanted->flags & LVFI_PARAM) != 0) return row.data == static_cast<DWORD_PTR>(wanted->lParam);
    std::string_view own = row.texts.front();
    if ((wanted->flags & LVFI_PARTIAL) != 0) own = own.substr(0, text.size());
    return framework::equal_ignoring_case(own, text);
  };
  const auto from = rows_.begin() + (std::clamp(start, -1, GetItemCount() - 1) + 1);
  auto found = std::find_if(from, rows_.end(), matches);
  if (found == rows_.end() && (wanted->flags & LVFI_WRAP) != 0) {
    found = std::find_if(rows_.begin(), from, matches);
    if (found == from) return -1;
  }
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

BOOL CListCtrl::SortItems(PFNLVCOMPARE compare, DWORD_PTR data) {
  if (!compare) return FALSE;
  const auto sort_data = static_cast<LPARAM>(data);
  std::stable_sort(rows_.begin(), rows_.end(), [&](const Row &a, const Row &b) {
    return compare(static_cast<LPARAM>(b.data), static_cast<LPARAM>(a.data), sort_data) > 0;
  });
  return TRUE;
}
