#pragma once
// Exported evaluators on one record without virtual or user points: sex 1, file 0 of the mode's folder.

#include <string>
#include <vector>

#include "tool/tool.h"

namespace support {

using Rows = std::vector<std::vector<std::string>>;

/// The first `columns` texts of every row.
inline Rows texts_of(const CListCtrl &list, int columns = 5) {
  Rows rows(static_cast<std::size_t>(list.GetItemCount()));
  for (int row = 0; row < list.GetItemCount(); ++row)
    for (int column = 0; column < columns; ++column)
      rows[static_cast<std::size_t>(row)].emplace_back(list.GetItemText(row, column).GetString());
  return rows;
}

inline void add_table(CListCtrl &list, void *record, int mode = 0, int precision = 1,
                      double magnification = 1.1) {
  CCephCalc::User_Calc(mode, &list, record, 0, nullptr, nullptr, nullptr, nullptr, 1, 1, magnification,
                       precision);
}

inline Rows table_of(void *record, int mode = 0, int precision = 1) {
  CListCtrl list;
  add_table(list, record, mode, precision);
  return texts_of(list);
}

inline double item_of(void *record, const std::string &item, int selector = 0, double *mean = nullptr,
                      double *sd = nullptr) {
  return CCephCalc::Calc_1(selector, 0, 0, item.c_str(), record, nullptr, nullptr, nullptr, nullptr, 1, 0,
                           1.1, mean, sd);
}

/// A formula in the caller's buffer, which is consumed.
inline double formula_of(void *record, std::string &text, double *values, int *count, int whole = 1) {
  return CCephCalc::Calc(0, 0, text.data(), values, count, record, nullptr, nullptr, nullptr, nullptr, 1, 0,
                         1.1, whole);
}

/// A term of a formula, from its '(' on, in the caller's buffer.
inline double term_of(int mode, unsigned kind, void *record, std::string &text) {
  return CCephCalc::Calc_Mult(mode, kind, text.data(), record, nullptr, nullptr, nullptr, nullptr, 1);
}

}  // namespace support
