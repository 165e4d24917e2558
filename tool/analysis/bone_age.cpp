#include "tool/analysis/bone_age.h"

#include <string>

#include "tool/framework/files/private_profile.h"
#include "tool/framework/text/decimal.h"
#include "tool/geometry/distances.h"

namespace analysis {

namespace {

constexpr int longest_value = 1000;

struct CoefficientKey {
  const char *name;
  const char *fallback;
};

constexpr CoefficientKey male_keys[4] = {
    {"PARAM_M0", "0.82"}, {"PARAM_M1", "13.17"}, {"PARAM_M2", "0.0"}, {"PARAM_M3", "5.01"}};
constexpr CoefficientKey female_keys[4] = {
    {"PARAM_F0", "-0.2"}, {"PARAM_F1", "6.2"}, {"PARAM_F2", "5.9"}, {"PARAM_F3", "4.74"}};

}  // namespace

std::array<double, 4> bone_age_coefficients(const char *path, int sex) {
  const CoefficientKey(&keys)[4] = sex == 1 ? male_keys : female_keys;
  std::array<double, 4> coefficients{};
  for (std::size_t n = 0; n < coefficients.size(); ++n) {
    char text[longest_value + 1] = {};
    GetPrivateProfileStringA("CVB_AGE", keys[n].name, keys[n].fallback, text, sizeof text, path);
    coefficients[n] = framework::decimal_value(text);
  }
  return coefficients;
}

double bone_age(const tagCVBA &record, const std::array<double, 4> &coefficients) {
  const auto length = [&](int p, int q) { return geometry::integer_length(record.pt[p], record.pt[q], 1.0); };
  const auto off_line = [&](int p, int a, int b) {
    return geometry::distance_to_line(CPoint(record.pt[a]), CPoint(record.pt[b]), CPoint(record.pt[p]), 1.0);
  };
  const double third_height = off_line(11, 14, 15);
  const double third_depth = length(12, 13);
  const double fourth_height = off_line(17, 20, 21);
  const double fourth_depth = length(18, 19);
  const double fourth_posterior = off_line(16, 20, 21);
  const auto &[c0, c1, c2, c3] = coefficients;
  return c0 + c1 * (third_height / third_depth) + c2 * (fourth_height / fourth_depth) +
         c3 * (fourth_height / fourth_posterior);
}

}  // namespace analysis
