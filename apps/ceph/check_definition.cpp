#include "apps/ceph/check_definition.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "apps/ceph/check_diagnosis.h"
#include "apps/ceph/check_keyword.h"
#include "apps/ceph/check_references.h"
#include "apps/ceph/check_stages.h"
#include "apps/common/names.h"
#include "tool/analysis/formula_scanner.h"
#include "tool/analysis/landmarks.h"
#include "tool/env/text.h"
#include "tool/framework/text/decimal.h"

namespace app::check {
namespace {

using analysis::LineClass;

constexpr std::size_t max_field_bytes = 99;

bool is_item_block(LineClass block) {
  return block == LineClass::calc || block == LineClass::calc2;
}

bool is_norm_block(LineClass block) {
  const int first_set = static_cast<int>(block) % 100;
  return first_set >= static_cast<int>(LineClass::mean) &&
         first_set <= static_cast<int>(LineClass::sd_female);
}

bool is_free_text(LineClass block) {
  return block == LineClass::title || block == LineClass::comment || block == LineClass::diag;
}

class DefinitionCheck {
 public:
  DefinitionCheck(Source &source, const Vocabulary &vocabulary) : source_(source), vocabulary_(vocabulary) {}

  DefinitionSummary run() {
    source_.check_bytes();
    walk();
    check_item_texts();
    check_norm_lines();
    check_column_counts();
    check_references(source_, items_, norms_, diagnosis_formulas_);
    check_stages(source_, skipped_);
    return {!items_.empty(), !norms_.empty(), !trim(source_.file().title()).empty()};
  }

 private:
  void walk() {
    skipped_.assign(source_.lines().size(), false);
    DiagnosisCheck diagnosis(source_, vocabulary_.kind);
    for (std::size_t i = 0; i < source_.lines().size(); ++i) {
      const analysis::Line &line = source_.lines()[i];
      if (line.own == LineClass::content && !trim(line.text).empty()) content(i, line, diagnosis);
    }
    diagnosis.finish();
    diagnosis_formulas_ = diagnosis.take_formulas();
    for (const FormulaLine &line : diagnosis_formulas_)
      check_points(source_, line.line, line.formula, line.report, vocabulary_);
    check_comment();
  }

  void content(std::size_t index, const analysis::Line &line, DiagnosisCheck &diagnosis) {
    if (const auto problem = misspelt_keyword(line.text, is_free_text(line.block))) {
      source_.report_at(index, trim(line.text), problem->severity, problem->message);
      skipped_[index] = problem->severity == Severity::error;
      if (skipped_[index]) return;
    }
    if (line.block == LineClass::content)
      source_.report(index, 0, Severity::warning, "this line stands before the first keyword and is ignored");
    if (is_item_block(line.block)) item(index, line);
    if (is_norm_block(line.block)) norm(index, line);
    if (line.block == LineClass::diag) diagnosis.sentence(index);
    if (line.block == LineClass::param) diagnosis.parameters(index);
  }

  void check_comment() {
    const auto lines = source_.lines();
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
      if (lines[i].own != LineClass::comment) continue;
      if (trim(lines[i + 1].text).empty() || lines[i + 1].own != LineClass::content)
        source_.report(i, 0, Severity::warning, "the comment must stand on the line right after its keyword");
      return;
    }
  }

  // Items
  // ---------------------------------------------------------------------------------------------------
  void item(std::size_t index, const analysis::Line &line) {
    const std::size_t separator = line.text.find('=');
    ItemLine entry;
    entry.line = index;
    entry.text = line.text.substr(0, separator);
    entry.listed = line.block == LineClass::calc;
    if (separator == std::string_view::npos) {
      if (analysis::find_character(line.text, '[', 0) != std::string_view::npos &&
          line.text.find('(') != std::string_view::npos)
        source_.report(index, 0, Severity::warning,
                       "without \"=\" this line is a heading; it looks like a formula");
    } else {
      entry.formula = line.text.substr(separator + 1);
    }
    entry.report = check_formula(entry.formula, vocabulary_.kind, FormulaPlace::item);
    source_.report_formula(index, entry.formula, entry.report);
    check_points(source_, index, entry.formula, entry.report, vocabulary_);
    if (entry.report.is_choice && entry.report.alternative_count == 0 && entry.listed)
      source_.report_at(index, entry.formula, Severity::warning,
                        "a switch without alternatives shows no value; write them after ';'");
    items_.push_back(std::move(entry));
  }

  void check_item_texts() {
    std::map<std::string_view, std::size_t> seen;
    for (const ItemLine &item : items_) {
      check_text_length(item.line, item.text);
      const auto [first, fresh] = seen.emplace(item.text, item.line);
      if (fresh || trim(item.text).empty() || !item.has_formula()) continue;
      source_.report(item.line, 0, Severity::warning,
                     "item " + show(item.text) + " already stands in line " +
                         std::to_string(source_.number_of(first->second)) +
                         "; references and norms take that one");
    }
  }

  void check_text_length(std::size_t line, std::string_view text) {
    if (text.size() <= analysis::max_item_text_bytes) return;
    source_.report(line, analysis::max_item_text_bytes, Severity::error,
                   "the item text has " + std::to_string(text.size()) + " bytes; only the first " +
                       std::to_string(analysis::max_item_text_bytes) + " are read");
  }

  // Norms
  // ---------------------------------------------------------------------------------------------------
  void norm(std::size_t index, const analysis::Line &line) {
    const std::size_t separator = line.text.find('=');
    if (separator == std::string_view::npos)
      return source_.report(index, 0, Severity::error, "a norm line is written: item=value,value,...");
    NormLine entry{index, line.text.substr(0, separator), line.block, {}};
    check_text_length(index, entry.item);
    const auto fields = split(line.text.substr(separator + 1), ',');
    for (const std::string_view field : fields)
      entry.fields.push_back(norm_field(index, field, fields.size() > 1));
    norms_.push_back(std::move(entry));
  }

