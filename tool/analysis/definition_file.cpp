#include "tool/analysis/definition_file.h"

#include <algorithm>
#include <array>

#include "tool/framework/files/read_file.h"
#include "tool/framework/text/ascii.h"
#include "tool/framework/text/cp932.h"
#include "tool/framework/text/decimal.h"

namespace analysis {
namespace {

struct Keyword {
  std::string_view text;
  LineClass line_class;
};

// In the order in which a line is compared with them. "1" is only another form of the first set's keyword.
constexpr Keyword keywords[] = {
    {"title:", LineClass::title},
    {"calc:", LineClass::calc},
    {"calc1:", LineClass::calc},
    {"stage:", LineClass::stage},
    {"stage1:", LineClass::stage},
    {"stage_m:", LineClass::stage_male},
    {"stage_m1:", LineClass::stage_male},
    {"stage_f:", LineClass::stage_female},
    {"stage_f1:", LineClass::stage_female},
    {"mean:", LineClass::mean},
    {"mean1:", LineClass::mean},
    {"mean_m:", LineClass::mean_male},
    {"mean_m1:", LineClass::mean_male},
    {"mean_f:", LineClass::mean_female},
    {"mean_f1:", LineClass::mean_female},
    {"sd:", LineClass::sd},
    {"sd1:", LineClass::sd},
    {"sd_m:", LineClass::sd_male},
    {"sd_m1:", LineClass::sd_male},
    {"sd_f:", LineClass::sd_female},
    {"sd_f1:", LineClass::sd_female},
    {"stage_type:", LineClass::stage_type},
    {"stage_type1:", LineClass::stage_type},
    {"comment:", LineClass::comment},
    {"diag:", LineClass::diag},
    {"param:", LineClass::param},
    {"calc2:", LineClass::calc2},
    {"stage2:", LineClass::stage2},
    {"stage_m2:", LineClass::stage2_male},
    {"stage_f2:", LineClass::stage2_female},
    {"mean2:", LineClass::mean2},
    {"mean_m2:", LineClass::mean2_male},
    {"mean_f2:", LineClass::mean2_female},
    {"sd2:", LineClass::sd2},
    {"sd_m2:", LineClass::sd2_male},
    {"sd_f2:", LineClass::sd2_female},
    {"stage_type2:", LineClass::stage2_type},
};

constexpr std::size_t longest_keyword = 12;

constexpr char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Where a line ends, and where the next one begins.
struct LineEnd {
  std::size_t end;
  std::size_t next;
};

/// Where nothing but CR LF ends a line.
LineEnd paired_line_end(std::string_view text, std::size_t at) {
  const std::size_t end = std::min(text.find('\r', at), text.size());
  return {end, end + 2};
}

/// Where a CR, an LF, both together, or a NUL byte ends a line.
LineEnd mixed_line_end(std::string_view text, std::size_t at) {
  constexpr std::string_view ends("\r\n\0", 3);
  const std::size_t end = std::min(text.find_first_of(ends, at), text.size());
  const bool both = end + 1 < text.size() && text[end] == '\r' && text[end + 1] == '\n';
  return {end, end + (both ? 2 : 1)};
}

/// Whether CR LF ends every line, as long as each CR turns out to stand before an LF: no LF stands alone, and
/// there is no NUL byte. One pass without branches, because every file pays for it.
bool may_be_paired(std::string_view text) {
  const auto is = [](char c, char wanted) { return static_cast<unsigned char>(c == wanted); };
  unsigned char odd = text.empty() ? 0 : is(text.front(), '\n') | is(text.front(), '\0');
  for (std::size_t at = 1; at < text.size(); ++at) {
    const auto lone = static_cast<unsigned char>(is(text[at], '\n') & (is(text[at - 1], '\r') ^ 1U));
    odd |= static_cast<unsigned char>(lone | is(text[at], '\0'));
  }
  return odd == 0;
}

/// Cuts a line at the last whole character that fits: a double-byte character is never torn apart.
std::string_view cut_to(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  std::size_t end = 0;
  while (end < bytes) {
    const std::size_t step = framework::is_lead_byte(text[end]) ? 2 : 1;
    if (end + step > bytes) break;
    end += step;
  }
  return text.substr(0, end);
}

/// The number behind the first ':'. Further ':' do not count as characters, the end of the line ends it.
int suffix_number(std::string_view text, bool is_only_suffix) {
  if (text.size() == 1 && framework::is_digit(text.front())) return text.front() - '0';
  if (is_only_suffix) return framework::whole_number(text);
  std::string digits;
  for (const char c : text) {
    if (c == '\r' || c == '\n' || c == '\0') break;
    if (c != ':') digits += c;
  }
  return framework::whole_number(digits);
}

}  // namespace

LineClass classify_line(std::string_view line) {
  // Nearly every content line is told apart by its length or its last byte.
  if (line.empty() || line.size() > longest_keyword || line.back() != ':') return LineClass::content;
  std::array<char, longest_keyword> folded{};
  std::transform(line.begin(), line.end(), folded.begin(), lower);
  const std::string_view key(folded.data(), line.size());
  for (const Keyword &keyword : keywords) {
    if (keyword.text == key) return keyword.line_class;
  }
  return LineClass::content;
}

KeyValue split_key_value(std::string_view line) {
  KeyValue parts = env::split_at_equals(line);
  parts.key = cut_to(parts.key, max_item_text_bytes);
  return parts;
}

std::string_view list_field(std::string_view list, int index) {
  constexpr std::size_t max_field_bytes = 99;
  std::size_t start = 0;
  std::size_t end = 0;
  for (;; --index) {
    end = start;
    while (end < list.size() && list[end] != ',') ++end;
    if (index <= 0 || end == list.size()) break;
    start = end + 1;
  }
  return list.substr(start, std::min(end - start, max_field_bytes));
}

KindSuffix split_kind_suffix(std::string_view formula) {
  const std::size_t first = formula.find(':');
  if (first == std::string_view::npos) return {0, 1, formula};
  const std::size_t last = formula.rfind(':');
  const int number = std::max(suffix_number(formula.substr(first + 1), first == last), 0);
  const std::string_view rest = formula.substr(0, last);
  if (number <= 2) return {number % 3, 1, rest};
  if (number <= 9) return {number % 3, 0, rest};
  if (number <= 12) return {(number - 10) % 3, 3, rest};
  return {(number - 10) % 3, 2, rest};
}

DefinitionFile::DefinitionFile(std::string text) : text_(std::make_unique<std::string>(std::move(text))) {
  lines_.reserve(text_->size() / 24 + 1);
  if (!may_be_paired(*text_) || !split_lines(true)) split_lines(false);
}

/// Splits the text, `paired` at CR LF only; false when a CR turns out to stand alone.
bool DefinitionFile::split_lines(bool paired) {
  const std::string_view all = *text_;
  lines_.clear();
  LineClass block = LineClass::content;
  for (std::size_t at = 0; at < all.size();) {
    const LineEnd found = paired ? paired_line_end(all, at) : mixed_line_end(all, at);
    if (paired && found.end < all.size() && (found.next > all.size() || all[found.end + 1] != '\n'))
      return false;
    const std::string_view whole = all.substr(at, found.end - at);
    const std::string_view line = cut_to(whole, max_line_bytes);
    const LineClass own = classify_line(line);
    if (own != LineClass::content) block = own;
    lines_.push_back({line, own, block, at, line.size() != whole.size()});
    at = found.next;
  }
  return true;
}

std::optional<DefinitionFile> DefinitionFile::read(const char *path) {
  std::optional<std::string> text = framework::read_whole_file(path);
  if (!text) return std::nullopt;
  return DefinitionFile(std::move(*text));
}

std::string_view DefinitionFile::title() const {
  for (const Line &line : lines_) {
    if (line.block == LineClass::title && line.own == LineClass::content && !line.text.empty())
      return line.text;
  }
  return {};
}

std::string_view DefinitionFile::comment() const {
  for (std::size_t i = 0; i + 1 < lines_.size(); ++i) {
    if (lines_[i].own == LineClass::comment) return lines_[i + 1].text;
  }
  return {};
}

}  // namespace analysis
