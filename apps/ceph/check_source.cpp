#include "apps/ceph/check_source.h"

#include <algorithm>
#include <optional>

#include "apps/common/names.h"
#include "tool/framework/text/cp932.h"

namespace app::check {
namespace {

/// Number of the character that holds the byte, counted from 1.
std::size_t column_of(std::string_view line, std::size_t byte) {
  std::size_t column = 1;
  for (std::size_t at = 0; at < std::min(byte, line.size()); ++column) {
    at = framework::next_character(line, at);
    if (at > byte) break;
  }
  return column;
}

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

}  // namespace

Source::Source(std::string file, std::string text, std::vector<Finding> &findings)
    : name_(std::move(file)), file_(std::move(text)), findings_(findings) {
  std::size_t number = 1;
  for (std::size_t i = 0; i < lines().size(); ++i) {
    numbers_.push_back(number);
    const std::size_t end = lines()[i].offset + whole_line(i).size();
    const bool ended_by_nul = end < file_.text().size() && file_.text()[end] == '\0';
    number += ended_by_nul ? 0 : 1;
  }
}

void Source::add(Finding finding) {
  ++reported_;
  if (reported_ < max_findings) return findings_.push_back(std::move(finding));
  if (reported_ == max_findings)
    findings_.push_back(
        {name_, 0, 0, Severity::error, "too many findings; the rest of this file is not shown"});
}

void Source::report(std::size_t line, std::size_t byte, Severity severity, std::string message) {
  add({name_, number_of(line), column_of(whole_line(line), byte), severity, std::move(message)});
}

void Source::report_at(std::size_t line, std::string_view place, Severity severity, std::string message) {
  const std::string_view text = whole_line(line);
  report(line, static_cast<std::size_t>(place.data() - text.data()), severity, std::move(message));
}

void Source::report_file(Severity severity, std::string message) {
  add({name_, 0, 0, severity, std::move(message)});
}

void Source::report_formula(std::size_t line, std::string_view formula, const FormulaReport &report) {
  for (const FormulaProblem &problem : report.problems)
    report_at(line, formula.substr(problem.position), problem.severity, problem.message);
}

std::string_view Source::whole_line(std::size_t line) const {
  const analysis::Line &entry = lines()[line];
  if (!entry.cut) return entry.text;
  const std::string_view rest = file_.text().substr(entry.offset);
  return rest.substr(0, rest.find_first_of(std::string_view("\r\n\0", 3)));
}

void Source::check_bytes() {
  check_code_page();
  check_line_ends();
  check_lengths();
}

void Source::check_code_page() {
  const std::string_view text = file_.text();
  if (text.substr(0, utf8_mark.size()) == utf8_mark)
    return report_file(
        Severity::error,
        "the file starts with a UTF-8 byte order mark; save the file as Shift-JIS (code page 932)");
  std::optional<bool> is_utf8;
  for (std::size_t i = 0; i < lines().size(); ++i) {
    const std::string_view line = whole_line(i);
    std::size_t bad = 0;
    if (framework::utf8_from_cp932(line, &bad)) continue;
    if (!is_utf8) is_utf8 = framework::cp932_from_utf8(text).has_value();
    report(i, bad, Severity::error,
           "the byte at offset " + std::to_string(lines()[i].offset + bad) +
               " begins no character of code page 932" +
               (*is_utf8 ? "; the file is UTF-8, save it as Shift-JIS" : ""));
    if (*is_utf8) return;
  }
}

void Source::check_line_ends() {
  const std::string_view text = file_.text();
  const std::size_t nul = text.find('\0');
  std::size_t lone_feeds = 0;
  std::size_t first_line = 0;
  for (std::size_t i = 0; i < lines().size(); ++i) {
    const std::size_t end = lines()[i].offset + whole_line(i).size();
    if (end == nul) report(i, whole_line(i).size(), Severity::error, "a NUL byte ends the line here");
    if (end >= text.size() || text[end] != '\n') continue;
    if (lone_feeds++ == 0) first_line = i;
  }
  if (lone_feeds > 0)
    report(first_line, whole_line(first_line).size(), Severity::warning,
           std::to_string(lone_feeds) + (lone_feeds == 1 ? " line ends" : " lines end") +
               " with LF alone; definition files have CR LF");
}

void Source::check_lengths() {
  for (std::size_t i = 0; i < lines().size(); ++i) {
    if (!lines()[i].cut) continue;
    report(i, lines()[i].text.size(), Severity::error,
           "the line has " + std::to_string(whole_line(i).size()) + " bytes; only the first " +
               std::to_string(analysis::max_line_bytes) + " are read");
  }
}

std::string_view trim(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t start = 0;;) {
    const std::size_t end = text.find(separator, start);
    parts.push_back(text.substr(start, end - start));
    if (end == std::string_view::npos) return parts;
    start = end + 1;
  }
}

std::string show(std::string_view cp932) {
  return in_quotes(framework::utf8_for_display(cp932));
}

std::string Source::did_you_mean(std::string_view name, std::span<const std::string_view> candidates) const {
  constexpr std::size_t max_candidates = 1000;  // a hostile file must not cost minutes
  if (reported_ >= max_findings) return {};
  const auto near = nearest_name(name, candidates.subspan(0, std::min(candidates.size(), max_candidates)));
  return near ? "; did you mean " + show(*near) + "?" : std::string();
}

}  // namespace app::check
