#include "tool/analysis/analysis.h"

#include <algorithm>

#include "tool/analysis/compiled_items.h"
#include "tool/analysis/definition_folder.h"
#include "tool/analysis/formula_compiler.h"

namespace analysis {
namespace {

bool is_item_line(const Line &line) {
  return line.own == LineClass::content && (line.block == LineClass::calc || line.block == LineClass::calc2);
}

void read_item(const Line &line, std::size_t index, Mode mode, Item &item) {
  const KeyValue parts = split_key_value(line.text);
  const KindSuffix suffix = split_kind_suffix(parts.value);
  item.text = parts.key;
  item.formula = suffix.formula;
  item.heading = parts.value.empty();
  // On a cast nothing is magnified: its lengths are read as plain values.
  item.kind = mode == Mode::model && suffix.kind == 0 ? 2 : suffix.kind;
  item.display_flag = suffix.display_flag;
  item.listed = line.block == LineClass::calc;
  item.line = index;
}

void read_items(const DefinitionFile &file, Mode mode, CompiledItems &compiled) {
  const std::span<const Line> lines = file.lines();
  std::uint32_t count = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!is_item_line(lines[i])) continue;
    read_item(lines[i], i, mode, compiled.items.emplace_back());
    compiled.first_with_text.push_back(compiled.by_text.insert(compiled.items.back().text, count++));
  }
}

/// What a block holds for the norms: which of them, and for whom.
struct NormBlock {
  NormKind which;
  bool accepted[2];  ///< male, female
  bool second_set;

  explicit NormBlock(LineClass block)
      : which(is_norm_block(block, NormKind::mean, 1) || is_norm_block(block, NormKind::mean, 2)
                  ? NormKind::mean
                  : NormKind::sd),
        accepted{is_norm_block(block, which, 1), is_norm_block(block, which, 2)},
        second_set(static_cast<int>(block) > 100) {}
};

/// Notes every item's first norm line of each kind and sex.
void read_norms(const DefinitionFile &file, CompiledItems &compiled) {
  compiled.norms.resize(compiled.items.size());
  compiled.norm_lines.reserve(compiled.items.size() * 2);
  NormBlock block(LineClass::content);
  // Norms mostly stand in the order of their items: the item behind the last one is looked at first.
  std::uint32_t next = 0;
  const auto find_item = [&](std::string_view text) -> std::optional<std::uint32_t> {
    const bool is_next = next < compiled.items.size() && compiled.items[next].text == text;
    return is_next ? compiled.first_with_text[next] : compiled.by_text.find(text);
  };
  for (const Line &line : file.lines()) {
    if (line.own != LineClass::content) {
      block = NormBlock(line.own);
      continue;
    }
    if (line.text.empty() || !(block.accepted[0] || block.accepted[1])) continue;
    const KeyValue norm = split_key_value(line.text);
    const std::optional<std::uint32_t> item = find_item(norm.key);
    if (!item) continue;
    next = *item + 1;
    compiled.norm_lines.push_back({norm.value, block.second_set});
    const auto number = static_cast<std::uint32_t>(compiled.norm_lines.size());
    auto &lines_by_sex = compiled.norms[*item].line[block.which == NormKind::mean ? 0 : 1];
    for (std::size_t sex = 0; sex < 2; ++sex) {
      if (block.accepted[sex] && lines_by_sex[sex] == 0) lines_by_sex[sex] = number;
    }
  }
}

void compile_alternatives(std::string_view formula, FormulaCompiler &compiler, CompiledItems &compiled,
                          ItemPlan &plan) {
  std::size_t at = formula.find(';');
  plan.has_alternatives = at != std::string_view::npos;
  plan.first_alternative = static_cast<std::uint32_t>(compiled.alternatives.size());
  while (at != std::string_view::npos) {
    const std::size_t next = formula.find(';', at + 1);
    const std::string_view text = formula.substr(at + 1, next - at - 1);
    const bool is_text = text.find('"') != std::string_view::npos;
    Alternative &alternative = compiled.alternatives.emplace_back();
    alternative.is_text = is_text;
    alternative.text = text;
    if (!is_text) compiler.compile(text, alternative.formula);
    ++plan.alternative_count;
    at = next;
  }
}

void compile_items(Mode mode, CompiledItems &compiled) {
  FormulaCompiler compiler(compiled.program, mode, &compiled.by_text, compiled.diagnosed);
  compiled.plans.resize(compiled.items.size());
  compiled.program.instructions.reserve(compiled.items.size() * 3);
  compiled.program.points.reserve(compiled.items.size());
  for (std::size_t i = 0; i < compiled.items.size(); ++i) {
    const std::string_view formula = compiled.items[i].formula;
    if (compiled.items[i].heading) continue;
    ItemPlan &plan = compiled.plans[i];
    compiler.compile(formula, plan.formula);
    plan.chooses = compiler.may_choose() && find_word(formula, "switch") != std::string_view::npos;
    if (plan.chooses) compile_alternatives(formula, compiler, compiled, plan);
  }
}

}  // namespace

Analysis::Analysis(DefinitionFile file, Mode mode, Diagnosis diagnosis)
    : file_(std::move(file)), mode_(mode) {
  const auto expected =
      static_cast<std::size_t>(std::count_if(file_.lines().begin(), file_.lines().end(), is_item_line));
  compiled_ = std::make_unique<CompiledItems>(expected);
  compiled_->diagnosed = diagnosis == Diagnosis::yes;
  compiled_->items.reserve(expected);
  compiled_->first_with_text.reserve(expected);
  read_items(file_, mode, *compiled_);
  read_norms(file_, *compiled_);
  compile_items(mode, *compiled_);
}

Analysis::Analysis(Analysis &&) noexcept = default;
Analysis &Analysis::operator=(Analysis &&) noexcept = default;
Analysis::~Analysis() = default;

std::optional<Analysis> Analysis::load(Mode mode, int index, Diagnosis diagnosis) {
  std::optional<DefinitionFile> file = DefinitionFile::read(definition_path(mode, index).c_str());
  if (!file) return std::nullopt;
  return Analysis(std::move(*file), mode, diagnosis);
}

std::span<const Item> Analysis::items() const {
  return compiled_->items;
}

std::optional<std::size_t> Analysis::find_item(std::string_view text) const {
  return compiled_->by_text.find(text);
}

std::optional<std::string_view> Analysis::norm_field(std::string_view item, NormKind which,
                                                     const Patient &patient) const {
  const std::optional<NormLine> line = find_norm_line(file_, item, which, patient.sex);
  if (!line) return std::nullopt;
  return norm_column(*line, patient.age_code);
}

}  // namespace analysis
