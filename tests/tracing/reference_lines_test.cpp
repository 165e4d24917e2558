#include "tool/tracing/reference_lines.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using tracing::SpanningLine;

constexpr RECT clip{0, 0, 100, 200};
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

struct Row {
  const char *name;
  CPointD direction;  // from a = (0, 0)
  CPointD p;
  CPoint from, to;
  std::optional<CPoint> label_end;
};

void expect_lines(const std::vector<Row> &rows,
                  SpanningLine (*construct)(CPointD, CPointD, CPointD, const RECT &)) {
  for (const Row &row : rows) {
    const SpanningLine line = construct({0, 0}, row.direction, row.p, clip);
    EXPECT_TRUE(line.from == row.from) << row.name << ' ' << line.from.x << ' ' << line.from.y;
    EXPECT_TRUE(line.to == row.to) << row.name << ' ' << line.to.x << ' ' << line.to.y;
    EXPECT_EQ(line.label_end, row.label_end) << row.name;
  }
}

TEST(referenceLines, parallel) {
  expect_lines(
      {
          {"vertical", {0, 10}, {7.9, 3}, {7, 0}, {7, 200}, CPoint(7, 0)},
          {"without direction", {0, 0}, {-7.9, 3}, {-7, 0}, {-7, 200}, CPoint(-7, 0)},
          {"slope -1 is not steep", {10, -10}, {50, 50}, {0, 100}, {100, 0}, CPoint(100, 0)},
          {"slope -1.25 neither", {8, -10}, {50, 100}, {0, 163}, {100, 38}, CPoint(100, 38)},
          {"slope -1.5 is", {10, -15}, {50, 100}, {117, 0}, {-16, 200}, CPoint(117, 0)},
          {"slope -2", {10, -20}, {50, 100}, {100, 0}, {0, 200}, CPoint(100, 0)},
          {"slope 0.4375 is not", {16, 7}, {50, 100}, {0, 78}, {100, 122}, CPoint(100, 122)},
          {"slope 0.5 is", {10, 5}, {50, 100}, {-149, 0}, {250, 200}, CPoint(250, 200)},
          {"not a number", {nan, nan}, {50, 100}, {0, 0}, {100, 0}, CPoint(100, 0)},
      },
      tracing::parallel_line);
}

TEST(referenceLines, slopeMinus1Point6RunsFromTopToBottom) {
  const SpanningLine line = tracing::parallel_line({0, 0}, {10, -16}, {50, 100}, clip);
  EXPECT_EQ(line.from.y, 0);
  EXPECT_EQ(line.to.y, 200);
}

TEST(referenceLines, perpendicular) {
  expect_lines(
      {
          {"to a horizontal line", {10, 0}, {7.9, 3}, {7, 0}, {7, 200}, std::nullopt},
          {"to a vertical line", {0, 10}, {7.9, 3.9}, {0, 3}, {100, 3}, std::nullopt},
          {"without direction", {0, 0}, {7.9, 3}, {7, 0}, {7, 200}, std::nullopt},
          {"shallow", {10, 10}, {50, 50}, {0, 100}, {100, 0}, CPoint(100, 0)},
          {"steep", {10, -10}, {50, 50}, {0, 0}, {200, 200}, CPoint(0, 0)},
          {"equal heights", {1, 1000}, {50, 50}, {0, 50}, {100, 50}, CPoint(100, 50)},
      },
      tracing::perpendicular_line);
}

}  // namespace
