#include "tool/analysis/formula_scanner.h"

#include "tool/framework/text/cp932.h"

namespace analysis {
namespace {

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
  for (std::size_t at = from; at < text.size(); at = framework::next_character(text, at)) {
    if (text[at] == wanted) return at;
  }
  return std::string_view::npos;
}

std::optional<PointStart> find_point(std::string_view text, std::size_t from) {
  for (std::size_t at = from; at < text.size(); at = framework::next_character(text, at)) {
    const char c = text[at];
    if (c == '[') {
      if (find_character(text, ']', at) != std::string_view::npos)
        return PointStart{PointKeyword::name, at, at + 1};
      continue;
    }
    if (!may_start_construction(c)) continue;
    for (const Spelling &spelling : constructions) {
      if (text.compare(at, spelling.text.size(), spelling.text) == 0) {
        return PointStart{spelling.keyword, at, at + spelling.text.size()};
      }
    }
  }
  return std::nullopt;
}

std::size_t find_word(std::string_view text, std::string_view word, std::size_t from) {
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    if (c == '"' || c == '[') {
      const std::size_t close = find_character(text, c == '"' ? '"' : ']', at + 1);
      at = close == std::string_view::npos ? at + 1 : close + 1;
      continue;
    }
    if (at >= from && text.compare(at, word.size(), word) == 0) return at;
    at = framework::next_character(text, at);
  }
  return std::string_view::npos;
}

}  // namespace analysis
