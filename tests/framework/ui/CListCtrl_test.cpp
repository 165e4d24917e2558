#include "tool/framework/ui/CListCtrl.h"

#include <gtest/gtest.h>

#include "tool/framework/ui/CComboBox.h"

namespace {

std::string column(const CListCtrl &list, int sub_item) {
  std::string joined;
  for (int row = 0; row < list.GetItemCount(); ++row) joined += list.GetItemText(row, sub_item).str() + " ";
  return joined;
}

TEST(ListCtrl, insertsRowsWhereAsked) {
  CListCtrl list;
  struct Row {
    int at;
    const char *text;
    int placed;
  };
  for (const Row &row :
       {Row{5, "b", 0}, Row{0, "a", 0}, Row{2, "d", 2}, Row{2, nullptr, 2}, Row{-1, "x", -1}})
    EXPECT_EQ(list.InsertItem(row.at, row.text), row.placed) << row.at;
  EXPECT_EQ(column(list, 0), "a b  d ");
  EXPECT_TRUE(list.DeleteItem(2));
  EXPECT_FALSE(list.DeleteItem(3));
  EXPECT_EQ(column(list, 0), "a b d ");
}

TEST(ListCtrl, keepsTextsWithAndWithoutColumns) {
  CListCtrl list;
  list.InsertColumn(0, "Item", LVCFMT_LEFT, 100);
  list.InsertItem(0, "N");
  EXPECT_TRUE(list.SetItemText(0, 3, "value"));
  for (const auto &[row, sub_item] : {std::pair{1, 0}, {-1, 0}, {0, -1}, {0, 0x7FFFFFFF}})
    EXPECT_FALSE(list.SetItemText(row, sub_item, "x"));
  for (const auto &[row, sub_item] : {std::pair{1, 0}, {-1, 0}, {0, -1}, {0, 0x7FFFFFFF}, {0, 2}, {0, 9}})
    EXPECT_EQ(list.GetItemText(row, sub_item), "");
  char buffer[4] = "???";
  EXPECT_EQ(list.GetItemText(0, 3, buffer, 4), 3);
  EXPECT_STREQ(buffer, "val");
  EXPECT_EQ(list.GetItemText(7, 0, buffer, 4), 0);
  EXPECT_STREQ(buffer, "");
}

TEST(ListCtrl, columnsMoveWithTheirTexts) {
  CListCtrl list;
  EXPECT_EQ(list.InsertColumn(0, "a"), 0);
  EXPECT_EQ(list.InsertColumn(9, "c", LVCFMT_RIGHT, 30), 1);
  EXPECT_EQ(list.InsertColumn(-1, "x"), -1);
  list.InsertItem(0, "A");
  list.SetItemText(0, 1, "C");
  EXPECT_EQ(list.InsertColumn(1, "b", LVCFMT_CENTER, 20), 1);
  EXPECT_EQ(list.GetItemText(0, 1), "");
  EXPECT_EQ(list.GetItemText(0, 2), "C");
  EXPECT_EQ(list.GetColumnCount(), 3);
  EXPECT_EQ(list.GetColumnWidth(0), 0);
  EXPECT_EQ(list.GetColumnWidth(2), 30);
  EXPECT_EQ(list.GetColumnFormat(2), LVCFMT_RIGHT);
  EXPECT_TRUE(list.SetColumnWidth(2, 40));
  EXPECT_FALSE(list.SetColumnWidth(3, 40));
  EXPECT_TRUE(list.DeleteColumn(0));
  EXPECT_FALSE(list.DeleteColumn(2));
  EXPECT_EQ(list.GetColumnText(0), "b");
  EXPECT_EQ(list.GetColumnWidth(1), 40);
  EXPECT_EQ(list.GetItemText(0, 1), "C");
}

TEST(ListCtrl, keepsItemData) {
  CListCtrl list;
  list.InsertItem(0, "a");
  EXPECT_EQ(list.GetItemData(0), 0u);
  EXPECT_TRUE(list.SetItemData(0, ~DWORD_PTR{0}));
  EXPECT_FALSE(list.SetItemData(1, 1));
  EXPECT_EQ(list.GetItemData(1), 0u);
  list.InsertItem(0, "before");
  EXPECT_EQ(list.GetItemData(1), ~DWORD_PTR{0});
  EXPECT_TRUE(list.DeleteAllItems());
  EXPECT_EQ(list.GetItemCount(), 0);
}

TEST(ListCtrl, walksSelectedRows) {
  CListCtrl list;
  for (int i = 0; i < 5; ++i) list.InsertItem(i, "x");
  for (const int row : {1, 3})
    list.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  struct Row {
    int from;
    UINT flags;
    int next;
  };
  // the focus has moved on to the second of them
  for (const Row &row :
       {Row{-1, LVNI_SELECTED, 1}, Row{1, LVNI_SELECTED, 3}, Row{3, LVNI_SELECTED, -1},
        Row{-1, LVNI_FOCUSED, 3}, Row{-1, LVNI_ALL, 0}, Row{4, LVNI_ALL, -1}, Row{0x7FFFFFFF, LVNI_ALL, -1}})
    EXPECT_EQ(list.GetNextItem(row.from, static_cast<int>(row.flags)), row.next) << row.from;
  list.DeleteItem(0);
  EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 0);
  list.SetItemState(-1, 0, LVIS_SELECTED);
  EXPECT_EQ(list.GetSelectedCount(), 0u);
  EXPECT_FALSE(list.SetItemState(9, 0, LVIS_SELECTED));
}

