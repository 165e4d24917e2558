#include "apps/ceph/check_display.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>

#include "apps/common/names.h"
#include "tool/analysis/formula_scanner.h"

namespace app::check {
namespace {

using analysis::LineClass;

constexpr std::size_t max_segments = 30;
constexpr std::size_t max_segment_name_bytes = 5;
constexpr std::array<std::string_view, 4> sections{"Point:", "SuppLine:", "PointSetting:", "[End]"};
constexpr std::array<std::string_view, 5> settings{"Color", "Line", "Decimal", "Pos", "Size"};

std::string folded(std::string_view text) {
  return lower_case(trim(text));
}

bool is_whole_number(std::string_view text) {
  return is_plain_number(text) && text.find('.') == std::string_view::npos;
}

class DisplayCheck {
 public:
  DisplayCheck(Source &source, const Vocabulary &vocabulary) : source_(source), vocabulary_(vocabulary) {}

  void run() {
    source_.check_bytes();
    if (trim(source_.file().title()).empty())
      source_.report_file(Severity::error, "the file has no title; the setting is left out of the list");
    for (std::size_t i = 0; i < source_.lines().size() && !ended_; ++i) {
      const std::string_view text = source_.lines()[i].text;
      if (std::find(sections.begin(), sections.end(), text) != sections.end())
        enter(text);
      else if (!trim(text).empty())
        line(i, text);
    }
  }

 private:
  void enter(std::string_view section) {
    section_ = section;
    ended_ = section == "[End]";
  }

  void line(std::size_t index, std::string_view text) {
    for (const std::string_view section : sections)
      if (folded(text) == folded(section) || (text.back() == ':' && edit_distance(text, section) == 1))
        return source_.report(index, 0, Severity::error,
                              show(text) + " opens no section; it is written exactly " + in_quotes(section));
    if (section_.empty()) return before_sections(index);
    if (section_ == "Point:") check_point(source_, index, text, vocabulary_);
    if (section_ == "SuppLine:") supplementary(index, text);
  }

  void before_sections(std::size_t index) {
    const analysis::Line &line = source_.lines()[index];
    if (line.own == LineClass::title || line.block == LineClass::title) return;
    source_.report(index, 0, Severity::warning, "this line stands before the first section and is ignored");
  }

  // Supplementary lines
  // ---------------------------------------------------------------------------------------------------
  void supplementary(std::size_t index, std::string_view text) {
    if (text.front() == '=') return label(index, text.substr(1));
    const std::size_t separator = text.find('=');
    if (separator != std::string_view::npos && analysis::find_character(text, '[', 0) > separator)
      return setting(index, text.substr(0, separator), text.substr(separator + 1));
    segment(index, text);
  }

  void label(std::size_t index, std::string_view formula) {
    if (trim(formula).empty())
      return source_.report(index, 0, Severity::error, "a label needs a formula after \"=\"");
    const FormulaReport report = check_formula(formula, vocabulary_.kind, FormulaPlace::label);
    source_.report_formula(index, formula, report);
    check_points(source_, index, formula, report, vocabulary_);
  }

  void setting(std::size_t index, std::string_view name, std::string_view value) {
    const auto known = std::find_if(settings.begin(), settings.end(), [&](std::string_view setting) {
      return name.substr(1) == setting.substr(1) && folded(name) == folded(setting);
    });
    if (known == settings.end())
      return source_.report(index, 0, Severity::error,
                            show(name) + " is no setting" + source_.did_you_mean(name, settings));
    if (*known == "Color") colour(index, value);
    if (*known == "Size" && !is_whole_number(value))
      source_.report_at(index, value, Severity::error,
                        show(value) + " is no size: a whole number is expected");
    if (*known == "Line" && folded(value) != "bold" && edit_distance(value, "bold") == 1)
      source_.report_at(index, value, Severity::warning,
                        show(value) + " means a normal line; did you mean \"bold\"?");
    if (*known == "Decimal" && value != "0" && value != "1" && value != "2" && value != "0.5")
      source_.report_at(index, value, Severity::warning,
                        show(value) + " means two decimals; write 0, 1, 2 or 0.5");
  }

  void colour(std::size_t index, std::string_view value) {
    const auto parts = split(value, ',');
    if (parts.size() != 3)
      return source_.report_at(index, value, Severity::error, "a colour is written red,green,blue");
    for (const std::string_view part : parts) {
      const std::string_view digits = trim(part);
      const bool fits = is_whole_number(digits) && digits.size() <= 3 && digits.front() != '-' &&
                        digits.front() != '+' && std::stoi(std::string(digits)) <= 255;
      if (!fits)
        source_.report_at(index, part, Severity::error, show(part) + " is no colour component from 0 to 255");
    }
  }

  void segment(std::size_t index, std::string_view text) {
    const auto from = bracketed(text, 0);
    const auto to = from.data() ? bracketed(text, end_of(text, from)) : std::string_view();
    if (from.empty() || to.empty())
      return source_.report(index, 0, Severity::error,
                            "neither a setting nor a label nor a line between two points, such as [S][N]");
    for (const std::string_view name : {from, to}) segment_point(index, name);
    if (++segments_ <= max_segments) return;
    ended_ = true;
    source_.report(index, 0, Severity::error, "only 30 lines are read; this one and all that follows is not");
  }

  void segment_point(std::size_t index, std::string_view name) {
    check_point(source_, index, name, vocabulary_);
    if (name.size() > max_segment_name_bytes)
      source_.report_at(index, name, Severity::warning,
                        "only the first 5 bytes of " + show(name) + " reach the program");
  }

  static std::string_view bracketed(std::string_view text, std::size_t from) {
    const std::size_t open = analysis::find_character(text, '[', from);
    const std::size_t close =
        open == std::string_view::npos ? open : analysis::find_character(text, ']', open);
    return close == std::string_view::npos ? std::string_view() : text.substr(open + 1, close - open - 1);
  }
  static std::size_t end_of(std::string_view text, std::string_view part) {
    return static_cast<std::size_t>(part.data() - text.data()) + part.size();
  }

  Source &source_;
  const Vocabulary &vocabulary_;
  std::string_view section_;
  bool ended_ = false;
  std::size_t segments_ = 0;
};

}  // namespace

void check_display(Source &source, const Vocabulary &vocabulary) {
  DisplayCheck(source, vocabulary).run();
}

}  // namespace app::check
