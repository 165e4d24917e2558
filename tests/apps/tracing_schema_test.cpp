// docs/tracing.schema.json and the reader name the same members and words, and the shipped samples satisfy
// the schema.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>

#include "apps/common/tracing_file.h"

namespace {

using nlohmann::json;
using Words = std::set<std::string>;

json read_json(const std::filesystem::path &path) {
  std::ifstream file(path);
  return json::parse(file);
}

const json schema = read_json(TOOL_SOURCE_DIR "/docs/tracing.schema.json");

/// What the reader offers in place of an unknown word: "one of A, B, C".
Words offered_for(const std::string &tracing) {
  Words words;
  try {
    app::read_json_tracing(tracing);
    ADD_FAILURE() << "was read: " << tracing;
  } catch (const app::InputError &error) {
    std::string list = error.right().substr(error.right().find("one of ") + 7) + ", ";
    for (std::size_t end; (end = list.find(", ")) != std::string::npos; list.erase(0, end + 2))
      words.insert(list.substr(0, end));
  }
  return words;
}

/// The members of an object of the schema that `branch` does not forbid, or the words of an enumeration.
Words named_at(const std::string &pointer, const json &branch = {}) {
  const json &node = schema.at(json::json_pointer(pointer));
  if (node.is_array()) return node.get<Words>();
  Words words;
  for (const auto &member : node.items())
    if (!branch.contains(member.key()) || branch[member.key()] != false) words.insert(member.key());
  return words;
}

TEST(TracingSchema, NamesWhatTheReaderTakes) {
  const std::string film = R"({"kind": "lateral", "scale": 1, "landmarks": {}, )",
                    q = R"({"????????": null})";
  const std::string cast = R"({"kind": "cast", "scale": 1, "cast": )";
  const struct {
    const char *pointer;
    std::string tracing;
  } rows[] = {
      {"/properties/kind/enum", R"({"kind": "????????"})"},
      {"/oneOf/0/properties/landmarks/propertyNames/enum",
       R"({"kind": "lateral", "scale": 1, "landmarks": )" + q + "}"},
      {"/oneOf/1/properties/landmarks/propertyNames/enum",
       R"({"kind": "frontal", "scale": 1, "landmarks": )" + q + "}"},
      {"/properties/vertebrae/properties", film + R"("vertebrae": )" + q + "}"},
      {"/$defs/patient/properties", film + R"("patient": )" + q + "}"},
      {"/$defs/patient/properties/dental_stage/enum", film + R"("patient": {"dental_stage": "????????"}})"},
      {"/$defs/virtual_point/properties", film + R"("virtual_points": [)" + q + "]}"},
      {"/$defs/virtual_point/properties/type/enum",
       film + R"("virtual_points": [{"name": "V", "type": "????????????", "refs": []}]})"},
      {"/$defs/trace/properties", film + R"("traces": [)" + q + "]}"},
      {"/$defs/curve/properties", film + R"("traces": [{"name": "T", "code": 0, "curves": [)" + q + "]}]}"},
      {"/$defs/cast/properties", cast + q + "}"},
      {"/$defs/tooth/oneOf/1/properties",
       cast + R"({"upper": [)" + q + R"(, null, null, null, null, null]}})"},
      {"/$defs/arch/properties",
       cast + R"({"upper": [null, null, null, null, null, null], "upper_arch": )" + q + "}}"},
  };
  for (const auto &row : rows) EXPECT_EQ(named_at(row.pointer), offered_for(row.tracing)) << row.pointer;
  for (const json &branch : schema["oneOf"])
    EXPECT_EQ(named_at("/properties", branch["properties"]),
              offered_for(json{{"kind", branch["properties"]["kind"]["const"]}, {"?????????", 0}}.dump()));
}

bool has_type(const json &value, const std::string &type) {
  return type == "object"    ? value.is_object()
         : type == "array"   ? value.is_array()
         : type == "string"  ? value.is_string()
         : type == "number"  ? value.is_number()
         : type == "boolean" ? value.is_boolean()
                             : value.is_null();
}

/// Whether a value follows a rule of the schema: types, members, elements, words; not the limits of numbers
/// and texts.
bool follows(const json &value, const json &rule) {
  if (rule.is_boolean()) return rule.get<bool>();
  if (rule.contains("$ref"))
    return follows(value, schema.at(json::json_pointer(rule["$ref"].get<std::string>().substr(1))));
  const auto part = [&](const char *key, const json &otherwise) { return rule.value(key, otherwise); };
  if (rule.contains("type") && !has_type(value, rule["type"])) return false;
  if (rule.contains("const") && value != rule["const"]) return false;
  const json words = part("enum", json::array({value})), choices = part("oneOf", json::array({true}));
  if (std::find(words.begin(), words.end(), value) == words.end()) return false;
  if (std::count_if(choices.begin(), choices.end(), [&](const json &one) { return follows(value, one); }) !=
      1)
    return false;
  if (value.is_object()) {
    for (const json &name : part("required", json::array()))
      if (!value.contains(name.get<std::string>())) return false;
    const json known = part("properties", json::object());
    for (const auto &[key, member] : value.items())
      if (!follows(key, part("propertyNames", true)) ||
          !follows(member, known.value(key, part("additionalProperties", true))))
        return false;
  }
  if (value.is_array()) {
    if (value.size() < part("minItems", 0) || value.size() > part("maxItems", value.size())) return false;
    const json first = part("prefixItems", json::array());
    for (std::size_t i = 0; i < value.size(); ++i)
      if (!follows(value[i], i < first.size() ? first[i] : part("items", true))) return false;
  }
  return true;
}

TEST(TracingSchema, HoldsForEverySampleAndForNoBrokenOne) {
  int films = 0;
  for (const auto &entry : std::filesystem::directory_iterator(TOOL_SOURCE_DIR "/data/samples")) {
    if (entry.path().extension() != ".json") continue;
    const json sample = read_json(entry.path());
    EXPECT_TRUE(follows(sample, schema)) << entry.path();
    ++films;
    const json faults[] = {{{"op", "remove"}, {"path", "/scale"}},
                           {{"op", "replace"}, {"path", "/scale"}, {"value", "0.1"}},
                           {{"op", "replace"}, {"path", "/kind"}, {"value", "photograph"}},
                           {{"op", "add"}, {"path", "/landmarks"}, {"value", {{"Q", {1, 2}}}}},
                           {{"op", "add"}, {"path", "/user_points"}, {"value", {{"Q", {1, 2, 3}}}}},
                           {{"op", "add"}, {"path", "/patient"}, {"value", {{"birthday", "2001-04-12"}}}}};
    for (const json &fault : faults) {
      const json broken = sample.patch(json::array({fault}));
      EXPECT_FALSE(follows(broken, schema)) << entry.path() << fault;
      EXPECT_THROW(app::read_json_tracing(broken.dump()), app::InputError) << entry.path() << fault;
    }
  }
  EXPECT_EQ(films, 5);
}

}  // namespace
