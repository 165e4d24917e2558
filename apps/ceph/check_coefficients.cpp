#include "apps/ceph/check_coefficients.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <optional>

#include "apps/common/names.h"
#include "tool/analysis/bone_age.h"
#include "tool/framework/text/decimal.h"

namespace app::check {
namespace {

constexpr std::string_view section_name = "[CVB_AGE]";
constexpr std::array<std::string_view, 8> keys{"PARAM_M0", "PARAM_M1", "PARAM_M2", "PARAM_M3",
                                               "PARAM_F0", "PARAM_F1", "PARAM_F2", "PARAM_F3"};

std::string shown(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%g", value);
  return text.data();
}

/// What counts where the file says nothing: that of a file that does not exist.
double default_of(std::size_t key) {
  return analysis::bone_age_coefficients("", key < 4 ? 1 : 2)[key % 4];
}

std::optional<std::size_t> index_of(std::string_view key) {
  for (std::size_t i = 0; i < keys.size(); ++i)
    if (lower_case(key) == lower_case(keys[i])) return i;
  return std::nullopt;
}

/// Whether all of the text is one finite number.
bool is_number(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
}

std::string_view unquoted(std::string_view text) {
  const bool quoted =
      text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.front() == text.back();
  return quoted ? text.substr(1, text.size() - 2) : text;
}

class CoefficientCheck {
 public:
  explicit CoefficientCheck(Source &source) : source_(source) {}

  void run() {
    source_.check_bytes();
    for (std::size_t i = 0; i < source_.lines().size(); ++i) {
      const std::string_view text = trim(source_.whole_line(i));
      if (text.empty() || text.front() == ';') continue;
      if (text.front() == '[')
        heading(i, text);
      else if (!heading_)
        source_.report(i, 0, Severity::warning, "this line stands before the first section and is ignored");
      else if (inside_)
        entry(i, text);
    }
    missing();
  }

 private:
  void heading(std::size_t line, std::string_view text) {
    heading_ = true;
    inside_ = !section_ && lower_case(text) == lower_case(section_name);
    if (inside_)
      section_ = line;
    else
      source_.report_at(line, text, Severity::warning,
                        "nothing of this section is read; the coefficients stand in one section " +
                            in_quotes(section_name));
  }

  void entry(std::size_t line, std::string_view text) {
    const std::size_t separator = text.find('=');
    const std::string_view name = trim(text.substr(0, separator));
    if (separator == std::string_view::npos)
      return source_.report_at(line, text, Severity::error,
                               "ignored: a coefficient is written such as " + std::string(keys[0]) + "=0.82");
    const auto key = index_of(name);
    if (!key)
      return source_.report_at(line, text, Severity::error,
                               show(name) + " is no coefficient" + source_.did_you_mean(name, keys));
    if (lines_[*key])
      return source_.report_at(line, text, Severity::warning,
                               "never used: line " + std::to_string(source_.number_of(*lines_[*key])) +
                                   " already gives " + std::string(keys[*key]));
    lines_[*key] = line;
    const std::string_view rest = text.substr(separator + 1);
    const std::string_view value = trim(rest);
    if (is_number(unquoted(value))) return;
    source_.report_at(
        line, value.empty() ? rest : value, Severity::error,
        show(value) + " is no number and counts " + shown(framework::decimal_value(unquoted(value))));
  }

  void missing() {
    if (!section_)
      return source_.report_file(Severity::error, "there is no section " + in_quotes(section_name) +
                                                      "; every coefficient has its default");
    for (std::size_t i = 0; i < keys.size(); ++i)
      if (!lines_[i])
        source_.report(*section_, 0, Severity::warning,
                       std::string(keys[i]) + " is missing; it is " + shown(default_of(i)));
  }

  Source &source_;
  bool heading_ = false;                                       // a section has begun
  bool inside_ = false;                                        // and it is ours
  std::optional<std::size_t> section_;                         // its line
  std::array<std::optional<std::size_t>, keys.size()> lines_;  // of the keys that were found
};

}  // namespace

void check_coefficients(Source &source) {
  CoefficientCheck(source).run();
}

}  // namespace app::check
