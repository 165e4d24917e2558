// The JSON form of a tracing.

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <nlohmann/json.hpp>
#include <span>

#include "apps/common/names.h"
#include "apps/common/tracing_parts.h"
#include "tool/analysis/landmarks.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

using Json = nlohmann::ordered_json;

std::string pointer_step(const std::string &base, std::string_view key) {
  std::string escaped;
  for (const char c : key.substr(0, 40)) escaped += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
  return base + '/' + printable(escaped);
}

std::string at(const std::string &pointer) {
  return pointer.empty() ? "at the top" : "at " + pointer;
}

// Parsing
// ---------------------------------------------------------------------------------------------------------

/// Watches the parser: a member given twice, nesting and counts that no tracing has end the parsing.
class Guard {
 public:
  bool operator()(int depth, nlohmann::detail::parse_event_t event, Json &parsed) {
    using Event = nlohmann::detail::parse_event_t;
    if (depth > deepest) throw InputError("nested too deep", at(place()), "at most 16 levels");
    switch (event) {
      case Event::object_start:
      case Event::array_start:
        count_value();
        open_.push_back({});
        break;
      case Event::object_end:
      case Event::array_end:
        open_.pop_back();
        break;
      case Event::key:
        take_key(parsed.get_ref<const std::string &>());
        break;
      case Event::value:
        count_value();
        break;
    }
    return true;
  }

 private:
  static constexpr int deepest = 16;
  static constexpr std::size_t most_values = 100'000;
  static constexpr std::size_t most_members = 500;  // of one object
  struct Open {
    std::vector<std::string> keys;
  };

  void count_value() {
    if (++values_ > most_values) throw InputError("holds more values than any tracing", at(place()));
  }

  void take_key(const std::string &key) {
    auto &keys = open_.back().keys;
    if (std::find(keys.begin(), keys.end(), key) != keys.end())
      throw InputError("the member " + in_quotes(key) + " is given twice", at(pointer_step(place(), key)),
                       "one of the two");
    if (keys.size() >= most_members) throw InputError("holds more members than any tracing", at(place()));
    keys.push_back(key);
  }

  /// Of the innermost open object, as far as its enclosing objects name it.
  std::string place() const {
    std::string pointer;
    for (std::size_t i = 0; i + 1 < open_.size(); ++i)
      if (!open_[i].keys.empty()) pointer = pointer_step(pointer, open_[i].keys.back());
    return pointer;
  }

  std::vector<Open> open_;
  std::size_t values_ = 0;
};

std::string line_and_column(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, byte == 0 ? 0 : byte - 1);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t start = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
  return "line " + std::to_string(line) + ", column " + std::to_string(before.size() - start + 1);
}

/// The parser's own sentence without its prefix.
std::string complaint(std::string_view what) {
  const std::size_t sentence = what.find(": ");
  if (sentence != std::string_view::npos) what.remove_prefix(sentence + 2);
  return printable(what.substr(0, 200));
}

Json parse(std::string_view text) {
  Guard guard;
  try {
    return Json::parse(text.begin(), text.end(), std::ref(guard));
  } catch (const nlohmann::json::parse_error &error) {
    throw InputError("is not JSON: " + complaint(error.what()), line_and_column(text, error.byte));
  } catch (const nlohmann::json::out_of_range &) {
    throw InputError("a number is too large", "", "coordinates of at most 32 bits");
  } catch (const nlohmann::json::exception &error) {
    throw InputError("is not JSON: " + complaint(error.what()), "");
  }
}

// Values with their place
// -----------------------------------------------------------------------------------------

/// A JSON value and its JSON pointer.
class Node {
 public:
  Node(const Json &value, std::string pointer) : value_(value), pointer_(std::move(pointer)) {}

  std::string where() const { return at(pointer_); }
  bool is_null() const { return value_.is_null(); }

  std::optional<Node> find(const char *key) const {
    const auto member = value_.find(key);
    if (member == value_.end()) return std::nullopt;
    return Node(*member, pointer_step(pointer_, key));
  }

  Node at_key(const char *key, std::string_view right) const {
    if (auto member = find(key)) return *member;
    throw InputError("the member " + in_quotes(key) + " is missing", where(), std::string(right));
  }

  /// Calls visit(key, node) for every member.
  template <typename Visit>
  void each_member(Visit visit) const {
    expect_object();
    for (const auto &member : value_.items())
      visit(member.key(), Node(member.value(), pointer_step(pointer_, member.key())));
  }

  std::vector<Node> elements(std::string_view right) const {
    if (!value_.is_array()) wrong_type(right);
    std::vector<Node> all;
    for (std::size_t i = 0; i < value_.size(); ++i)
      all.emplace_back(value_[i], pointer_step(pointer_, std::to_string(i)));
    return all;
  }

