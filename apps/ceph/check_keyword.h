#pragma once
// Lines that were meant as a keyword but are not one.

#include <optional>
#include <string>
#include <string_view>

#include "apps/ceph/check_formula.h"

namespace app::check {

struct KeywordProblem {
  Severity severity;
  std::string message;  ///< UTF-8
};

/// What is wrong with a content line that looks like a misspelt keyword; empty for any other line. In free
/// text (titles, comments, sentences) a keyword at the start of a longer line is not suspicious.
std::optional<KeywordProblem> misspelt_keyword(std::string_view line, bool free_text);

}  // namespace app::check
