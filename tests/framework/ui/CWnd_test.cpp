#include "tool/framework/ui/CWnd.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(DialogItems, belongToTheDialogOrToAControl) {
  auto dialog = std::make_unique<CWnd>();
  CString text = "x";
  EXPECT_EQ(dialog->GetDlgItem(1), nullptr);
  EXPECT_EQ(dialog->GetDlgItemText(1, text), 0);
  dialog->SetDlgItemText(1, "first");
  CWnd control, other;
  EXPECT_TRUE(control.SubclassDlgItem(1, dialog.get()));
  EXPECT_EQ(dialog->GetDlgItem(1), &control);
  control.GetWindowText(text);
  EXPECT_EQ(text, "first");
  EXPECT_FALSE(control.SubclassDlgItem(2, dialog.get()));  // an item already
  EXPECT_FALSE(other.SubclassDlgItem(1, dialog.get()));    // taken
  EXPECT_FALSE(other.SubclassDlgItem(2, nullptr));
  {
    CWnd passing;
    EXPECT_TRUE(passing.SubclassDlgItem(2, dialog.get()));
  }
  EXPECT_EQ(dialog->GetDlgItem(2), nullptr);
  dialog.reset();
  CWnd second;
  EXPECT_TRUE(control.SubclassDlgItem(1, &second));
}

TEST(DialogItems, readNumbers) {
  struct Row {
    const char *text;
    BOOL is_signed;
    UINT number;
    BOOL translated;
  };
  const Row rows[] = {{"12", TRUE, 12, TRUE},         {" \t-12", TRUE, static_cast<UINT>(-12), TRUE},
                      {"+7x", TRUE, 7, TRUE},         {"", TRUE, 0, FALSE},
                      {"x7", TRUE, 0, FALSE},         {"- 7", TRUE, 0, FALSE},
                      {"2147483648", TRUE, 0, FALSE}, {"2147483648", FALSE, 2147483648U, TRUE},
                      {"-1", FALSE, 0, FALSE},        {"99999999999999999999", FALSE, 0, FALSE}};
  CWnd dialog;
  for (const Row &row : rows) {
    dialog.SetDlgItemText(1, row.text);
    BOOL translated = 7;
    EXPECT_EQ(dialog.GetDlgItemInt(1, &translated, row.is_signed), row.number) << row.text;
    EXPECT_EQ(translated, row.translated) << row.text;
  }
  dialog.SetDlgItemInt(1, static_cast<UINT>(-3));
  EXPECT_EQ(static_cast<int>(dialog.GetDlgItemInt(1)), -3);
  dialog.SetDlgItemInt(1, 4000000000U, FALSE);
  EXPECT_EQ(dialog.GetDlgItemInt(1, nullptr, FALSE), 4000000000U);
}

}  // namespace
