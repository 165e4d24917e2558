// The fixed catalogues: measurements that need no definition file.

#include <string>

#include "tool/analysis/bone_age.h"
#include "tool/analysis/frontal_catalogue.h"
#include "tool/analysis/lateral_catalogue.h"
#include "tool/api/CCephCalc.h"
#include "tool/env/path.h"
#include "tool/framework/ui/CWinApp.h"
#include "tool/model/measurements.h"

namespace {

/// Only two items measure ANS-PNS against the Frankfort horizontal; only they read the profile.
bool reads_setting(int analysis, int item) {
  return (analysis == 1 && item == 10) || (analysis == 3 && item == 1);
}

}  // namespace

double CCephCalc::Lat_Calc(tagPOINTLAT *rec, int number, int item, int *flag) {
  const bool negated = reads_setting(number, item) && AfxGetApp()->GetProfileInt("CALC", "NFtoFH", 1) != 0;
  const analysis::CatalogueValue result = analysis::lateral_catalogue(*rec, number, item, negated);
  if (flag) *flag = result.flag;
  return result.value;
}

void CCephCalc::Check_LatPoint(tagPOINTLAT *rec) {
  analysis::complete_soft_tissue(*rec);
}

double CCephCalc::Calc_PA(tagPOINTPA *rec, int item) {
  return analysis::frontal_catalogue(*rec, item);
}

double CCephCalc::Calc_CVBA(tagCVBA *rec, int sex) {
  const CString folder = AfxGetApp()->GetProfileString("DB_DIR", "ANAITEMPATH");
  const std::string path = env::with_trailing_delimiter(static_cast<const char *>(folder)) + "cvba.dat";
  return analysis::bone_age(*rec, analysis::bone_age_coefficients(path.c_str(), sex));
}

void CCephCalc::Calc_Model(int sex, tagPOINTMO *mo, tagMOEX *ex, int item, double *a, double *b) {
  const model::ItemValues values = model::item(sex, *mo, *ex, item);
  *a = values.a;
  *b = values.b;
}
