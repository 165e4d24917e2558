#pragma once
// What a window is without being shown: its text, place and state. It works with no desktop at all.

#include <map>
#include <memory>

#include "tool/framework/text/CString.h"
#include "tool/framework/types.h"

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOWMINIMIZED = 2;
inline constexpr int SW_SHOWMAXIMIZED = 3;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_RESTORE = 9;

inline constexpr UINT WPF_SETMINPOSITION = 1;

/// Where a window lies in its three states, screen pixels.
struct WINDOWPLACEMENT {
  UINT length;   ///< of this structure
  UINT flags;    ///< WPF_...
  UINT showCmd;  ///< SW_SHOWNORMAL, SW_SHOWMINIMIZED or SW_SHOWMAXIMIZED
  POINT ptMinPosition;
  POINT ptMaxPosition;
  RECT rcNormalPosition;
};

class CWnd {
 public:
  CWnd() = default;
  virtual ~CWnd();
  CWnd(const CWnd &) = delete;
  CWnd &operator=(const CWnd &) = delete;

  BOOL GetWindowPlacement(WINDOWPLACEMENT *placement) const;
  BOOL SetWindowPlacement(const WINDOWPLACEMENT *placement);
  /// One of SW_...; tells whether the window was visible before.
  BOOL ShowWindow(int command);
  BOOL IsWindowVisible() const { return visible_; }
  BOOL IsZoomed() const { return placement_.showCmd == SW_SHOWMAXIMIZED; }
  BOOL IsIconic() const { return placement_.showCmd == SW_SHOWMINIMIZED; }

  void GetWindowRect(RECT *rect) const { *rect = placement_.rcNormalPosition; }
  /// The inside, its corner at (0, 0).
  void GetClientRect(RECT *rect) const;
  void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
  void MoveWindow(const RECT *rect, BOOL repaint = TRUE);

  /// Tells whether the window was disabled before.
  BOOL EnableWindow(BOOL enable = TRUE);
  BOOL IsWindowEnabled() const { return enabled_; }

  void SetWindowText(const char *text) { text_ = text; }
  void GetWindowText(CString &text) const { text = text_; }
  /// Cut to `size` - 1 bytes; the length written.
  int GetWindowText(char *text, int size) const;
  int GetWindowTextLength() const { return text_.GetLength(); }

  // Items of a dialog, by id
  // -------------------------------------------------------------------------------------------------------
  // Without a dialog resource an item comes into being when its text is set, or when a control is made one.

  /// Makes this control an item of a dialog, in place of the one of that id, whose text it takes over. FALSE
  /// when it is an item already or the id belongs to another control.
  BOOL SubclassDlgItem(UINT id, CWnd *dialog);
  CWnd *GetDlgItem(int id) const;  ///< null: there is none
  void SetDlgItemText(int id, const char *text);
  int GetDlgItemText(int id, CString &text) const;  ///< its length; empty without such an item
  void SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE);
  /// The whole number that an item's text begins with, after blanks. 0, with `translated` FALSE, when it
  /// begins with none, when 32 bits do not hold it, and without such an item.
  UINT GetDlgItemInt(int id, BOOL *translated = nullptr, BOOL isSigned = TRUE) const;

 private:
  struct DialogItem {
    CWnd *control;
    std::unique_ptr<CWnd> own;  ///< set while no control of the caller has taken its place
  };

  CString text_;
  WINDOWPLACEMENT placement_{sizeof(WINDOWPLACEMENT), 0, SW_SHOWNORMAL, {-1, -1}, {-1, -1}, {0, 0, 0, 0}};
  BOOL visible_ = FALSE;
  BOOL enabled_ = TRUE;
  CWnd *dialog_ = nullptr;  ///< the dialog whose item this is
  int dialog_id_ = 0;
  std::map<int, DialogItem> items_;
};