TEST(ListCtrl, findsRows) {
  CListCtrl list;
  for (const char *text : {"Alpha", "beta", "ALPHABET"}) list.InsertItem(list.GetItemCount(), text);
  list.SetItemData(1, 42);
  struct Row {
    LVFINDINFO wanted;
    int after, found;
  };
  for (const Row &row :
       {Row{{LVFI_STRING, "alpha", 0}, -1, 0}, Row{{LVFI_STRING, "alpha", 0}, 0, -1},
        Row{{LVFI_STRING | LVFI_WRAP, "alpha", 0}, 0, 0}, Row{{LVFI_STRING | LVFI_PARTIAL, "alpha", 0}, 0, 2},
        Row{{LVFI_PARAM, nullptr, 42}, -1, 1}, Row{{LVFI_PARAM, nullptr, 42}, 99, -1}}) {
    EXPECT_EQ(list.FindItem(&row.wanted, row.after), row.found);
    EXPECT_EQ(CListCtrl().FindItem(&row.wanted), -1);
  }
}

TEST(ListCtrl, sortsByItemDataAndKeepsEqualRowsInOrder) {
  CListCtrl list;
  const std::pair<const char *, int> rows[] = {{"b1", 2}, {"a1", 1}, {"b2", 2}, {"c", 3}, {"a2", 1}};
  for (const auto &[text, data] : rows)
    list.SetItemData(list.InsertItem(list.GetItemCount(), text), static_cast<DWORD_PTR>(data));
  const PFNLVCOMPARE ascending = [](LPARAM a, LPARAM b, LPARAM sign) {
    return static_cast<int>((a - b) * sign);
  };
  EXPECT_TRUE(list.SortItems(ascending, 1));
  EXPECT_EQ(column(list, 0), "a1 a2 b1 b2 c ");
  EXPECT_TRUE(list.SortItems(ascending, static_cast<DWORD_PTR>(-1)));
  EXPECT_EQ(column(list, 0), "c b1 b2 a1 a2 ");
  // A callback that only tells "comes after" (1) from "stays" (0): less(a, b) is compare(b, a) > 0.
  EXPECT_TRUE(list.SortItems([](LPARAM a, LPARAM b, LPARAM) { return a > b ? 1 : 0; }, 0));
  EXPECT_EQ(column(list, 0), "a1 a2 b1 b2 c ");
  EXPECT_FALSE(list.SortItems(nullptr, 0));
}

TEST(ComboBox, keepsTextsDataAndSelection) {
  CComboBox combo;
  EXPECT_EQ(combo.GetCurSel(), CB_ERR);
  EXPECT_EQ(combo.AddString("b"), 0);
  EXPECT_EQ(combo.AddString("d"), 1);
  EXPECT_EQ(combo.SetCurSel(1), 1);
  EXPECT_EQ(combo.InsertString(0, "a"), 0);
  EXPECT_EQ(combo.GetCurSel(), 2);  // the same text stays selected
  EXPECT_EQ(combo.InsertString(-1, "e"), 3);
  EXPECT_EQ(combo.SetItemData(1, 7), 0);
  EXPECT_EQ(combo.DeleteString(0), 3);
  for (const int answer : {combo.InsertString(9, "x"), combo.SetItemData(9, 7), combo.DeleteString(9),
                           static_cast<int>(combo.GetItemData(9)), CComboBox().SetCurSel(0)})
    EXPECT_EQ(answer, CB_ERR);
  EXPECT_EQ(combo.GetItemData(0), 7u);
  EXPECT_EQ(combo.GetItemData(1), 0u);
  EXPECT_EQ(combo.GetCurSel(), 1);
  EXPECT_EQ(combo.DeleteString(1), 2);
  EXPECT_EQ(combo.GetCurSel(), CB_ERR);
  combo.SetCurSel(0);
  combo.ResetContent();
  EXPECT_EQ(combo.GetCount(), 0);
  EXPECT_EQ(combo.GetCurSel(), CB_ERR);
}

TEST(ComboBox, givesAndFindsTexts) {
  CComboBox combo;
  for (const char *text : {"one", "Two", "twofold", "two"}) combo.AddString(text);
  char buffer[8];
  EXPECT_EQ(combo.GetLBText(2, buffer), 7);
  EXPECT_STREQ(buffer, "twofold");
  EXPECT_EQ(combo.GetLBText(9, buffer), CB_ERR);
  CString text("before");
  combo.GetLBText(9, text);
  EXPECT_EQ(text, "");
  EXPECT_EQ(combo.GetLBTextLen(0), 3);
  EXPECT_EQ(combo.GetLBTextLen(-1), CB_ERR);
  EXPECT_EQ(combo.FindStringExact(-1, "TWO"), 1);
  EXPECT_EQ(combo.FindStringExact(1, "two"), 3);
  EXPECT_EQ(combo.FindStringExact(3, "two"), 1);  // round the end
  EXPECT_EQ(combo.FindStringExact(0, "three"), CB_ERR);
  EXPECT_EQ(combo.SelectString(1, "tw"), 2);
  EXPECT_EQ(combo.GetCurSel(), 2);
  EXPECT_FALSE(combo.EnableWindow(FALSE));
  EXPECT_FALSE(combo.IsWindowEnabled());
  EXPECT_TRUE(combo.EnableWindow());
}

TEST(Wnd, keepsPlaceAndText) {
  CWnd window;
  window.MoveWindow(10, 20, 300, 200);
  EXPECT_FALSE(window.ShowWindow(SW_SHOWMAXIMIZED));
  EXPECT_TRUE(window.ShowWindow(SW_RESTORE));
  EXPECT_FALSE(window.IsZoomed());
  CRect inside;
  window.GetClientRect(&inside);
  EXPECT_EQ(inside, CRect(0, 0, 300, 200));
  window.SetWindowText("title");
  char text[4];
  EXPECT_EQ(window.GetWindowText(text, 4), 3);
  EXPECT_STREQ(text, "tit");
}

}  // namespace
