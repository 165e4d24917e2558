#include "apps/ceph/check_formula_points.h"

#include "apps/ceph/check_source.h"
#include "apps/common/names.h"
#include "tool/analysis/formula_scanner.h"

namespace app::check {
namespace {

constexpr std::size_t max_name_bytes = 99;
constexpr std::size_t max_number_bytes = 19;
constexpr int max_depth = 100;

}  // namespace

void PointReader::point() {
  if (scanner_.failed()) return;
  if (++depth_ > max_depth) return scanner_.fail("nested too deeply");
  const char c = scanner_.peek();
  if (c == '[')
    named_point();
  else if (is_letter(c))
    construction();
  else
    scanner_.fail("a point is expected here: [name], or a construction such as mid([A],[B])");
  --depth_;
}

std::size_t PointReader::points() {
  std::size_t count = 0;
  while (!scanner_.failed()) {
    point();
    ++count;
    if (!scanner_.take(',')) break;
  }
  return count;
}

void PointReader::named_point() {
  const std::size_t open = scanner_.position();
  const std::string_view text = scanner_.rest();
  const std::size_t end = analysis::find_character(text, ']', 0);
  if (end == std::string_view::npos) return scanner_.fail_at(open, "this '[' is never closed");
  const std::string_view name = text.substr(1, end - 1);
  const auto problem = [&](std::string message) {
    scanner_.problem(open + 1, Severity::error, std::move(message));
  };
  if (name.empty())
    problem("the point has no name");
  else if (name.find(',') != std::string_view::npos ||
           analysis::find_character(name, '[', 0) != std::string_view::npos)
    problem(show(name) + " is no point name; a ']' seems to be missing");
  else if (name.size() > max_name_bytes)
    problem("a point name holds at most 99 bytes");
  else
    scanner_.found_point(open + 1, name);
  scanner_.skip(end + 1);
}

void PointReader::construction() {
  const std::size_t start = scanner_.position();
  const std::string_view name = scanner_.take_word();
  if (name == "EffectiveA") return effective_a(start);
  if (const auto *rule = find_rule(construction_rules, name)) return arguments(*rule, start);
  report_unknown_word(scanner_, start, name, construction_words, "a point");
}

void PointReader::arguments(const ConstructionRule &rule, std::size_t start) {
  const std::size_t open = scanner_.open_parenthesis(rule.word);
  std::size_t found = 0;
  bool has_number = false;
  while (!scanner_.failed()) {
    has_number = starts_number();
    if (has_number) {
      number(rule);
      break;  // a number is the last argument
    }
    point();
    ++found;
    if (!scanner_.take(',')) break;
  }
  scanner_.close_parenthesis(open);
  if (scanner_.failed()) return;
  if (found != rule.points) return report_point_count(scanner_, start, rule.word, rule.points, found);
  if (rule.number == Number::required && !has_number)
    scanner_.problem(start, Severity::error, in_quotes(rule.word) + " ends with a distance in millimetres");
  if (rule.number == Number::none && has_number)
    scanner_.problem(start, Severity::error, in_quotes(rule.word) + " takes no number");
}

bool PointReader::starts_number() {
  const char c = scanner_.peek();
  return is_digit(c) || c == '.' || c == '-' || c == '+';
}

void PointReader::number(const ConstructionRule &rule) {
  const std::size_t start = scanner_.position();
  const std::string_view text = scanner_.rest().substr(0, scanner_.rest().find_first_of(",)"));
  const std::string_view written = trim(text);
  scanner_.skip(text.size());
  if (!is_plain_number(written)) return scanner_.fail_at(start, show(written) + " is not a number");
  if (written.size() > max_number_bytes)
    scanner_.problem(start, Severity::error, "only the first 19 characters of this number are read");
  if (rule.number == Number::optional_whole && written.find('.') != std::string_view::npos)
    scanner_.problem(start, Severity::warning, "a length in whole pixels; the fractional part is dropped");
}

void PointReader::effective_a(std::size_t start) {
  const std::size_t open = scanner_.open_parenthesis("EffectiveA");
  if (scanner_.failed()) return;
  scanner_.skip(std::min(scanner_.rest().find(')'), scanner_.rest().size()));
  scanner_.close_parenthesis(open);
  if (!scanner_.failed() && kind_ != analysis::RecordKind::lateral)
    scanner_.problem(start, Severity::error, "\"EffectiveA\" exists on lateral films only");
}

}  // namespace app::check
