#include <array>

#include "apps/common/tracing_json_parts.h"

namespace app {
namespace {

/// Two width points, or null or absent when the width is typed.
bool read_pair(const JsonNode &owner, const char *key, POINT *pair) {
  const auto node = owner.find(key);
  if (!node || node->is_null()) return false;
  const auto ends = node->elements("two points [[x, y], [x, y]]");
  if (ends.size() != 2)
    throw InputError("has " + std::to_string(ends.size()) + " points", node->where(),
                     "two points [[x, y], [x, y]]");
  for (std::size_t i = 0; i < 2; ++i) pair[i] = json_point(ends[i]);
  return true;
}

double optional_number(const JsonNode &owner, const char *key, std::string_view right) {
  const auto node = owner.find(key);
  return node ? node->number(right) : 0.0;
}

struct Side {
  const char *points, *typed, *present;
};
constexpr Side first_side{"right", "typed_right", "present_right"};
constexpr Side second_side{"left", "typed_left", "present_left"};

/// A tooth with points or a typed width is there unless the file says otherwise.
bool read_side(const JsonNode &tooth, const Side &side, POINT *points, double &typed) {
  const bool measured = read_pair(tooth, side.points, points);
  typed = optional_number(tooth, side.typed, "a width in millimetres, 0 to measure it");
  const auto present = tooth.find(side.present);
  return present ? present->truth() : measured || typed > 0.0;
}

/// One jaw's parts of the record.
struct Jaw {
  const char *teeth, *arch;
  POINT (*points)[4];
  unsigned char *present;  // of position i: 2i the second side, 2i + 1 the first
  double *typed_first, *typed_second;
  double (*extra)[2];  // typed length, typed width, basal length, basal width
};

void read_teeth(const JsonNode &list, const Jaw &jaw) {
  static constexpr std::array<std::string_view, 6> members{"right",      "left",          "typed_right",
                                                           "typed_left", "present_right", "present_left"};
  const auto teeth = list.elements("six teeth from the midline");
  if (teeth.size() != 6)
    throw InputError("has " + std::to_string(teeth.size()) + " teeth", list.where(),
                     "six teeth from the midline, null for an absent pair");
  for (std::size_t i = 0; i < teeth.size(); ++i) {
    if (teeth[i].is_null()) continue;
    teeth[i].expect_members(members);
    jaw.present[2 * i + 1] = read_side(teeth[i], first_side, jaw.points[i], jaw.typed_first[i]) ? 1 : 0;
    jaw.present[2 * i] = read_side(teeth[i], second_side, jaw.points[i] + 2, jaw.typed_second[i]) ? 1 : 0;
  }
}

void read_arch(const JsonNode &arch, const Jaw &jaw) {
  static constexpr std::array<std::string_view, 6> members{"width_points", "length_points", "typed_width",
                                                           "typed_length", "basal_width",   "basal_length"};
  arch.expect_members(members);
  constexpr std::size_t slot = 6;
  read_pair(arch, "length_points", jaw.points[slot]);
  read_pair(arch, "width_points", jaw.points[slot] + 2);
  jaw.extra[0][0] = optional_number(arch, "typed_length", "millimetres, 0 to measure it");
  jaw.extra[1][0] = optional_number(arch, "typed_width", "millimetres, 0 to measure it");
  jaw.extra[2][0] = optional_number(arch, "basal_length", "millimetres");
  jaw.extra[3][0] = optional_number(arch, "basal_width", "millimetres");
}

}  // namespace

void read_json_cast(tagPOINTMO &record, const JsonNode &cast) {
  static constexpr std::array<std::string_view, 5> members{"mixed", "upper", "lower", "upper_arch",
                                                           "lower_arch"};
  cast.expect_members(members);
  if (const auto mixed = cast.find("mixed")) record.mixed = mixed->truth() ? 1 : 0;
  tagMOEX &ex = record.ex;
  const Jaw jaws[2] = {
      {"upper", "upper_arch", record.upper, record.present, ex.upperFirst, ex.upperSecond, ex.upperExtra},
      {"lower", "lower_arch", record.lower, record.present + 12, ex.lowerFirst, ex.lowerSecond,
       ex.lowerExtra}};
  for (const Jaw &jaw : jaws) {
    read_teeth(cast.at_key(jaw.teeth, "six teeth from the midline"), jaw);
    if (const auto arch = cast.find(jaw.arch)) read_arch(*arch, jaw);
  }
}

}  // namespace app
