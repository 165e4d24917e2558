#include "apps/ceph/check_keyword.h"

#include <algorithm>
#include <array>

#include "apps/ceph/check_source.h"
#include "apps/common/names.h"

namespace app::check {
namespace {

// As people write them; the forms with "1" stand after those without, which are suggested first.
constexpr std::array<std::string_view, 37> keywords{
    "title:",  "Calc:",     "Calc2:",    "Stage:",       "Stage_M:",    "Stage_F:", "Mean:",    "Mean_M:",
    "Mean_F:", "SD:",       "SD_M:",     "SD_F:",        "Stage_Type:", "Comment:", "Diag:",    "Param:",
    "Stage2:", "Stage_M2:", "Stage_F2:", "Mean2:",       "Mean_M2:",    "Mean_F2:", "SD2:",     "SD_M2:",
    "SD_F2:",  "Calc1:",    "Stage1:",   "Stage_M1:",    "Stage_F1:",   "Mean1:",   "Mean_M1:", "Mean_F1:",
    "SD1:",    "SD_M1:",    "SD_F1:",    "Stage_Type1:", "Stage_Type2:"};

/// Small letters without blanks.
std::string folded(std::string_view text) {
  std::string result = lower_case(text);
  std::erase_if(result, [](char c) { return c == ' ' || c == '\t'; });
  return result;
}

std::string sorted(std::string text) {
  std::sort(text.begin(), text.end());
  return text;
}

template <typename Test>
std::optional<std::string_view> find_keyword(const Test &test) {
  const auto found = std::find_if(keywords.begin(), keywords.end(), test);
  return found == keywords.end() ? std::nullopt : std::optional(*found);
}

/// The keyword that a line ending in ':' was most likely meant to be.
std::optional<std::string_view> near_keyword(const std::string &line) {
  // Right letters in a wrong order ("Mean2_M:") say more than the distance does.
  const auto reordered = find_keyword([&](auto k) { return sorted(folded(k)) == sorted(line); });
  if (reordered) return reordered;
  const std::size_t allowed = line.size() <= 6 ? 1 : 2;
  std::optional<std::string_view> best;
  std::size_t best_distance = allowed + 1;
  for (const std::string_view keyword : keywords) {
    const std::size_t distance = edit_distance(line, folded(keyword));
    if (distance >= best_distance) continue;
    best_distance = distance;
    best = keyword;
  }
  return best;
}

}  // namespace

std::optional<KeywordProblem> misspelt_keyword(std::string_view line, bool free_text) {
  constexpr std::size_t longest_candidate = 20;
  const std::string_view text = trim(line);
  if (text.empty()) return std::nullopt;
  const std::string key = folded(text.substr(0, 2 * longest_candidate));
  const auto problem = [](Severity severity, std::string message) {
    return std::optional<KeywordProblem>(KeywordProblem{severity, std::move(message)});
  };
  if (const auto exact = find_keyword([&](auto k) { return folded(k) == key; }))
    return problem(Severity::error, "blanks make this an ordinary line; the keyword " + in_quotes(*exact) +
                                        " must stand alone on its line");
  if (key.size() <= longest_candidate && key.back() == ':') {
    if (const auto near = near_keyword(key))
      return problem(Severity::error,
                     show(text) + " is not a keyword; did you mean " + in_quotes(*near) + "?");
  }
  if (free_text || text.find('=') != std::string_view::npos) return std::nullopt;
  if (const auto bare = find_keyword([&](auto k) { return folded(k) == key + ":"; }))
    return problem(Severity::warning, show(text) + " lacks its ':'; the keyword is " + in_quotes(*bare));
  if (const auto prefix = find_keyword([&](auto k) { return key.compare(0, k.size(), folded(k)) == 0; }))
    return problem(Severity::error, "the keyword " + in_quotes(*prefix) +
                                        " must stand alone; its content begins on the next line");
  return std::nullopt;
}

}  // namespace app::check
