#include "tool/analysis/formula_scanner.h"

#include "tool/framework/text/cp932.h"

namespace analysis {
namespace {

constexpr std::size_t npos = std::string_view::npos;

struct Spelling {
  std::string_view text;
  PointKeyword keyword;
};

constexpr Spelling constructions[] = {
    {"mid(", PointKeyword::midpoint},        {"vertical(", PointKeyword::foot},
    {"cross(", PointKeyword::crossing},      {"AngleBisector(", PointKeyword::bisector},
    {"extension(", PointKeyword::extension}, {"EffectiveA(", PointKeyword::effective_a},
};

constexpr bool may_start_construction(char c) {
  return c == 'm' || c == 'v' || c == 'c' || c == 'A' || c == 'e' || c == 'E';
}

}  // namespace

std::size_t find_character(std::string_view text, char wanted, std::size_t from) {
  // Only a byte behind a possible lead byte may be half of a character; then the text is walked from the
  // start.
  const std::size_t found = text.find(wanted, from);
  if (found == npos || found == from || !framework::is_lead_byte(text[found - 1])) return found;
  for (std::size_t at = from; at < text.size(); at = framework::next_character(text, at)) {
    if (text[at] == wanted) return at;
  }
  return npos;
}

std::optional<PointStart> find_point(std::string_view text, std::size_t from) {
  for (std::size_t at = from; at < text.size(); at = framework::next_character(text, at)) {
    const char c = text[at];
    if (c == '[') {
      if (find_character(text, ']', at) != npos) return PointStart{PointKeyword::name, at, at + 1};
      continue;
    }
    if (!may_start_construction(c)) continue;
    for (const Spelling &spelling : constructions) {
      if (stands_at(text, at, spelling.text)) {
        return PointStart{spelling.keyword, at, at + spelling.text.size()};
      }
    }
  }
  return std::nullopt;
}

std::size_t find_word(std::string_view text, std::string_view word, std::size_t from) {
  if (text.find(word, from) == npos) return npos;
  for (std::size_t at = 0; at < text.size();) {
    if (is_opening(text[at])) {
      at = behind_enclosed(text, at);
      continue;
    }
    if (at >= from && stands_at(text, at, word)) return at;
    at = framework::next_character(text, at);
  }
  return npos;
}

std::size_t behind_enclosed(std::string_view text, std::size_t open) {
  const std::size_t close = find_character(text, text[open] == '"' ? '"' : ']', open + 1);
  return close == npos ? open + 1 : close + 1;
}

}  // namespace analysis
