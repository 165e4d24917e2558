#include "apps/ceph/check_formula_words.h"

#include "apps/common/names.h"

namespace app::check {

void report_unknown_word(FormulaScanner &scanner, std::size_t start, std::string_view name,
                         std::span<const std::string_view> known, std::string_view wanted) {
  const bool other_kind = holds(term_words, name) || holds(construction_words, name);
  const std::string fault = other_kind ? " is not " + std::string(wanted) : std::string(" is unknown");
  scanner.problem(start, Severity::error, in_quotes(name) + fault + ": " + suggest(name, known));
  scanner.skip_arguments();
}

void report_point_count(FormulaScanner &scanner, std::size_t start, std::string_view word, std::size_t wanted,
                        std::size_t found) {
  scanner.problem(start, Severity::error,
                  in_quotes(word) + " takes " + count_of(wanted, "point") + ", not " + std::to_string(found));
}

}  // namespace app::check
