#include "tool/framework/ui/CWnd.h"

#include <algorithm>

#include "tool/framework/text/copy_text.h"

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
