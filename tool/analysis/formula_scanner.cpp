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
  const auto first_of = [&](std::initializer_list<Term> choices) -> std::optional<Term> {
    for (const Term term : choices) {
      if (stands_at(text, at, keyword(term))) return term;
    }
    return std::nullopt;
  };
  switch (text[at]) {
    case 'M':
      return first_of({Term::model});
    case 'l':
      return first_of({Term::len_r, Term::len_d, Term::len});
    case 'a':
      return first_of({Term::angle1, Term::angle3, Term::angle2, Term::angle4});
    case 'c':
      return first_of({Term::item_value});
    case 's':
      return first_of({Term::item_sd_units, Term::item_sd});
    case 'm':
      return first_of({Term::item_mean});
    default:
      return std::nullopt;
  }
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
    for (const Construction &construction : constructions) {
      if (!stands_at(text_, at_, construction.keyword)) continue;
      const std::size_t behind = at_ + construction.keyword.size();
      add(Token::Kind::point, {}, construction.form, behind, 0);
      at_ = behind;
      return true;
    }
    return false;
  }

  void add(Token::Kind kind, Term term, PointForm form, std::size_t behind, std::size_t close) {
    tokens_.push_back({kind, term, form, static_cast<std::uint32_t>(at_), static_cast<std::uint32_t>(behind),
                       static_cast<std::uint32_t>(close)});
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
