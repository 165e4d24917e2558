#pragma once
// One table of a report on its pages; the column titles are repeated at the top of each.

#include "apps/drawing/report_pages.h"

namespace app {

void print_table(PageFlow &flow, const Table &table);

}  // namespace app
