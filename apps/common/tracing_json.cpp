// The JSON form of a tracing.

#include <array>

#include "apps/common/json_node.h"
#include "apps/common/tracing_json_parts.h"
#include "apps/common/tracing_parts.h"

namespace app {
namespace {

PatientInfo read_patient(const JsonNode &node) {
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
tagCVBA read_vertebrae(const JsonNode &node) {
  static constexpr std::array<std::string_view, 11> names{"P11", "P12", "P13", "P14", "P15", "P16",
                                                          "P17", "P18", "P19", "P20", "P21"};
  node.expect_members(names);
  tagCVBA record{};
  for (std::size_t i = 0; i < names.size(); ++i)
    record.pt[11 + i] = json_point(node.at_key(names[i].data(), "all of P11 to P21"));
  return record;
}

void read_points(TracingFile &file, const JsonNode &root) {
  if (tagPOINTMO *cast = file.model()) {
    read_json_cast(*cast, root.at_key("cast", "the teeth of the cast"));
  } else {
    root.at_key("landmarks", "an object of NAME: [x, y]")
        .each_member([&](const std::string &name, const JsonNode &node) {
          place_landmark(file, name, json_point(node), node.where());
        });
  }
  if (const auto users = root.find("user_points"))
    users->each_member([&](const std::string &name, const JsonNode &node) {
      add_user_point(file, name, json_point(node), node.where());
    });
  if (const auto virtuals = root.find("virtual_points")) read_json_virtual_points(file, *virtuals);
  if (const auto traces = root.find("traces")) read_json_traces(file, *traces);
  if (const auto vertebrae = root.find("vertebrae")) file.vertebrae = read_vertebrae(*vertebrae);
}

/// The members that a kind of tracing may have.
void check_members(const JsonNode &root, analysis::RecordKind kind) {
  std::vector<std::string_view> known{"kind",    "id",   "film",        "scale",          "magnification",
                                      "patient", "note", "user_points", "virtual_points", "$schema"};
  known.emplace_back(kind == analysis::RecordKind::model ? "cast" : "landmarks");
  if (kind == analysis::RecordKind::lateral) known.insert(known.end(), {"vertebrae", "traces"});
  root.expect_members(known);
}

}  // namespace

POINT json_point(const JsonNode &node) {
  static constexpr std::string_view right = "two numbers [x, y] in pixels, or null when not placed";
  if (node.is_null()) return {0, 0};
  const auto xy = node.elements(right);
  if (xy.size() != 2)
    throw InputError("has " + std::to_string(xy.size()) + " coordinates", node.where(), std::string(right));
  return whole_pixels(xy[0].number(right), xy[1].number(right), node.where());
}

TracingFile read_json_tracing(std::string_view text, const ReadOptions &options) {
  if (text.size() > max_tracing_bytes) throw InputError("is too long", "", "at most 16 MiB");
  const Json document = parse_json(text);
  const JsonNode root(document);
  root.expect_object();
  const JsonNode kind_node = root.at_key("kind", "\"lateral\", \"frontal\" or \"cast\"");
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
