#include <algorithm>
#include <array>
#include <charconv>

#include "apps/common/names.h"
#include "apps/common/tracing_json_parts.h"
#include "apps/common/tracing_parts.h"
#include "tool/analysis/landmarks.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

struct Construction {
  std::string_view name;
  char type;
  std::size_t references;
};
constexpr std::array<Construction, 5> constructions{{{"foot", '0', 3},
                                                     {"midpoint", '1', 2},
                                                     {"intersection", '2', 4},
                                                     {"bisector", '3', 3},
                                                     {"extension", '4', 2}}};

const Construction &construction(const JsonNode &node) {
  const std::string &name = node.text("a construction");
  std::vector<std::string_view> names;
  for (const Construction &one : constructions) {
    if (one.name == name) return one;
    names.push_back(one.name);
  }
  throw InputError("unknown construction " + in_quotes(name), node.where(), suggest(name, names));
}

/// A number as the text of a point table's field.
template <std::size_t N>
void write_number(char (&field)[N], const JsonNode &node, std::string_view right) {
  std::array<char, 400> text{};  // the longest double without an exponent
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), node.number(right), std::chars_format::fixed).ptr;
  const std::string_view digits(text.data(), static_cast<std::size_t>(end - text.data()));
  if (digits.size() >= N)
    throw InputError("the number needs " + std::to_string(digits.size()) + " characters", node.where(),
                     "at most " + std::to_string(N - 1));
  write_field(field, digits);
}

/// A reference field: 5 bytes, which suffice for every landmark, because constructions compare no more of
/// them.
void write_reference(char (&field)[6], const JsonNode &node) {
  const auto name = framework::cp932_from_utf8(node.text("the name of a point"));
  if (!name || name->empty()) throw InputError("is not the name of a point", node.where());
  write_field(field, *name);
}

tagKPOINT read_virtual_point(const JsonNode &node) {
  static constexpr std::array<std::string_view, 5> members{"name", "type", "refs", "angle", "distance"};
  node.expect_members(members);
  const JsonNode name = node.at_key("name", "1 to 5 letters");
  tagKPOINT point{};
  write_field(point.name, checked_point_name(name.text("1 to 5 letters"), name.where()));
  const Construction &made =
      construction(node.at_key("type", "foot, midpoint, intersection, bisector or extension"));
  point.type[0] = made.type;
  const JsonNode list = node.at_key("refs", "the names of the points it is made from");
  const auto references = list.elements("a list of point names");
  if (references.size() != made.references)
    throw InputError("has " + std::to_string(references.size()) + " references", list.where(),
                     std::to_string(made.references) + " for " + in_quotes(made.name));
  char(*const fields[4])[6] = {&point.ref1, &point.ref2, &point.ref3, &point.ref4};
  for (std::size_t i = 0; i < references.size(); ++i) write_reference(*fields[i], references[i]);
  if (made.type == '4') {
    write_number(point.value, node.at_key("distance", "millimetres"), "millimetres");
    write_field(point.ref3, "0");
    if (const auto angle = node.find("angle")) write_number(point.ref3, *angle, "degrees");
  }
  return point;
}

bool is_point(const TracingFile &file, std::string_view name) {
  const auto equals = [&](const auto &one) { return name == one.name; };
  return analysis::find_landmark(file.kind(), name) ||
         std::any_of(file.user_points.begin(), file.user_points.end(), equals) ||
         std::any_of(file.virtual_points.begin(), file.virtual_points.end(), equals);
}

/// After all of them are read, because they may refer to later ones.
void check_references(const TracingFile &file, const JsonNode &list) {
  for (const JsonNode &one : list.elements("a list of virtual points"))
    for (const JsonNode &reference : one.find("refs")->elements("a list of point names")) {
      const std::string &utf8 = reference.text("the name of a point");
      const std::string name = framework::cp932_from_utf8(utf8).value_or("");
      if (is_point(file, name)) continue;
      throw InputError(
          "unknown point " + in_quotes(utf8), reference.where(),
          "a landmark, user point or virtual point; " + suggest(utf8, analysis::vocabulary(file.kind())));
    }
}

}  // namespace

void read_json_virtual_points(TracingFile &file, const JsonNode &list) {
  const auto all = list.elements("a list of virtual points");
  if (all.size() > max_virtual_points)
    throw InputError("too many virtual points", list.where(), "at most 1000");
  for (const JsonNode &one : all) {
    const tagKPOINT point = read_virtual_point(one);
    if (is_point(file, point.name))
      throw InputError(
          "the virtual point " + in_quotes(one.find("name")->text("")) + " has the name of another point",
          one.where(), "a name of its own");
    file.virtual_points.push_back(point);
  }
  check_references(file, list);
}

}  // namespace app
