#pragma once
// The framework's list control in report view, as a model: columns, rows, texts, item data and selection,
// without any window. Rows, columns and sub-items count from 0; sub-item 0 is the item's own text.

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tool/framework/text/CString.h"
#include "tool/framework/types.h"
#include "tool/framework/ui/CWnd.h"

inline constexpr int LVCFMT_LEFT = 0;
inline constexpr int LVCFMT_RIGHT = 1;
inline constexpr int LVCFMT_CENTER = 2;

inline constexpr UINT LVIS_FOCUSED = 1;
inline constexpr UINT LVIS_SELECTED = 2;

inline constexpr int LVNI_ALL = 0;
inline constexpr int LVNI_FOCUSED = 1;
inline constexpr int LVNI_SELECTED = 2;

inline constexpr UINT LVFI_PARAM = 1;
inline constexpr UINT LVFI_STRING = 2;
inline constexpr UINT LVFI_PARTIAL = 8;
inline constexpr UINT LVFI_WRAP = 0x20;

/// What to look for; the members that `flags` names count.
struct LVFINDINFO {
  UINT flags;
  LPCSTR psz;
  LPARAM lParam;
};

using PFNLVCOMPARE = int (*)(LPARAM first, LPARAM second, LPARAM data);

class CListCtrl : public CWnd {
 public:
  // Columns
  /// Position of the new column: `index`, or the end for a larger one; -1 for a negative one. Sub-items from
  /// there on move with their columns. A width of -1 means none was given and reads 0.
  int InsertColumn(int index, const char *heading, int format = LVCFMT_LEFT, int width = -1,
                   int sub_item = -1);
  BOOL DeleteColumn(int index);  ///< with its texts
  int GetColumnCount() const { return static_cast<int>(columns_.size()); }
  int GetColumnWidth(int index) const;  ///< pixels; 0 for a missing column
  BOOL SetColumnWidth(int index, int width);
  CString GetColumnText(int index) const;
  int GetColumnFormat(int index) const;

  // Rows
  int GetItemCount() const { return static_cast<int>(rows_.size()); }
  /// The new row's position: an index beyond the end appends; -1 for a negative one.
  int InsertItem(int index, const char *text) { return insert_item(index, text ? text : std::string_view()); }
  int InsertItem(int index, const char *text, int image) {
    return static_cast<void>(image), InsertItem(index, text);
  }
  BOOL DeleteItem(int index);
  BOOL DeleteAllItems();
  /// FALSE for a missing row or a negative sub-item. A sub-item without a column is kept too, up to
  /// `most_sub_items`.
  BOOL SetItemText(int row, int sub_item, const char *text) {
    return set_item_text(row, sub_item, text ? text : std::string_view());
  }
  CString GetItemText(int row, int sub_item) const { return CString(item_text(row, sub_item)); }
  /// Cut to `size` - 1 bytes; the length written.
  int GetItemText(int row, int sub_item, char *text, int size) const;
  BOOL SetItemData(int row, DWORD_PTR data);
  DWORD_PTR GetItemData(int row) const;  ///< 0 until set, and for a missing row

  // State and search
  UINT GetItemState(int row, UINT mask) const;
  BOOL SetItemState(int row, UINT state, UINT mask);  ///< row -1: every row
  /// The next row after `row` (-1: from the first) with the wanted LVNI_... states, or -1.
  int GetNextItem(int row, int flags) const;
  UINT GetSelectedCount() const;
  int GetSelectionMark() const { return selection_mark_; }
  int SetSelectionMark(int row);
  /// The first row after `start` (-1: from the first) that matches, letter case ignored; or -1.
  int FindItem(const LVFINDINFO *wanted, int start = -1) const;

  /// Sorts rows by their item data: row a comes before row b exactly where compare(data of b, data of a) > 0.
  /// Rows that neither precedes keep their order.
  BOOL SortItems(PFNLVCOMPARE compare, DWORD_PTR data);

  // The same texts for the library, without copies
  static constexpr int most_sub_items = 4096;
  int insert_item(int index, std::string_view text);
  BOOL set_item_text(int row, int sub_item, std::string_view text);
  /// Empty for a missing row or sub-item; valid until the list changes.
  std::string_view item_text(int row, int sub_item) const;
  /// A whole row with its first texts and its item data, at `index` or the end; -1 for a negative index.
  int insert_row(int index, std::span<const std::string_view> texts, DWORD_PTR data);
  void reserve(int rows) { rows_.reserve(static_cast<std::size_t>(rows > 0 ? rows : 0)); }

 private:
  struct Column {
    CString heading;
    int format;
    int width;
  };
  struct Row {
    std::vector<std::string> texts;
    DWORD_PTR data = 0;
    UINT state = 0;
  };

  const Row *row_at(int index) const;
  Row *row_at(int index);
  const Column *column_at(int index) const;

  std::vector<Column> columns_;
  std::vector<Row> rows_;
  std::vector<std::vector<std::string>> spare_texts_;  ///< emptied, for rows to come
  int selection_mark_ = -1;
};
