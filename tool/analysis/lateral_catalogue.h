#pragma once
// The fixed catalogue of 148 lateral measurements in nine analyses.

#include "tool/analysis/records.h"

namespace analysis {

struct CatalogueValue {
  double value;  ///< degrees, millimetres or a plain ratio
  int flag;
};

/// Items per analysis 0 to 8.
inline constexpr int lateral_catalogue_sizes[9] = {17, 22, 19, 12, 17, 15, 11, 30, 5};

/// An unknown analysis or item gives the record's scale (analysis 7: 0). `negate_ans_pns` is the profile
/// value "NFtoFH" of section "CALC": non-zero negates the two items that measure ANS-PNS against Or-Po.
CatalogueValue lateral_catalogue(const tagPOINTLAT &record, int analysis, int item, bool negate_ans_pns);

/// What an item measures, in English, for instance "SNA" or "ang(N-S, N-A)"; null for an unknown item.
const char *lateral_catalogue_name(int analysis, int item);

/// Sets PTV, Gl, Me(s), Pog(s) and Vmi from their source landmarks where they are (0, 0).
void complete_soft_tissue(tagPOINTLAT &record);

}  // namespace analysis
