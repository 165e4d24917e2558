// The road from a definition file to a filled list, against merely reading the files, and against a general
// formula parser that evaluates the same eight measures.

#include <benchmark/benchmark.h>
#include <muParser.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <fstream>

#include "bench/support/films.h"
#include "tool/analysis/evaluator.h"
#include "tool/analysis/landmarks.h"
#include "tool/framework/files/read_file.h"
#include "tool/tool.h"

namespace {

constexpr std::size_t film_count = 1000;

void fill(CListCtrl &list, tagPOINTLAT &film) {
  list.DeleteAllItems();
  CCephCalc::User_Calc(0, &list, &film, 0, nullptr, nullptr, nullptr, nullptr, 1, 1, 1.1, 1);
}

void user_calc_from_file(benchmark::State &state) {
  const bench::DefinitionFolder folder(bench::forty_item_analysis());
  tagPOINTLAT film = bench::generated_films(1).front();
  CListCtrl list;
  for (auto _ : state) {
    fill(list, film);
    benchmark::DoNotOptimize(list.GetItemCount());
  }
  if (list.GetItemCount() != 40) state.SkipWithError("the table is not whole");
}
BENCHMARK(user_calc_from_file)->Name("UserCalcFromFile/ours")->Unit(benchmark::kMicrosecond);

/// Merely opening and reading, through the calls by which the library reads them.
void read_the_same_files(benchmark::State &state) {
  const bench::DefinitionFolder folder(bench::forty_item_analysis());
  for (auto _ : state) {
    benchmark::DoNotOptimize(framework::read_whole_file(folder.list_path().c_str()));
    benchmark::DoNotOptimize(framework::read_whole_file(folder.analysis_path().c_str()));
  }
}
BENCHMARK(read_the_same_files)->Name("UserCalcFromFile/baseline")->Unit(benchmark::kMicrosecond);

void films_through_user_calc(benchmark::State &state) {
  const bench::DefinitionFolder folder(bench::eight_measures_analysis());
  std::vector<tagPOINTLAT> films = bench::generated_films(film_count);
  CListCtrl list;
  for (auto _ : state) {
    for (tagPOINTLAT &film : films) {
      fill(list, film);
      benchmark::DoNotOptimize(list.GetItemCount());
    }
  }
  if (list.GetItemCount() != 8) state.SkipWithError("the table is not whole");
}
BENCHMARK(films_through_user_calc)->Name("ThousandFilmsUserCalc/ours")->Unit(benchmark::kMillisecond);

void films_through_held_analysis(benchmark::State &state) {
  const analysis::Analysis held(analysis::DefinitionFile(bench::eight_measures_analysis()),
                                analysis::Mode::lateral, analysis::Analysis::Diagnosis::no);
  const std::vector<tagPOINTLAT> films = bench::generated_films(film_count);
  std::array<double, 8> values{};
  const analysis::Tracing first(analysis::Mode::lateral, &films.front(), nullptr, nullptr, nullptr, nullptr);
  analysis::Evaluator evaluator(first, {}, &held, analysis::Evaluator::Reasons::ignore);
  for (auto _ : state) {
    for (const tagPOINTLAT &film : films) {
      const analysis::Tracing tracing(analysis::Mode::lateral, &film, nullptr, nullptr, nullptr, nullptr);
      evaluator.rebind(tracing);
      for (std::size_t i = 0; i < values.size(); ++i) values[i] = evaluator.item(i).value;
      benchmark::DoNotOptimize(values);
    }
  }
}
BENCHMARK(films_through_held_analysis)->Name("ThousandFilmsHeldAnalysis/ours")->Unit(benchmark::kMillisecond);

// The same measures in the general parser: coordinates are variables, the measurements are functions
// ----------------

constexpr double degrees_per_radian = 57.29577951308232;

double parser_angle1(double x0, double y0, double x1, double y1, double x2, double y2) {
  const double ux = x0 - x1;
  const double uy = y0 - y1;
  const double vx = x2 - x1;
  const double vy = y2 - y1;
  return std::atan2(std::fabs(ux * vy - uy * vx), ux * vx + uy * vy) * degrees_per_radian;
}

double parser_angle2(double x0, double y0, double x1, double y1, double x2, double y2, double x3, double y3) {
  const double vx = x1 - x0;
  const double vy = y1 - y0;
  const double wx = x3 - x2;
  const double wy = y3 - y2;
  return std::atan2(vx * wy - vy * wx, vx * wx + vy * wy) * degrees_per_radian;
}

double parser_len(double x0, double y0, double x1, double y1) {
  const double dx = x1 - x0;
  const double dy = y1 - y0;
  return std::sqrt(dx * dx + dy * dy) * 0.1;
}
double parser_len_r(double x0, double y0, double x1, double y1) {
  return x1 < x0 ? -parser_len(x0, y0, x1, y1) : parser_len(x0, y0, x1, y1);
}

constexpr const char *parser_formulas[8] = {
    "angle1(Sx,Sy,Nx,Ny,Ax,Ay)",
    "angle1(Sx,Sy,Nx,Ny,Bx,By)",
    "angle1(Sx,Sy,Nx,Ny,Ax,Ay)-angle1(Sx,Sy,Nx,Ny,Bx,By)",
    "angle2(Mex,Mey,Gox,Goy,Bx,By,Ax,Ay)+angle2(Pox,Poy,Orx,Ory,PNSx,PNSy,ANSx,ANSy)",
    ("angle2(Nx,Ny,Pogx,Pogy,Orx,Ory,Pox,Poy)-angle2(Nx,Ny,Pogx,Pogy,Ax,Ay,Bx,By)"
     "+angle2(Pox,Poy,Orx,Ory,PNSx,PNSy,ANSx,ANSy)"),
    "len(Sx,Sy,Gox,Goy)/len(Nx,Ny,Mex,Mey)",
    "angle2(Sx,Sy,Nx,Ny,Gox,Goy,Gnx,Gny)",
    "lenR(L1x,L1y,U1x,U1y)",
};

constexpr const char *used_landmarks[] = {"S",  "N",   "A",   "B",   "Me", "Go", "Po",
                                          "Or", "PNS", "ANS", "Pog", "Gn", "L1", "U1"};

/// The coordinates behind the parser's variables.
struct Coordinates {
  std::array<double, 2 * std::size(used_landmarks)> values{};
  std::array<int, std::size(used_landmarks)> entries{};