  void expect_object() const {
    if (!value_.is_object()) wrong_type("an object { ... }");
  }

  /// A misspelt member is a fault, not a value that silently counts for nothing.
  void expect_members(std::span<const std::string_view> known) const {
    each_member([&](const std::string &key, const Node &node) {
      if (std::find(known.begin(), known.end(), key) == known.end())
        throw InputError("unknown member " + in_quotes(key), node.where(), suggest(key, known));
    });
  }

  const std::string &text(std::string_view right) const {
    if (!value_.is_string()) wrong_type(right);
    return value_.get_ref<const std::string &>();
  }
  double number(std::string_view right) const {
    if (!value_.is_number()) wrong_type(right);
    return value_.get<double>();
  }
  bool truth() const {
    if (!value_.is_boolean()) wrong_type("true or false");
    return value_.get<bool>();
  }

 private:
  [[noreturn]] void wrong_type(std::string_view right) const {
    const char *found = value_.is_null()      ? "nothing (null)"
                        : value_.is_boolean() ? "true or false"
                        : value_.is_number()  ? "a number"
                        : value_.is_string()  ? "a text"
                        : value_.is_array()   ? "a list"
                                              : "an object";
    throw InputError(std::string("has the wrong type: ") + found, where(), std::string(right));
  }

  const Json &value_;
  std::string pointer_;
};

/// [x, y], or null for a point that is not placed.
POINT point(const Node &node) {
  static constexpr std::string_view right = "two numbers [x, y] in pixels, or null when not placed";
  if (node.is_null()) return {0, 0};
  const auto xy = node.elements(right);
  if (xy.size() != 2)
    throw InputError("has " + std::to_string(xy.size()) + " coordinates", node.where(), std::string(right));
  return whole_pixels(xy[0].number(right), xy[1].number(right), node.where());
}

// Virtual points
// --------------------------------------------------------------------------------------------------

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

