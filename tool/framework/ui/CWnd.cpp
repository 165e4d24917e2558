#include "tool/framework/ui/CWnd.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "tool/framework/text/ascii.h"
#include "tool/framework/text/copy_text.h"

namespace {

/// The number at the start of a text, held short of overflow; empty without digits.
std::optional<std::int64_t> leading_number(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size() && framework::is_space(text[at])) ++at;
  const bool negative = at < text.size() && text[at] == '-';
  if (at < text.size() && (negative || text[at] == '+')) ++at;
  if (at == text.size() || !framework::is_digit(text[at])) return std::nullopt;
  std::int64_t value = 0;
  for (; at < text.size() && framework::is_digit(text[at]); ++at)
    value = std::min<std::int64_t>(value * 10 + (text[at] - '0'), std::int64_t{1} << 40);
  return negative ? -value : value;
}

template <class Integer>
bool fits(std::int64_t value) {
  return value >= std::numeric_limits<Integer>::min() && value <= std::numeric_limits<Integer>::max();
}

}  // namespace

CWnd::~CWnd() {
  if (dialog_) dialog_->items_.erase(dialog_id_);
  for (auto &[id, item] : items_) item.control->dialog_ = nullptr;
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT *placement) const {
  if (!placement) return FALSE;
  *placement = placement_;
  return TRUE;
}

BOOL CWnd::SetWindowPlacement(const WINDOWPLACEMENT *placement) {
  if (!placement) return FALSE;
  const WINDOWPLACEMENT before = placement_;
  placement_ = *placement;
  placement_.length = sizeof(WINDOWPLACEMENT);
  placement_.showCmd = before.showCmd;
  ShowWindow(static_cast<int>(placement->showCmd));
  return TRUE;
}

BOOL CWnd::ShowWindow(int command) {
  const BOOL before = visible_;
  visible_ = command != SW_HIDE;
  if (command == SW_RESTORE) command = SW_SHOWNORMAL;
  if (command >= SW_SHOWNORMAL && command <= SW_SHOWMAXIMIZED)
    placement_.showCmd = static_cast<UINT>(command);
  return before;
}

void CWnd::GetClientRect(RECT *rect) const {
  const RECT &place = placement_.rcNormalPosition;
  *rect = RECT{0, 0, place.right - place.left, place.bottom - place.top};
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL) {
  placement_.rcNormalPosition = {x, y, x + width, y + height};
}

void CWnd::MoveWindow(const RECT *rect, BOOL) {
  placement_.rcNormalPosition = *rect;
}

BOOL CWnd::EnableWindow(BOOL enable) {
  const BOOL was_disabled = !enabled_;
  enabled_ = enable ? TRUE : FALSE;
  return was_disabled;
}

int CWnd::GetWindowText(char *text, int size) const {
  return framework::copy_text(text_.view(), text, size);
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd *dialog) {
  if (!dialog || dialog_ || dialog == this) return FALSE;
  const int key = static_cast<int>(id);
  const auto item = dialog->items_.find(key);
  if (item != dialog->items_.end()) {
    if (!item->second.own) return FALSE;
    SetWindowText(item->second.own->text_);
    item->second = {this, nullptr};
  } else {
    dialog->items_.emplace(key, DialogItem{this, nullptr});
  }
  dialog_ = dialog;
  dialog_id_ = key;
  return TRUE;
}

CWnd *CWnd::GetDlgItem(int id) const {
  const auto item = items_.find(id);
  return item == items_.end() ? nullptr : item->second.control;
}

void CWnd::SetDlgItemText(int id, const char *text) {
  CWnd *control = GetDlgItem(id);
  if (!control) {
    auto own = std::make_unique<CWnd>();
    control = own.get();
    items_.emplace(id, DialogItem{control, std::move(own)});
  }
  control->SetWindowText(text);
}

int CWnd::GetDlgItemText(int id, CString &text) const {
  const CWnd *control = GetDlgItem(id);
  text = control ? control->text_ : CString();
  return text.GetLength();
}

void CWnd::SetDlgItemInt(int id, UINT value, BOOL isSigned) {
  SetDlgItemText(id, (isSigned ? std::to_string(static_cast<int>(value)) : std::to_string(value)).c_str());
}

UINT CWnd::GetDlgItemInt(int id, BOOL *translated, BOOL isSigned) const {
  CString text;
  GetDlgItemText(id, text);
  const std::optional<std::int64_t> number = leading_number(text.view());
  const bool fitting = number && (isSigned ? fits<std::int32_t>(*number) : fits<std::uint32_t>(*number));
  if (translated) *translated = fitting ? TRUE : FALSE;
  return fitting ? static_cast<UINT>(*number) : 0;
}
