// CCephCalc: formulas, their terms, and named items.

#include <algorithm>
#include <cstring>

#include "tool/analysis/evaluator.h"
#include "tool/analysis/formula_compiler.h"
#include "tool/api/CCephCalc.h"

using analysis::Analysis;
using analysis::Evaluator;
using analysis::Formula;
using analysis::FormulaCompiler;
using analysis::Mode;
using analysis::Patient;
using analysis::Program;
using analysis::Term;
using analysis::Tracing;
using analysis::ValueTable;

namespace {

const analysis::NameIndex *item_index(const std::optional<Analysis> &file) {
  return file ? &file->compiled().by_text : nullptr;
}

std::optional<Analysis> load(int mode, int file_index) {
  return Analysis::load(Mode{mode}, file_index, Analysis::Diagnosis::no);
}

/// Evaluated text is blank for the caller from now on.
void consume(char *text, FormulaCompiler &compiler) {
  const std::string &consumed = compiler.consumed_text();
  std::copy(consumed.begin(), consumed.end(), text);
}

std::optional<Term> measurement_term(unsigned int kind) {
  switch (kind) {
    case 101:
      return Term::len;
    case 102:
      return Term::len_r;
    case 103:
      return Term::len_d;
    case 104:
      return Term::angle1;
    case 105:
      return Term::angle2;
    case 108:
      return Term::model;
    case 109:
      return Term::angle3;
    case 110:
      return Term::angle4;
    default:
      return std::nullopt;
  }
}

Term reference_term(int selector) {
  switch (selector) {
    case 1:
      return Term::item_sd_units;
    case 2:
      return Term::item_mean;
    case 3:
      return Term::item_sd;
    default:
      return Term::item_value;
  }
}

/// SD units of an item, with the mean and SD that they rest on.
double item_sd_units(Evaluator &evaluator, std::size_t item, double value, double *mean_out, double *sd_out) {
  const std::optional<double> mean = evaluator.norm_number(item, analysis::NormKind::mean);
  const double sd = evaluator.norm_number(item, analysis::NormKind::sd).value_or(0.0);
  if (mean_out) *mean_out = mean.value_or(analysis::missing_value);
  if (sd_out) *sd_out = sd;
  return CCephCalc::GetDoubleSDU(value, mean.value_or(0.0), sd);
}

}  // namespace

double CCephCalc::Calc(int mode, int fileIndex, char *formula, double *values, int *count, void *record,
                       unsigned short *kCount, tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints,
                       int sex, int ageCode, double magnification, int whole) {
  if (!formula) return 0.0;
  const auto extent = whole == 0 ? FormulaCompiler::Extent::group : FormulaCompiler::Extent::whole;
  const auto used =
      static_cast<std::size_t>(std::clamp(count ? *count : 0, 0, static_cast<int>(analysis::max_values)));
  // Only a formula that quotes an item text needs the file.
  const std::optional<Analysis> file = std::strchr(formula, '"') ? load(mode, fileIndex) : std::nullopt;
  Program program;
  FormulaCompiler compiler(program, Mode{mode}, item_index(file), false);
  const Formula compiled = compiler.compile(formula, extent, used);
  ValueTable table{};
  if (values) std::copy_n(values, table.size(), table.begin());
  const Tracing tracing(Mode{mode}, record, kCount, kPoints, uCount, uPoints);
  const double result = Evaluator(tracing, Patient{sex, ageCode, magnification}, file ? &*file : nullptr,
                                  Evaluator::Reasons::ignore)
                            .run(program, compiled, table);
  if (values) std::copy_n(table.begin() + compiled.base, compiled.count, values + compiled.base);
  if (count) *count = static_cast<int>(used + compiled.count);
  consume(formula, compiler);
  return result;
}

double CCephCalc::Calc_Mult(int mode, unsigned int kind, char *text, void *record, unsigned short *kCount,
                            tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints, char sex) {
  const std::optional<Term> term = measurement_term(kind);
  if (!text || !term) return 0.0;
  Program program;
  FormulaCompiler compiler(program, Mode{mode}, nullptr, false);
  const Formula compiled = compiler.compile_term(*term, text);
  const Tracing tracing(Mode{mode}, record, kCount, kPoints, uCount, uPoints);
  const double result =
      Evaluator(tracing, Patient{sex}, nullptr, Evaluator::Reasons::ignore).run(program, compiled);
  consume(text, compiler);
  return result;
}

double CCephCalc::Calc_SDU(int mode, int selector, int fileIndex, char *text, void *record,
                           unsigned short *kCount, tagKPOINT *kPoints, unsigned short *uCount,
                           tagUPOINT *uPoints, int sex, int ageCode, double magnification) {
  if (!text) return 0.0;
  const std::optional<Analysis> file = load(mode, fileIndex);
  Program program;
  FormulaCompiler compiler(program, Mode{mode}, item_index(file), false);
  const Formula compiled = compiler.compile_term(reference_term(selector), text);
  const Tracing tracing(Mode{mode}, record, kCount, kPoints, uCount, uPoints);
  const double result = Evaluator(tracing, Patient{sex, ageCode, magnification}, file ? &*file : nullptr,
                                  Evaluator::Reasons::ignore)
                            .run(program, compiled);
  consume(text, compiler);
  return result;
}

double CCephCalc::Calc_1(int selector, int mode, int fileIndex, const char *item, void *record,
                         unsigned short *kCount, tagKPOINT *kPoints, unsigned short *uCount,
                         tagUPOINT *uPoints, int sex, int ageCode, double magnification, double *meanOut,
                         double *sdOut) {
  const std::optional<Analysis> file = load(mode, fileIndex);
  const std::optional<std::size_t> index = file && item ? file->find_item(item) : std::nullopt;
  if (!index || file->items()[*index].heading) return 0.0;
  const Tracing tracing(Mode{mode}, record, kCount, kPoints, uCount, uPoints);
  Evaluator evaluator(tracing, Patient{sex, ageCode, magnification}, &*file, Evaluator::Reasons::ignore);
  const auto norm = [&](analysis::NormKind which, double *out) {
    const double found = evaluator.norm_number(*index, which).value_or(0.0);
    if (out) *out = found;
    return found;
  };
  switch (selector) {
    case 1:
      return item_sd_units(evaluator, *index, evaluator.item(*index).number(), meanOut, sdOut);
    case 2:
      return norm(analysis::NormKind::mean, meanOut);
    case 3:
      return norm(analysis::NormKind::sd, sdOut);
    default:
      return evaluator.item(*index).number();
  }
}
