#pragma once
// The framework's combo box as a model: a list of texts with item data and one selected position. Failure is
// CB_ERR.

#include <vector>

#include "tool/framework/text/CString.h"
#include "tool/framework/types.h"
#include "tool/framework/ui/CWnd.h"

inline constexpr int CB_ERR = -1;

class CComboBox : public CWnd {
 public:
  int GetCount() const { return static_cast<int>(items_.size()); }
  int AddString(const char *text) { return InsertString(-1, text); }
  /// Position of the new text; index -1: the end.
  int InsertString(int index, const char *text);
  int DeleteString(UINT index);  ///< texts left
  void ResetContent();

  int GetCurSel() const { return selected_; }  ///< CB_ERR: none
  /// A position that does not exist (-1 among them) clears the selection and gives CB_ERR.
  int SetCurSel(int index);

  /// The length; the text goes to a buffer that is large enough (GetLBTextLen + 1).
  int GetLBText(int index, char *text) const;
  void GetLBText(int index, CString &text) const;  ///< empty for a missing position
  int GetLBTextLen(int index) const;
  int SetItemData(int index, DWORD_PTR data);  ///< 0 or CB_ERR
  DWORD_PTR GetItemData(int index) const;      ///< 0 until set; CB_ERR for a missing position

  /// Position of the text, letter case ignored; the search begins after `start`, goes round and ends with it.
  int FindStringExact(int start, const char *text) const { return find(start, text, true); }
  /// The same for a text that begins so.
  int FindString(int start, const char *text) const { return find(start, text, false); }
  /// Finds the beginning of a text and selects it.
  int SelectString(int start, const char *text);

 private:
  struct Item {
    CString text;
    DWORD_PTR data = 0;
  };

  const Item *item_at(int index) const;
  int find(int start, const char *text, bool whole) const;

  std::vector<Item> items_;
  int selected_ = CB_ERR;
};
