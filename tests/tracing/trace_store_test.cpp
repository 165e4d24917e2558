#include "tool/tracing/trace_store.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tests/support/trace_entries.h"

namespace {

using namespace tracing;
using support::TraceBytes;

/// What a reader sees, as flag or closed, then points.
struct SeenRun {
  bool closed;
  std::vector<CPoint> points;
  bool operator==(const SeenRun &) const = default;
};
std::vector<SeenRun> seen(const TraceBytes &entry) {
  std::vector<SeenRun> result;
  TraceRuns runs{TraceEntry(entry.data())};
  while (const auto run = runs.next())
    result.push_back({run->closed, {run->points.begin(), run->points.end()}});
  return result;
}

TEST(TraceEntry, KnowsItsKind) {
  struct Case {
    const char *name, *code;
    bool used;
    int number;
  };
  const Case cases[] = {{"U1", "8", true, 8},     {"U1", "08", true, 8}, {"", "8", false, 8},
                        {"x", "12", true, 12},    {"x", "", true, 0},    {"x", "-3", true, -3},
                        {"x", "11abc", true, 11}, {"x", " 9", true, 9},  {"x", "123456789", true, 123456789}};
  for (const Case &row : cases) {
    const auto entry = support::trace_entry(row.name, row.code, {});
    EXPECT_EQ(TraceEntry(entry.data()).used(), row.used) << row.name;
    EXPECT_EQ(TraceEntry(entry.data()).code(), row.number) << row.code;
  }
  EXPECT_FALSE(TraceEntry(nullptr).used());
  EXPECT_FALSE(TraceEntry(nullptr).first_run());
}

TEST(TraceEntry, YieldsItsRuns) {
  const auto entry = support::trace_entry("x", "8", {{1, {{1, 2}, {-3, 4}}}, {0, {{32767, -32768}}}});
  EXPECT_EQ(seen(entry), (std::vector<SeenRun>{{true, {{1, 2}, {-3, 4}}}, {false, {{32767, -32768}}}}));
}

TEST(TraceEntry, LyingCountsEndTheList) {
  // 44 bytes in front, 4 of a header: 488 points fill the entry.
  struct Case {
    int count;
    std::size_t runs;
  };
  const Case cases[] = {{2, 2}, {0, 0}, {-1, 0}, {-32768, 0}, {488, 1}, {489, 0}, {32767, 0}};
  for (const Case &row : cases) {
    auto entry = support::trace_entry("x", "8", {{0, {{1, 2}, {3, 4}}}, {0, {{5, 6}}}});
    support::put_word(entry, 46, row.count);
    const auto exact = std::make_unique<TraceBytes>(entry);  // so that the sanitizer sees a step beyond it
    EXPECT_EQ(seen(*exact).size(), row.runs) << row.count;
    move_trace(exact->data(), 1, 1);
    turn_trace(exact->data(), {.dx = 1, .dy = 1, .centre = {5, 5}, .angle = 30, .scale = 1});
    for (std::size_t i = 0; i < 46; ++i) EXPECT_EQ((*exact)[i], entry[i]) << "byte " << i;
  }
}

TEST(TraceEntry, TheFlagIsTheLowByte) {
  for (const auto &[flag, closed] : {std::pair{0, false}, {1, true}, {-1, true}, {256, false}, {257, true}})
    EXPECT_EQ(seen(support::trace_entry("x", "8", {{flag, {{1, 2}}}}))[0].closed, closed) << flag;
}

TEST(MoveTrace, ShiftsEveryPointInSixteenBits) {
  auto entry = support::trace_entry("x", "8", {{1, {{10, 20}, {-32768, 32767}}}, {0, {{0, 0}}}});
  move_trace(entry.data(), 5, -3);
  EXPECT_EQ(seen(entry), (std::vector<SeenRun>{{true, {{5, 23}, {32763, -32766}}}, {false, {{-5, 3}}}}));
}

TEST(TurnTrace, ShiftsTurnsAndTruncates) {
  auto entry = support::trace_entry("x", "8", {{0, {{115, 97}, {105, 92}}}});
  // Minus (5, -3): (110, 100) and (100, 95). From the centre (9.75, -0.5) and (-0.25, -5.5); a quarter turn
  // counter-clockwise makes (x, y) to (y, -x): (-0.5, -9.75) and (-5.5, 0.25).
  turn_trace(entry.data(), {.dx = 5, .dy = -3, .centre = {100.25, 100.5}, .angle = 90, .scale = 1});
  EXPECT_EQ(seen(entry), (std::vector<SeenRun>{{false, {{99, 90}, {94, 100}}}}));
}

TEST(TurnTrace, WithoutATurnOnlyShifts) {
  auto entry = support::trace_entry("x", "8", {{0, {{115, 97}}}});
  turn_trace(entry.data(), {.dx = 5, .dy = -3, .centre = {1, 1}, .angle = 0, .scale = 1});
  EXPECT_EQ(seen(entry), (std::vector<SeenRun>{{false, {{110, 100}}}}));
}

}  // namespace
