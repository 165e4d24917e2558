#include "tool/framework/ui/CComboBox.h"

#include "tool/framework/text/copy_text.h"
#include "tool/framework/text/cp932.h"

const CComboBox::Item *CComboBox::item_at(int index) const {
  return index >= 0 && index < GetCount() ? &items_[static_cast<std::size_t>(index)] : nullptr;
}

int CComboBox::InsertString(int index, const char *text) {
  if (index < -1 || index > GetCount()) return CB_ERR;
  const int position = index == -1 ? GetCount() : index;
  items_.insert(items_.begin() + position, Item{text, 0});
  if (selected_ >= position) ++selected_;
  return position;
}

int CComboBox::DeleteString(UINT index) {
  if (index >= items_.size()) return CB_ERR;
  const int position = static_cast<int>(index);
  items_.erase(items_.begin() + position);
  if (selected_ == position) selected_ = CB_ERR;
  if (selected_ > position) --selected_;
  return GetCount();
}

void CComboBox::ResetContent() {
  items_.clear();
  selected_ = CB_ERR;
}

int CComboBox::SetCurSel(int index) {
  selected_ = item_at(index) ? index : CB_ERR;
  return selected_;
}

int CComboBox::GetLBText(int index, char *text) const {
  const Item *item = item_at(index);
  if (!item) return CB_ERR;
  return framework::copy_text(item->text.view(), text, item->text.GetLength() + 1);
}

void CComboBox::GetLBText(int index, CString &text) const {
  const Item *item = item_at(index);
  text = item ? item->text : CString();
}

int CComboBox::GetLBTextLen(int index) const {
  const Item *item = item_at(index);
  return item ? item->text.GetLength() : CB_ERR;
}

int CComboBox::SetItemData(int index, DWORD_PTR data) {
  if (!item_at(index)) return CB_ERR;
  items_[static_cast<std::size_t>(index)].data = data;
  return 0;
}

DWORD_PTR CComboBox::GetItemData(int index) const {
  const Item *item = item_at(index);
  return item ? item->data : static_cast<DWORD_PTR>(CB_ERR);
}

int CComboBox::find(int start, const char *text, bool whole) const {
  const std::string_view wanted = text ? text : "";
  const int first = item_at(start) ? start + 1 : 0;
  for (int i = 0; i < GetCount(); ++i) {
    const int position = (first + i) % GetCount();
    std::string_view own = items_[static_cast<std::size_t>(position)].text.view();
    if (!whole) own = own.substr(0, wanted.size());
    if (framework::equal_ignoring_case(own, wanted)) return position;
  }
  return CB_ERR;
}

int CComboBox::SelectString(int start, const char *text) {
  const int found = FindString(start, text);
  return found == CB_ERR ? CB_ERR : SetCurSel(found);
}
