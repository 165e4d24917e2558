// A program of another project: the lateral analysis table of a few placed landmarks.
#include <tool/tool.h>

#include <cstdio>

CWinApp theApp;

int main() {
  tagPOINTLAT film{};             // landmark k of the lateral vocabulary is pt[8 + k]
  film.scale = 0.1;               // millimetres per pixel
  film.pt[8 + 1] = {900, 600};    // N
  film.pt[8 + 3] = {850, 800};    // Or
  film.pt[8 + 14] = {900, 1600};  // Pog(R)
  film.pt[8 + 24] = {500, 800};   // Po
  unsigned short none = 0;

  CListCtrl table;
  theApp.WriteProfileString("DB_DIR", "ANAITEMPATH", ANAITEM_DIR);
  CCephCalc::User_Calc(0, &table, &film, -1, &none, nullptr, &none, nullptr, 1, 0, 1.1, 1);
  for (int row = 0; row < table.GetItemCount(); ++row) {
    const CString item = table.GetItemText(row, 0);
    const CString value = table.GetItemText(row, 3);
    // The Frankfort horizontal lies level and N-Pog(R) upright: a facial depth of exactly a right angle.
    if (item == "Facial depth")
      return std::printf("%s %s\n", item.GetString(), value.GetString()), value != "90.0";
  }
  return std::puts("the table has no facial depth"), 1;
}
