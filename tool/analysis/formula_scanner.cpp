#include "tool/analysis/formula_scanner.h"

#include <array>
#include <optional>

namespace analysis {
namespace {

constexpr std::size_t npos = std::string_view::npos;

/// Indexed by Term.
constexpr std::string_view term_keywords[] = {"Model",  "lenR",   "lenD", "len", "angle1", "angle3",
                                              "angle2", "angle4", "case", "sdu", "mean",   "sdv"};

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
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (!first_characters[static_cast<unsigned char>(c)]) {
        ++at_;
      } else if (c == '[') {
        take_name();
      } else if (c == '"') {
        take_quote();
      } else if (!take_term() && !take_construction()) {
        at_ = framework::next_character(text_, at_);
      }
    }
  }

 private:
  void take_name() {
    const std::size_t close = find_character(text_, ']', at_ + 1);
    if (close == npos) {
      ++at_;
      return;
    }
    add(Token::Kind::point, {}, PointForm::name, at_ + 1, close);
    at_ = close + 1;
  }

  /// Points are found in quotes too; only terms are not.
  void take_quote() {
    if (at_ >= quoted_until_) {
      const std::size_t close = text_.find('"', at_ + 1);
      if (close != npos) quoted_until_ = close + 1;
    }
    ++at_;
  }

  bool take_term() {
    if (at_ < quoted_until_) return false;
    const std::optional<Term> term = term_at(text_, at_);
    if (!term) return false;
    const std::size_t behind = at_ + keyword(*term).size();
    add(Token::Kind::term, *term, {}, behind, 0);
    at_ = behind;
    return true;
  }

  bool take_construction() {
    const Construction *construction = construction_with(text_[at_]);
    if (!construction || !stands_at(text_, at_, construction->keyword)) return false;
    const std::size_t behind = at_ + construction->keyword.size();
    add(Token::Kind::point, {}, construction->form, behind, 0);
    at_ = behind;
    return true;
  }

  void add(Token::Kind kind, Term term, PointForm form, std::size_t behind, std::size_t close) {
    tokens_.push_back({kind, term, form, static_cast<std::uint32_t>(at_), static_cast<std::uint32_t>(behind),
                       static_cast<std::uint32_t>(close), 0});
  }

  std::string_view text_;
  std::vector<Token> &tokens_;
  std::size_t at_ = 0;
  std::size_t quoted_until_ = 0;
};

}  // namespace

std::string_view keyword(Term term) {
  return term_keywords[static_cast<std::size_t>(term)];
}

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