  FormulaLine norm_field(std::size_t index, std::string_view field, bool one_of_several) {
    FormulaLine plain{index, field, {}};
    if (trim(field).empty()) {
      source_.report_at(index, field, Severity::warning, "an empty norm counts as 0");
      return plain;
    }
    if (field.size() > max_field_bytes)
      source_.report_at(index, field, Severity::error,
                        "a norm holds at most 99 characters; the rest is not read");
    const bool number = env::is_number(field);
    if (is_plain_number(field)) {
      if (!number) source_.report_at(index, field, Severity::error, "a norm has at most six decimals");
      return plain;
    }
    if (number) {
      source_.report_at(index, field, Severity::error,
                        show(field) + " is taken for the number " +
                            framework::fixed(framework::decimal_value(field), 1) +
                            ", not evaluated as a formula: begin a norm formula with a letter");
      return plain;
    }
    if (one_of_several &&
        std::count(field.begin(), field.end(), '(') != std::count(field.begin(), field.end(), ')')) {
      source_.report_at(
          index, field, Severity::error,
          show(field) + " is cut at a comma: commas separate norm columns and cannot stand in a formula");
      return plain;
    }
    return norm_formula(index, field);
  }

  FormulaLine norm_formula(std::size_t index, std::string_view field) {
    FormulaLine result{index, field, check_formula(field, vocabulary_.kind, FormulaPlace::norm)};
    source_.report_formula(index, field, result.report);
    check_points(source_, index, field, result.report, vocabulary_);
    return result;
  }

  void check_norm_lines() {
    if (items_.empty()) return;  // a file of norms alone, linked to from elsewhere
    std::vector<std::string_view> texts;
    for (const ItemLine &item : items_) texts.push_back(item.text);
    const std::set<std::string_view> known(texts.begin(), texts.end());
    for (const NormLine &norm : norms_) {
      if (known.contains(norm.item)) continue;
      source_.report(
          norm.line, 0, Severity::error,
          "item " + show(norm.item) + " is not in this file" + source_.did_you_mean(norm.item, texts));
    }
    check_hidden_norms();
  }

  /// The first norm in file order wins, for each sex apart.
  void check_hidden_norms() {
    std::array<std::map<std::string_view, std::size_t>, 4> first;  // mean and SD of males, then of females
    for (const NormLine &norm : norms_) {
      bool used = false;
      std::size_t earlier = 0;
      for (const int sex : {1, 2}) {
        if (!norm.applies_to(sex)) continue;
        auto &seen = first[static_cast<std::size_t>(sex - 1) * 2 + (norm.is_mean() ? 0 : 1)];
        const auto [place, fresh] = seen.emplace(norm.item, norm.line);
        used = used || fresh;
        earlier = place->second;
      }
      if (used) continue;
      source_.report(norm.line, 0, Severity::warning,
                     "never used: line " + std::to_string(source_.number_of(earlier)) +
                         " already gives this norm of " + show(norm.item));
    }
  }

  /// One column serves all ages; lists of several columns must agree within a set.
  void check_column_counts() {
    for (const bool second_set : {false, true}) {
      std::map<std::size_t, std::size_t> lists_by_length;
      for (const NormLine &norm : norms_)
        if (norm.second_set() == second_set && norm.fields.size() > 1) ++lists_by_length[norm.fields.size()];
      if (lists_by_length.size() < 2) continue;
      const auto usual = std::max_element(lists_by_length.begin(), lists_by_length.end(),
                                          [](const auto &a, const auto &b) { return a.second < b.second; });
      for (const NormLine &norm : norms_) {
        if (norm.second_set() != second_set || norm.fields.size() == 1 || norm.fields.size() == usual->first)
          continue;
        source_.report_at(norm.line, norm.fields.front().formula, Severity::warning,
                          std::to_string(norm.fields.size()) + " norm columns; the other lists have " +
                              std::to_string(usual->first));
      }
    }
  }

  Source &source_;
  const Vocabulary &vocabulary_;
  std::vector<ItemLine> items_;
  std::vector<NormLine> norms_;
  std::vector<FormulaLine> diagnosis_formulas_;
  std::vector<bool> skipped_;  // lines that are misspelt keywords
};

}  // namespace

DefinitionSummary check_definition(Source &source, const Vocabulary &vocabulary) {
  return DefinitionCheck(source, vocabulary).run();
}

void check_points(Source &source, std::size_t line, std::string_view formula, const FormulaReport &report,
                  const Vocabulary &vocabulary) {
  for (const PointUse &use : report.points)
    check_point(source, line, formula.substr(use.position, use.name.size()), vocabulary);
}

void check_point(Source &source, std::size_t line, std::string_view name, const Vocabulary &vocabulary) {
  constexpr std::size_t max_user_name_bytes = 5;
  const auto landmarks = analysis::vocabulary(vocabulary.kind);
  if (std::find(landmarks.begin(), landmarks.end(), name) != landmarks.end()) return;
  if (vocabulary.user_points.contains(name)) return;
  if (name.size() > max_user_name_bytes)
    return source.report_at(line, name, Severity::error,
                            "point " + show(name) +
                                " is no landmark and too long for a user point (5 bytes)" +
                                source.did_you_mean(name, landmarks));
  if (landmarks.empty()) return;  // casts have no landmarks: every point is the user's
  source.report_at(line, name, Severity::warning,
                   "point " + show(name) + " is unknown unless the user defines it" +
                       source.did_you_mean(name, landmarks));
}

}  // namespace app::check
