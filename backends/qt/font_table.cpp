#include "backends/qt/font_table.h"

#include <algorithm>

#include "tool/framework/text/ascii.h"

namespace qt_backend {

namespace {

// The Japanese faces fill a square of 256 units, 220 of them above the baseline; the western ones have 2048
// units.
constexpr double gothic_ascent = 220.0 / 256;
constexpr double gothic_descent = 36.0 / 256;

constexpr Substitution table[] = {
    {"ＭＳ ゴシック", "IPAGothic", "Liberation Mono", gothic_ascent, gothic_descent},
    {"MS Gothic", "IPAGothic", "Liberation Mono", gothic_ascent, gothic_descent},
    {"ＭＳ Ｐゴシック", "IPAPGothic", "Liberation Sans", gothic_ascent, gothic_descent},
    {"MS PGothic", "IPAPGothic", "Liberation Sans", gothic_ascent, gothic_descent},
    {"MS UI Gothic", "IPAPGothic", "Liberation Sans", gothic_ascent, gothic_descent},
    {"ＭＳ 明朝", "IPAMincho", "Liberation Mono", gothic_ascent, gothic_descent},
    {"MS Mincho", "IPAMincho", "Liberation Mono", gothic_ascent, gothic_descent},
    {"ＭＳ Ｐ明朝", "IPAPMincho", "Liberation Serif", gothic_ascent, gothic_descent},
    {"MS PMincho", "IPAPMincho", "Liberation Serif", gothic_ascent, gothic_descent},
    {"Times New Roman", "Liberation Serif", "IPAMincho", 1825.0 / 2048, 443.0 / 2048},
    {"Arial", "Liberation Sans", "IPAGothic", 1854.0 / 2048, 434.0 / 2048},
    {"Courier New", "Liberation Mono", "IPAGothic", 1705.0 / 2048, 615.0 / 2048},
};

bool same_name(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return framework::lower(x) == framework::lower(y); });
}

}  // namespace

const Substitution &substitution_for(std::string_view face_utf8) {
  const auto found =
      std::ranges::find_if(table, [&](const Substitution &row) { return same_name(row.name, face_utf8); });
  return found == std::end(table) ? table[0] : *found;
}

std::vector<std::string_view> substituted_families() {
  std::vector<std::string_view> families;
  for (const Substitution &row : table) {
    for (std::string_view family : {row.family, row.companion}) {
      if (std::ranges::find(families, family) == families.end()) families.push_back(family);
    }
  }
  return families;
}

}  // namespace qt_backend
