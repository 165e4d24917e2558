#pragma once
// One text file under examination: its lines, and the place where every finding about it is written down.

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/ceph/check_formula.h"
#include "tool/analysis/definition_file.h"

namespace app::check {

/// What is wrong, where. Lines and columns count from 1; columns are characters, as an editor shows them. A
/// line of 0 means the file as a whole.
struct Finding {
  std::string file;  ///< relative to the checked folder, '/' between the parts, UTF-8
  std::size_t line;
  std::size_t column;
  Severity severity;
  std::string message;  ///< UTF-8
};

class Source {
 public:
  static constexpr std::size_t max_findings = 200;  ///< of one file; the rest is only counted

  /// `file` is the path to show; `text` the bytes of the file.
  Source(std::string file, std::string text, std::vector<Finding> &findings);

  std::span<const analysis::Line> lines() const { return file_.lines(); }
  const analysis::DefinitionFile &file() const { return file_; }

  /// As an editor counts, from 1: a NUL byte ends a line for the engine only.
  std::size_t number_of(std::size_t line) const { return numbers_[line]; }

  /// `byte` counts from the start of line `line` (0-based index into lines()).
  void report(std::size_t line, std::size_t byte, Severity severity, std::string message);
  /// `place` is a part of the line's text.
  void report_at(std::size_t line, std::string_view place, Severity severity, std::string message);
  void report_file(Severity severity, std::string message);
  /// Takes over the problems of a formula that stands at `formula` in a line.
  void report_formula(std::size_t line, std::string_view formula, const FormulaReport &report);

  /// "; did you mean ...?" when one of the candidates is near, else empty. All in code page 932.
  std::string did_you_mean(std::string_view name, std::span<const std::string_view> candidates) const;

  /// Text of a line that is longer than the engine reads included.
  std::string_view whole_line(std::size_t line) const;

  /// Rules for every text file: code page, line ends, line lengths, NUL bytes.
  void check_bytes();

 private:
  void check_code_page();
  void check_line_ends();
  void check_lengths();
  void add(Finding finding);

  std::string name_;
  analysis::DefinitionFile file_;
  std::vector<Finding> &findings_;
  std::vector<std::size_t> numbers_;  // of the lines, in an editor
  std::size_t reported_ = 0;
};

/// Text between blanks and tabs.
std::string_view trim(std::string_view text);

/// Parts between separators, at least one.
std::vector<std::string_view> split(std::string_view text, char separator);

/// A code page 932 text in double quotes for a message.
std::string show(std::string_view cp932);

}  // namespace app::check
