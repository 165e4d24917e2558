#pragma once
// Areas as disjoint rectangles in rows from the top, left to right: all rectangles of one row have the same
// top and bottom, and rows do not overlap.

#include <vector>

#include "tool/framework/types.h"

namespace framework {

/// RGN_AND, RGN_OR, RGN_XOR or RGN_DIFF of two areas; equal rows that touch are one.
std::vector<RECT> combined_rows(const std::vector<RECT> &a, const std::vector<RECT> &b, int operation);

/// Adds one row to the end of an area; a row equal to the last one, which it touches, makes that one higher.
/// `row` all have one top and bottom.
void append_row(std::vector<RECT> &area, std::size_t &last_row, const std::vector<RECT> &row);

}  // namespace framework
