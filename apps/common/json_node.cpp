#include "apps/common/json_node.h"

#include <algorithm>
#include <functional>

#include "apps/common/names.h"
#include "apps/common/tracing_file.h"

namespace app {
namespace {

std::string pointer_step(const std::string &base, std::string_view key) {
  std::string escaped;
  for (const char c : key.substr(0, 40)) escaped += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
  return base + '/' + printable(escaped);
}

std::string at(const std::string &pointer) {
  return pointer.empty() ? "at the top" : "at " + pointer;
}

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

}  // namespace

Json parse_json(std::string_view text) {
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
// -----------------------------------------------------------------------------------------------------

std::string JsonNode::where() const {
  return at(pointer_);
}

std::string JsonNode::step(std::string_view key) const {
  return pointer_step(pointer_, key);
}

std::optional<JsonNode> JsonNode::find(const char *key) const {
  const auto member = value_.find(key);
  if (member == value_.end()) return std::nullopt;
  return JsonNode(*member, step(key));
}

JsonNode JsonNode::at_key(const char *key, std::string_view right) const {
  if (auto member = find(key)) return *member;
  throw InputError("the member " + in_quotes(key) + " is missing", where(), std::string(right));
}

std::vector<JsonNode> JsonNode::elements(std::string_view right) const {
  if (!value_.is_array()) wrong_type(right);
  std::vector<JsonNode> all;
  for (std::size_t i = 0; i < value_.size(); ++i) all.push_back(JsonNode(value_[i], step(std::to_string(i))));
  return all;
}

void JsonNode::expect_object() const {
  if (!value_.is_object()) wrong_type("an object { ... }");
}

void JsonNode::expect_members(std::span<const std::string_view> known) const {
  each_member([&](const std::string &key, const JsonNode &node) {
    if (std::find(known.begin(), known.end(), key) == known.end())
      throw InputError("unknown member " + in_quotes(key), node.where(), suggest(key, known));
  });
}

const std::string &JsonNode::text(std::string_view right) const {
  if (!value_.is_string()) wrong_type(right);
  return value_.get_ref<const std::string &>();
}

double JsonNode::number(std::string_view right) const {
  if (!value_.is_number()) wrong_type(right);
  return value_.get<double>();
}

bool JsonNode::truth() const {
  if (!value_.is_boolean()) wrong_type("true or false");
  return value_.get<bool>();
}

void JsonNode::wrong_type(std::string_view right) const {
  const char *found = value_.is_null()      ? "nothing (null)"
                      : value_.is_boolean() ? "true or false"
                      : value_.is_number()  ? "a number"
                      : value_.is_string()  ? "a text"
                      : value_.is_array()   ? "a list"
                                            : "an object";
  throw InputError(std::string("has the wrong type: ") + found, where(), std::string(right));
}

}  // namespace app
