#include "tool/analysis/formula_scanner.h"

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

std::optional<PointStart> find_point(std::string_view text, std::size_t from) {
  for (std::size_t at = from; at < text.size(); at = framework::next_character(text, at)) {
    const char c = text[at];
    if (c == '[') {
      const std::size_t close = find_character(text, ']', at + 1);
      if (close != npos) return PointStart{PointKeyword::name, at, at + 1, close};
      continue;
    }
    if (!may_start_construction(c)) continue;
    for (const Spelling &spelling : constructions) {
      if (stands_at(text, at, spelling.text)) {
        return PointStart{spelling.keyword, at, at + spelling.text.size(), npos};
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

}  // namespace analysis