const Construction &construction(const Node &node) {
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
void write_number(char (&field)[N], const Node &node, std::string_view right) {
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
void write_reference(char (&field)[6], const Node &node) {
  const auto name = framework::cp932_from_utf8(node.text("the name of a point"));
  if (!name || name->empty()) throw InputError("is not the name of a point", node.where());
  write_field(field, *name);
}

tagKPOINT read_virtual_point(const Node &node) {
  static constexpr std::array<std::string_view, 5> members{"name", "type", "refs", "angle", "distance"};
  node.expect_members(members);
  const Node name = node.at_key("name", "1 to 5 letters");
  tagKPOINT point{};
  write_field(point.name, checked_point_name(name.text("1 to 5 letters"), name.where()));
  const Construction &made =
      construction(node.at_key("type", "foot, midpoint, intersection, bisector or extension"));
  point.type[0] = made.type;
  const Node list = node.at_key("refs", "the names of the points it is made from");
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
void check_references(const TracingFile &file, const Node &list) {
  for (const Node &one : list.elements("a list of virtual points"))
    for (const Node &reference : one.find("refs")->elements("a list of point names")) {
      const std::string &utf8 = reference.text("the name of a point");
      const std::string name = framework::cp932_from_utf8(utf8).value_or("");
      if (is_point(file, name)) continue;
      throw InputError(
          "unknown point " + in_quotes(utf8), reference.where(),
          "a landmark, user point or virtual point; " + suggest(utf8, analysis::vocabulary(file.kind())));
    }
}

void read_virtual_points(TracingFile &file, const Node &list) {
  const auto all = list.elements("a list of virtual points");
  if (all.size() > max_virtual_points)
    throw InputError("too many virtual points", list.where(), "at most 1000");
  for (const Node &one : all) {
    const tagKPOINT point = read_virtual_point(one);
    if (is_point(file, point.name))
      throw InputError(
          "the virtual point " + in_quotes(one.find("name")->text("")) + " has the name of another point",
          one.where(), "a name of its own");
    file.virtual_points.push_back(point);
  }
  check_references(file, list);
}

// The cast
// --------------------------------------------------------------------------------------------------------

/// Two width points, or null or absent when the width is typed.
bool read_pair(const Node &owner, const char *key, POINT *pair) {
  const auto node = owner.find(key);
  if (!node || node->is_null()) return false;
  const auto ends = node->elements("two points [[x, y], [x, y]]");
  if (ends.size() != 2)
    throw InputError("has " + std::to_string(ends.size()) + " points", node->where(),
                     "two points [[x, y], [x, y]]");
  for (std::size_t i = 0; i < 2; ++i) pair[i] = point(ends[i]);
  return true;
}

double optional_number(const Node &owner, const char *key, std::string_view right) {
  const auto node = owner.find(key);
  return node ? node->number(right) : 0.0;
}

struct Side {
  const char *points, *typed, *present;
};
constexpr Side first_side{"right", "typed_right", "present_right"};
constexpr Side second_side{"left", "typed_left", "present_left"};

/// A tooth with points or a typed width is there unless the file says otherwise.
bool read_side(const Node &tooth, const Side &side, POINT *points, double &typed) {
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

void read_teeth(const Node &list, const Jaw &jaw) {
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

void read_arch(const Node &arch, const Jaw &jaw) {
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

void read_cast(tagPOINTMO &record, const Node &cast) {
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

// The whole
// -------------------------------------------------------------------------------------------------------

PatientInfo read_patient(const Node &node) {
  static constexpr std::array<std::string_view, 6> members{"name", "sex", "birth",
                                                           "date", "age", "dental_stage"};
  node.expect_members(members);
  PatientInfo patient;
  if (const auto name = node.find("name")) patient.name = name->text("a name");
  if (const auto sex = node.find("sex"))
    patient.sex = parse_sex(sex->text("\"male\" or \"female\""), sex->where());
  if (const auto birth = node.find("birth"))
    patient.birth = parse_date_field(birth->text("a date"), birth->where());
  if (const auto date = node.find("date"))
    patient.date = parse_date_field(date->text("a date"), date->where());
  if (const auto age = node.find("age")) patient.stated_age = checked_age(age->number("years"), age->where());
  if (const auto stage = node.find("dental_stage"))
    patient.dental_stage = checked_dental_stage(stage->text("a stage code"), stage->where());
  check_dates(patient, node.where());
  return patient;
}

/// "P11" to "P21", the points that enter the bone age.
tagCVBA read_vertebrae(const Node &node) {
  static constexpr std::array<std::string_view, 11> names{"P11", "P12", "P13", "P14", "P15", "P16",
                                                          "P17", "P18", "P19", "P20", "P21"};
  node.expect_members(names);
  tagCVBA record{};
  for (std::size_t i = 0; i < names.size(); ++i)
    record.pt[11 + i] = point(node.at_key(names[i].data(), "all of P11 to P21"));
  return record;
}

void read_points(TracingFile &file, const Node &root) {
  if (tagPOINTMO *cast = file.model()) {
    read_cast(*cast, root.at_key("cast", "the teeth of the cast"));
  } else {
    root.at_key("landmarks", "an object of NAME: [x, y]")
        .each_member([&](const std::string &name, const Node &node) {
          place_landmark(file, name, point(node), node.where());
        });
  }
  if (const auto users = root.find("user_points"))
    users->each_member([&](const std::string &name, const Node &node) {
      add_user_point(file, name, point(node), node.where());
    });
  if (const auto virtuals = root.find("virtual_points")) read_virtual_points(file, *virtuals);
  if (const auto vertebrae = root.find("vertebrae")) file.vertebrae = read_vertebrae(*vertebrae);
}

/// The members that a kind of tracing may have.
void check_members(const Node &root, analysis::RecordKind kind) {
  std::vector<std::string_view> known{"kind",    "id",   "film",        "scale",          "magnification",
                                      "patient", "note", "user_points", "virtual_points", "$schema"};
  known.emplace_back(kind == analysis::RecordKind::model ? "cast" : "landmarks");
  if (kind == analysis::RecordKind::lateral) known.emplace_back("vertebrae");
  root.expect_members(known);
}

}  // namespace

TracingFile read_json_tracing(std::string_view text, const ReadOptions &options) {
  if (text.size() > max_tracing_bytes) throw InputError("is too long", "", "at most 16 MiB");
  const Json document = parse(text);
  const Node root(document, "");
  root.expect_object();
  const Node kind_node = root.at_key("kind", "\"lateral\", \"frontal\" or \"cast\"");
  const auto kind = parse_kind(kind_node.text("\"lateral\", \"frontal\" or \"cast\""), kind_node.where());
  check_members(root, kind);
  const auto scale = root.find("scale");
  if (!scale && !options.scale) root.at_key("scale", "millimetres per pixel");
  TracingFile file = empty_tracing(
      kind, scale ? checked_scale(scale->number("millimetres per pixel"), scale->where()) : *options.scale);
  for (const char *key : {"id", "film"})
    if (const auto id = root.find(key)) file.id = id->text("a text");
  if (const auto magnification = root.find("magnification"))
    file.magnification =
        checked_magnification(magnification->number("for instance 1.1"), magnification->where());
  if (const auto patient = root.find("patient")) file.patient = read_patient(*patient);
  read_points(file, root);
  return file;
}

}  // namespace app
