#include "apps/common/names.h"

#include <algorithm>
#include <vector>

#include "tool/framework/text/ascii.h"

namespace app {
namespace {

/// Bytes of the well-formed UTF-8 character at the start of `text`; 0 when it is broken or a control
/// character.
std::size_t printable_character(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return first >= 0x20 && first != 0x7F ? 1 : 0;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((byte(i) & 0xC0) != 0x80) return 0;
  if (first == 0xC2 && byte(1) < 0xA0) return 0;   // the other control characters
  if (first == 0xE0 && byte(1) < 0xA0) return 0;   // over-long
  if (first == 0xED && byte(1) >= 0xA0) return 0;  // surrogates
  if (first == 0xE2 && byte(1) == 0x80 && byte(2) >= 0xAA && byte(2) <= 0xAE)
    return 0;  // turns the line round
  if (first == 0xF0 && byte(1) < 0x90) return 0;
  if (first == 0xF4 && byte(1) >= 0x90) return 0;
  return length;
}

}  // namespace

std::string lower_case(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), framework::lower);
  return result;
}

std::size_t edit_distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before(b.size() + 1), last(b.size() + 1), now(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) last[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    now[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const bool same = framework::lower(a[i - 1]) == framework::lower(b[j - 1]);
      now[j] = std::min({last[j] + 1, now[j - 1] + 1, last[j - 1] + (same ? 0U : 1U)});
      const bool swapped = i > 1 && j > 1 && framework::lower(a[i - 1]) == framework::lower(b[j - 2]) &&
                           framework::lower(a[i - 2]) == framework::lower(b[j - 1]);
      if (swapped) now[j] = std::min(now[j], before[j - 2] + 1);
    }
    std::swap(before, last);
    std::swap(last, now);
  }
  return last[b.size()];
}

std::optional<std::string_view> nearest_name(std::string_view name,
                                             std::span<const std::string_view> candidates) {
  constexpr std::size_t longest_sensible_name = 100;  // keeps hostile input from costing time
  if (name.empty() || name.size() > longest_sensible_name) return std::nullopt;
  std::size_t best = std::max<std::size_t>(1, name.size() / 3) + 1;
  std::optional<std::string_view> found;
  for (const std::string_view candidate : candidates) {
    const std::size_t distance = edit_distance(name, candidate);
    if (distance >= best || distance >= std::max(name.size(), candidate.size())) continue;
    best = distance;
    found = candidate;
  }
  return found;
}

std::string suggest(std::string_view name, std::span<const std::string_view> candidates) {
  if (const auto near = nearest_name(name, candidates)) return "did you mean " + in_quotes(*near) + "?";
  std::string list = "one of ";
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (i > 0) list += ", ";
    list += candidates[i];
  }
  return list;
}

std::string printable(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = printable_character(text);
    if (length == 0)
      result += '?';
    else
      result += text.substr(0, length);
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result;
}

std::string in_quotes(std::string_view text) {
  constexpr std::size_t longest = 40;
  if (text.size() <= longest) return '"' + printable(text) + '"';
  std::size_t end = longest;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return '"' + printable(text.substr(0, end)) + "...\"";
}

}  // namespace app
