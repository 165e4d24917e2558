#pragma once
// JSON from outside, read with distrust: every value knows its place (a JSON pointer), and what is missing,
// misspelt, doubled or of a wrong type is an InputError that names the place and what would be right.

#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace app {

using Json = nlohmann::ordered_json;

/// Refuses doubled members, more than 16 levels, and more values than a tracing ever has.
Json parse_json(std::string_view text);

/// A value and its place; borrows the value.
class JsonNode {
 public:
  explicit JsonNode(const Json &root) : value_(root) {}

  /// "at /landmarks/S" or "at the top".
  std::string where() const;
  bool is_null() const { return value_.is_null(); }

  std::optional<JsonNode> find(const char *key) const;
  /// `right` is what the member would be.
  JsonNode at_key(const char *key, std::string_view right) const;
  std::vector<JsonNode> elements(std::string_view right) const;

  /// Calls visit(key, node) for every member.
  template <typename Visit>
  void each_member(Visit visit) const {
    expect_object();
    for (const auto &member : value_.items())
      visit(member.key(), JsonNode(member.value(), step(member.key())));
  }

  void expect_object() const;
  /// A misspelt member is a fault, not a value that silently counts for nothing.
  void expect_members(std::span<const std::string_view> known) const;

  const std::string &text(std::string_view right) const;
  double number(std::string_view right) const;
  bool truth() const;

 private:
  JsonNode(const Json &value, std::string pointer) : value_(value), pointer_(std::move(pointer)) {}
  std::string step(std::string_view key) const;
  [[noreturn]] void wrong_type(std::string_view right) const;

  const Json &value_;
  std::string pointer_;
};

}  // namespace app