  Coordinates() {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      entries[i] = analysis::first_landmark_entry +
                   analysis::find_landmark(analysis::RecordKind::lateral, used_landmarks[i]).value();
    }
  }
  void load(const tagPOINTLAT &film) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      values[2 * i] = film.pt[entries[i]].x;
      values[2 * i + 1] = film.pt[entries[i]].y;
    }
  }
};

void prepare(mu::Parser &parser, Coordinates &coordinates) {
  parser.DefineFun("angle1", parser_angle1);
  parser.DefineFun("angle2", parser_angle2);
  parser.DefineFun("len", parser_len);
  parser.DefineFun("lenR", parser_len_r);
  for (std::size_t i = 0; i < std::size(used_landmarks); ++i) {
    parser.DefineVar(std::string(used_landmarks[i]) + "x", &coordinates.values[2 * i]);
    parser.DefineVar(std::string(used_landmarks[i]) + "y", &coordinates.values[2 * i + 1]);
  }
}

void films_through_parser_afresh(benchmark::State &state) {
  const std::vector<tagPOINTLAT> films = bench::generated_films(film_count);
  Coordinates coordinates;
  mu::Parser parser;
  prepare(parser, coordinates);
  for (auto _ : state) {
    for (const tagPOINTLAT &film : films) {
      coordinates.load(film);
      for (const char *formula : parser_formulas) {
        parser.SetExpr(formula);
        benchmark::DoNotOptimize(parser.Eval());
      }
    }
  }
}
BENCHMARK(films_through_parser_afresh)->Name("ThousandFilmsUserCalc/baseline")->Unit(benchmark::kMillisecond);

void films_through_compiled_parser(benchmark::State &state) {
  const std::vector<tagPOINTLAT> films = bench::generated_films(film_count);
  Coordinates coordinates;
  std::array<mu::Parser, 8> parsers;
  for (std::size_t i = 0; i < parsers.size(); ++i) {
    prepare(parsers[i], coordinates);
    parsers[i].SetExpr(parser_formulas[i]);
    parsers[i].Eval();
  }
  for (auto _ : state) {
    for (const tagPOINTLAT &film : films) {
      coordinates.load(film);
      for (const mu::Parser &parser : parsers) benchmark::DoNotOptimize(parser.Eval());
    }
  }
}
BENCHMARK(films_through_compiled_parser)
    ->Name("ThousandFilmsHeldAnalysis/baseline")
    ->Unit(benchmark::kMillisecond);

// Memory
// -----------------------------------------------------------------------------------------------------------

double resident_kib() {
  std::ifstream status("/proc/self/statm");
  double pages = 0;
  status >> pages >> pages;
  return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024.0;
}

/// A million table calls must leave the resident set where the first thousand left it.
void resident_set_over_a_million_calls(benchmark::State &state) {
  const bench::DefinitionFolder folder(bench::forty_item_analysis());
  tagPOINTLAT film = bench::generated_films(1).front();
  CListCtrl list;
  double growth = 0;
  for (auto _ : state) {
    for (int call = 0; call < 1000; ++call) fill(list, film);
    const double before = resident_kib();
    for (int call = 1000; call < 1000000; ++call) fill(list, film);
    growth = resident_kib() - before;
  }
  state.counters["growth_kib"] = growth;
  if (growth > 256) state.SkipWithError("the resident set grew");
}
BENCHMARK(resident_set_over_a_million_calls)
    ->Name("ResidentSet/million_calls")
    ->Iterations(1)
    ->Repetitions(1)
    ->Unit(benchmark::kSecond);

}  // namespace
