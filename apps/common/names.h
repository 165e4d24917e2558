#pragma once
// Suggestions for misspelt names, and user-typed text made fit for a message.

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace app {

/// ASCII letters made small.
std::string lower_case(std::string_view text);

/// Inserted, dropped, changed and swapped neighbouring letters between two words; letter case ignored.
std::size_t edit_distance(std::string_view a, std::string_view b);

/// The candidate that `name` was most likely meant to be: at most a third of its letters (and at least one)
/// differ. Empty when none is near; the first of several equally near.
std::optional<std::string_view> nearest_name(std::string_view name,
                                             std::span<const std::string_view> candidates);

/// "did you mean "X"?" when one is near, else the whole list: "one of A, B, C".
std::string suggest(std::string_view name, std::span<const std::string_view> candidates);

/// Text in double quotes for a message: cut after 40 bytes, control characters and broken UTF-8 replaced by
/// '?'.
std::string in_quotes(std::string_view text);

/// The same replacement without quotes and without cutting: nothing in it can steer a terminal.
std::string printable(std::string_view text);

}  // namespace app
