// CCephCalc: points by name and point expressions.

#include <cstring>

#include "tool/analysis/definition_file.h"
#include "tool/analysis/definition_folder.h"
#include "tool/analysis/evaluator.h"
#include "tool/analysis/formula_compiler.h"
#include "tool/analysis/points.h"
#include "tool/api/CCephCalc.h"

using analysis::Mode;
using analysis::Tracing;

namespace {

constexpr std::size_t max_bracketed_bytes = 9;

bool names_point(std::string_view formula, std::string_view name) {
  std::size_t open = analysis::find_character(formula, '[', 0);
  while (open != std::string_view::npos) {
    const std::size_t close = analysis::find_character(formula, ']', open + 1);
    if (close == std::string_view::npos) return false;
    const std::string_view bracketed = formula.substr(open + 1, close - open - 1);
    if (bracketed.size() <= max_bracketed_bytes && bracketed == name) return true;
    open = analysis::find_character(formula, '[', close + 1);
  }
  return false;
}

bool file_names_point(const analysis::DefinitionFile &file, std::string_view name) {
  for (const analysis::Line &line : file.lines()) {
    const bool is_formula_line =
        line.own == analysis::LineClass::content && line.block == analysis::LineClass::calc;
    if (is_formula_line && names_point(analysis::split_key_value(line.text).value, name)) return true;
  }
  return false;
}

}  // namespace

CPointD CCephCalc::PointPos(int mode, const char *name, void *record, unsigned short *kCount,
                            tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints) {
  if (!name) return {};
  return analysis::point_position(name, Tracing(Mode{mode}, record, kCount, kPoints, uCount, uPoints));
}

int CCephCalc::GetVirtualPoint(unsigned int mode, double scale, tagKPOINT *point, unsigned short *kCount,
                               tagKPOINT *kPoints, unsigned short *uCount, tagUPOINT *uPoints,
                               POINT *userCoords, POINT *landmarkCoords, tagDPOINT *out) {
  if (!point || !out) return 0;
  // The record stays out of it: its coordinates come as arrays of their own.
  const Tracing tables(Mode{static_cast<int>(mode)}, nullptr, kCount, kPoints, uCount, uPoints);
  const std::optional<CPointD> position = analysis::virtual_point(
      *point,
      {tables.mode(), scale, tables.virtual_points(), tables.user_definitions(), userCoords, landmarkCoords});
  if (!position) return 0;
  *out = position->ToDPOINT();
  return 1;
}

int CCephCalc::Use_Point(int mode, const char *name) {
  if (!name) return 0;
  for (const std::string &path : analysis::definition_paths(Mode{mode})) {
    const std::optional<analysis::DefinitionFile> file = analysis::DefinitionFile::read(path.c_str());
    if (file && file_names_point(*file, name)) return 1;
  }
  return 0;
}

CPointD CCephCalc::Calc_Point(int mode, char *text, void *record, unsigned short *kCount, tagKPOINT *kPoints,
                              unsigned short *uCount, tagUPOINT *uPoints) {
  if (!text || *text == '\0') return {};
  analysis::Program program;
  const auto point = analysis::FormulaCompiler(program, Mode{mode}, nullptr, false).compile_point(text);
  if (!point) {
    text[0] = ' ';
    return {};
  }
  const Tracing tracing(Mode{mode}, record, kCount, kPoints, uCount, uPoints);
  const CPointD position = analysis::Evaluator(tracing, {}, nullptr, analysis::Evaluator::Reasons::ignore)
                               .point(program, point->point);
  std::memset(text, ' ', point->end);
  return position;
}
