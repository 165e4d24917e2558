#include "tool/analysis/formula_scanner.h"

#include <array>
#include <optional>

namespace analysis {
namespace {

constexpr std::size_t npos = std::string_view::npos;

struct Construction {
  std::string_view keyword;
  PointForm form;
};

constexpr Construction constructions[] = {
    {"mid(", PointForm::midpoint},        {"vertical(", PointForm::foot},
    {"cross(", PointForm::crossing},      {"AngleBisector(", PointForm::bisector},
    {"extension(", PointForm::extension}, {"EffectiveA(", PointForm::effective_a},
};

/// Whether a token or a double-byte character may begin with this: most characters are passed over with one
/// look.
constexpr std::array<bool, 256> first_characters = [] {
  std::array<bool, 256> looks{};
  for (const char c : {'"', '[', 'M', 'l', 'a', 'c', 's', 'm', 'v', 'A', 'e', 'E'}) {
    looks[static_cast<unsigned char>(c)] = true;
  }
  for (std::size_t byte = 0x81; byte < looks.size(); ++byte) looks[byte] = true;
  return looks;
}();

/// The term whose keyword stands at `at`, the longest where several do.
std::optional<Term> term_at(std::string_view text, std::size_t at) {
  const auto letter = [&](std::size_t i) { return at + i < text.size() ? text[at + i] : '\0'; };
  switch (text[at]) {
    case 'M':
      if (stands_at(text, at, "Model")) return Term::model;
      break;
    case 'l':
      if (!stands_at(text, at, "len")) break;
      return letter(3) == 'R' ? Term::len_r : letter(3) == 'D' ? Term::len_d : Term::len;
    case 'a':
      if (!stands_at(text, at, "angle")) break;
      if (letter(5) == '1') return Term::angle1;
      if (letter(5) == '2') return Term::angle2;
      if (letter(5) == '3') return Term::angle3;
      if (letter(5) == '4') return Term::angle4;
      break;
    case 'c':
      if (stands_at(text, at, "case")) return Term::item_value;
      break;
    case 's':
      if (letter(1) == 'd' && letter(2) == 'u') return Term::item_sd_units;
      if (letter(1) == 'd' && letter(2) == 'v') return Term::item_sd;
      break;
    case 'm':
      if (stands_at(text, at, "mean")) return Term::item_mean;
      break;
    default:
      break;
  }
  return std::nullopt;
}

/// The construction that begins with this letter.
constexpr const Construction *construction_with(char first) {
  for (const Construction &construction : constructions) {
    if (construction.keyword.front() == first) return &construction;
  }
  return nullptr;
}

/// Collects tokens. Positions are 32-bit: no formula comes near that length.
class Scanner {
 public:
  Scanner(std::string_view text, std::vector<Token> &tokens) : text_(text), tokens_(tokens) {}

  void run() {
    std::size_t at = 0;
    while (at < text_.size()) {
      const char c = text_[at];
      if (!first_characters[static_cast<unsigned char>(c)]) {
        ++at;
      } else if (c == '[') {
        at = behind_name(at);
      } else if (c == '"') {
        at = behind_quote(at);
      } else {
        at = behind_word(at);
      }
    }
  }

 private:
  // Each takes what begins at `at` and tells where to go on.

  std::size_t behind_name(std::size_t at) {
    const std::size_t close = find_character(text_, ']', at + 1);
    if (close == npos) return at + 1;
    add(Token::Kind::point, {}, PointForm::name, at, at + 1, close);
    return close + 1;
  }

  /// Points are found in quotes too; only terms are not.
  std::size_t behind_quote(std::size_t at) {
    if (at >= quoted_until_) {
      const std::size_t close = text_.find('"', at + 1);
      if (close != npos) quoted_until_ = close + 1;
    }
    return at + 1;
  }

  std::size_t behind_word(std::size_t at) {
    if (at >= quoted_until_) {
      if (const std::optional<Term> term = term_at(text_, at)) {
        const std::size_t behind = at + keyword(*term).size();
        add(Token::Kind::term, *term, {}, at, behind, 0);
        return behind;
      }
    }
    const Construction *construction = construction_with(text_[at]);
    if (!construction || !stands_at(text_, at, construction->keyword))
      return framework::next_character(text_, at);
    const std::size_t behind = at + construction->keyword.size();
    add(Token::Kind::point, {}, construction->form, at, behind, 0);
    return behind;
  }

  void add(Token::Kind kind, Term term, PointForm form, std::size_t begin, std::size_t behind,
           std::size_t close) {
    tokens_.push_back({kind, term, form, 0, static_cast<std::uint32_t>(begin),
                       static_cast<std::uint32_t>(behind), static_cast<std::uint32_t>(close)});
  }

  std::string_view text_;
  std::vector<Token> &tokens_;
  std::size_t quoted_until_ = 0;
};

}  // namespace

void find_tokens(std::string_view text, std::vector<Token> &tokens) {
  tokens.clear();
  Scanner(text, tokens).run();
}

std::size_t find_word(std::string_view text, std::string_view word, std::size_t from) {
  if (text.find(word, from) == npos) return npos;
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    if (c == '"' || c == '[') {
      const std::size_t close = find_character(text, c == '"' ? '"' : ']', at + 1);
      at = close == npos ? at + 1 : close + 1;
      continue;
    }
    if (at >= from && stands_at(text, at, word)) return at;
    at = framework::next_character(text, at);
  }
  return npos;
}

}  // namespace analysis
