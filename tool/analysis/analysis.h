#pragma once
// A parsed analysis: a definition file with its formulas compiled. It is immutable, may be held and shared
// between threads, and is applied to any number of tracings through Evaluation.

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tool/analysis/definition_file.h"
#include "tool/analysis/mode.h"
#include "tool/analysis/reason.h"
#include "tool/analysis/tracing.h"

namespace analysis {

/// Who the norms are for.
struct Patient {
  int sex = 1;                 ///< 1 male, any other value female
  int age_code = 0;            ///< second norm column x 100 + first norm column
  double magnification = 1.1;  ///< of the radiograph; norms of lengths are written for 1.1
};

enum class NormKind { mean, sd };

/// An item line of a "Calc:", "Calc1:" or "Calc2:" block.
struct Item {
  std::string_view text;     ///< at most 49 bytes
  std::string_view formula;  ///< without its kind suffix
  bool heading;              ///< nothing is written behind the item text
  int kind;                  ///< 0 a length (never in the cast mode)
  int display_flag;
  bool listed;       ///< from the first item set: a row of the result table
  std::size_t line;  ///< index into the file's lines
};

struct CompiledItems;  // defined beside the compiler

class Analysis {
 public:
  /// Whether formulas are also searched for faults, so that malformed ones can be reported.
  enum class Diagnosis { no, yes };

  Analysis(DefinitionFile file, Mode mode, Diagnosis diagnosis = Diagnosis::yes);
  Analysis(Analysis &&) noexcept;
  Analysis &operator=(Analysis &&) noexcept;
  ~Analysis();

  /// Reads definition file `index` of `mode`; empty when there is none.
  static std::optional<Analysis> load(Mode mode, int index, Diagnosis diagnosis = Diagnosis::yes);

  Mode mode() const { return mode_; }
  const DefinitionFile &file() const { return file_; }
  std::span<const Item> items() const;
  /// The first item with exactly this text.
  std::optional<std::size_t> find_item(std::string_view text) const;
  /// The raw norm field of an item for a sex and age code, as written; empty when there is none.
  std::optional<std::string_view> norm_field(std::string_view item, NormKind which,
                                             const Patient &patient) const;

  const CompiledItems &compiled() const { return *compiled_; }

 private:
  DefinitionFile file_;
  Mode mode_;
  std::unique_ptr<CompiledItems> compiled_;
};

}  // namespace analysis
