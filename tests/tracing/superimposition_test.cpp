#include "tool/tracing/superimposition.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/tracings.h"
#include "tool/tracing/record_views.h"

namespace {

using namespace tracing;

// Expected points by p = base + r (cos f, sin f), f = atan(dy / dx) [+ 3.1415] - angle brought into range
// with 6.283, in another program; whole ones truncated toward zero.
struct Row {
  const char *what;
  CPointD offset;
  Superimposition on;
  CPointD placed;
  CPointD device;  ///< before truncation
  CPoint pixel;
  CPoint image;  ///< unmagnified
};

// clang-format off
const Row rows[] = {
    {"zero offsets count as 0.1", {0, 0}, {.base = {100, 200}},
     {100.1, 200.1}, {100.1, 200.1}, {100, 200}, {100, 200}},
    {"one zero offset", {0, 5}, {.base = {100, 200}},
     {100.1, 205.0}, {100.1, 205.0}, {100, 205}, {100, 205}},
    {"half a turn is 3.1415", {-100, -50}, {.base = {200, 200}},
     {99.9954, 150.0093}, {99.9954, 150.0093}, {99, 150}, {99, 150}},
    {"a positive angle goes up", {10, 0}, {.base = {100, 200}, .angle = 0.5},
     {108.8229, 195.2919}, {108.8229, 195.2919}, {108, 195}, {108, 195}},
    {"scaled, shifted, zoomed",
     {-37, 81}, {.base = {512.5, 433.25}, .angle = -0.31, .scale = 1.25, .offset = {12, -7}, .mag = 0.6, .origin = {33, 44}}, {437.5750, 515.5718}, {222.3450, 269.5431}, {222, 269}, {392, 478}},
    {"turned display", {250, -120}, {.base = {512.5, 433.25}, .angle = 0.2, .scale = 0.9, .rotation = 17.5, .centre = {300, 310}, .offset = {12, -7}, .mag = 1.7, .origin = {33, 44}},
     {700.7036, 407.6802}, {1137.7961, 660.9563}, {1137, 660}, {655, 370}},
    {"y upward", {250, -120}, {.base = {512.5, 433.25}, .angle = 0.2, .scale = 0.9, .rotation = -40.25, .centre = {300, 310}, .offset = {12, -7}, .mag = 1.7, .origin = {33, 900}, .ysign = -1, .flip = true},
     {36.5656, -638.1036}, {8.7616, 1972.8760}, {8, 1972}, {551, -870}},
    {"beyond a turn", {-60, -90}, {.base = {80, 90}, .angle = 6.5, .origin = {5, 6}, .flip = true},
     {2.0231, 15.0360}, {-2.9769, -9.0360}, {-3, -9}, {-3, 9}},
    {"a turn is taken away once", {3, 4}, {.base = {10, 20}, .angle = -7, .scale = 2, .ysign = -1},
     {9.2657, -10.0270}, {9.2657, -10.0270}, {9, -10}, {9, 29}},
};
// clang-format on

TEST(Superimposition, MapsOffsets) {
  for (const Row &row : rows) {
    SCOPED_TRACE(row.what);
    const CPointD at = placed(row.on, row.offset);
    EXPECT_NEAR(at.x, row.placed.x, 1e-4);
    EXPECT_NEAR(at.y, row.placed.y, 1e-4);
    const CPointD device = device_coordinates(row.on, row.offset);
    EXPECT_NEAR(device.x, row.device.x, 1e-4);
    EXPECT_NEAR(device.y, row.device.y, 1e-4);
    EXPECT_EQ(device_point(row.on, row.offset), row.pixel);
    EXPECT_EQ(image_point(row.on, row.offset), row.image);
  }
}

TEST(Superimposition, ScaleZeroShowsNothing) {
  const Superimposition on{.base = {100, 200}, .scale = 0};
  EXPECT_EQ(device_point(on, {5, 5}), CPoint(0, 0));
  EXPECT_EQ(image_point(on, {5, 5}), CPoint(0, 0));
  EXPECT_TRUE(spline_device_coordinates(on, {5, 5}, {}) == CPointD(100, 200));
}

TEST(Superimposition, StaysDefinedForAnyNumber) {
  const double hostile[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                            -1e308, 1e308};
  for (const double value : hostile) {
    const Superimposition on{.base = {value, 1},
                             .angle = value,
                             .scale = value,
                             .rotation = value,
                             .centre = {INT32_MIN, INT32_MAX},
                             .offset = {INT32_MIN, INT32_MAX},
                             .mag = value,
                             .origin = {INT32_MAX, INT32_MIN},
                             .ysign = INT32_MIN,
                             .flip = true};
    (void)device_point(on, {value, 3});
    (void)image_point(on, {3, value});
  }
}

TEST(SplinePlacement, HasAnAxisOfItsOwn) {
  struct Case {
    const char *what;
    int code;
    bool printing, flip;
    CPointD device;
  };
  // Base (100, 200), offset (30, 40) turned and scaled by nothing, minus (10, 20), times 2 x 1.5, minus (7,
  // 9): x = 3 (130 - 10) - 7; y = 3 (240 - 20) - 9, or with the base negated 3 (-160 - 20) - 9, or from 9
  // upward.
  const Case cases[] = {{"screen", 0, false, false, {353, 651}},
                        {"flip is for paper", 0, false, true, {353, 651}},
                        {"paper upward", 0, true, true, {353, -651}},
                        {"code -1", -1, false, false, {353, -549}},
                        {"code -2", -2, false, false, {353, -549}},
                        {"15111 on paper", 15111, true, false, {353, -549}},
                        {"15210 on paper, upward", 15210, true, true, {353, 549}},
                        {"15111 on a screen", 15111, false, false, {353, 651}},
                        {"another code on paper", 15112, true, false, {353, 651}}};
  for (const Case &row : cases) {
    SCOPED_TRACE(row.what);
    const Superimposition on{
        .base = {100, 200}, .offset = {10, 20}, .mag = 2, .origin = {7, 9}, .ysign = -1, .flip = row.flip};
    const CPointD at =
        spline_device_coordinates(on, {30, 40}, {1.5, row.printing, static_cast<unsigned>(row.code)});
    EXPECT_NEAR(at.x, row.device.x, 1e-9);
    EXPECT_NEAR(at.y, row.device.y, 1e-9);
  }
}

// Where to superimpose ------------------------------------------------------------------------------------

tagPOINTLAT film(POINT s, POINT n, POINT ba, POINT po, POINT orbitale) {
  return support::lateral_record(0.1, {{"S", s}, {"N", n}, {"Ba", ba}, {"Po", po}, {"Or", orbitale}});
}

std::optional<double> angle_between(const tagPOINTLAT &a, const tagPOINTLAT &b, const ReferenceChoice &choice,
                                    bool frankfort = false) {
  return reference_angle(a.pt + analysis::first_landmark_entry, &b, choice, frankfort);
}

constexpr ReferenceChoice on_sella_nasion{0, analysis::lateral::S, analysis::lateral::N, 0, 0};

TEST(ReferenceAngle, OfTheTwoReferenceLines) {
  constexpr double degree = 3.1415 / 180;
  const auto flat = film({100, 100}, {200, 100}, {50, 150}, {60, 120}, {160, 120});
  struct Case {
    const char *what;
    tagPOINTLAT b;
    double degrees;
  };
  const Case cases[] = {
      {"the same", flat, 0},
      {"up is positive", film({100, 100}, {200, 0}, {}, {}, {}), 45},
      {"down is negative", film({100, 100}, {200, 200}, {}, {}, {}), -45},
      {"directed to larger x", film({200, 0}, {100, 100}, {}, {}, {}), 45},
      {"upright lines keep their order", film({100, 0}, {100, 100}, {}, {}, {}), -90},
  };
  for (const Case &row : cases) {
    const auto angle = angle_between(flat, row.b, on_sella_nasion);
    ASSERT_TRUE(angle) << row.what;
    EXPECT_NEAR(*angle, row.degrees * degree, 1e-8) << row.what;
  }
  // Both directed to larger x, 60 degrees down and 60 degrees up: 120 is brought to 180 - 120.
  const auto down = film({0, 0}, {100, 173}, {}, {}, {}), up = film({0, 0}, {100, -173}, {}, {}, {});
  const double steep = std::atan(1.73) / std::acos(-1.0) * 180;
  EXPECT_NEAR(*angle_between(down, up, on_sella_nasion), (180 - 2 * steep) * degree, 1e-7);
  EXPECT_NEAR(*angle_between(up, down, on_sella_nasion), (-2 * steep + 180) * degree, 1e-7);
}

TEST(ReferenceAngle, IsCorrectedByTheFrankfortLine) {
  constexpr double degree = 3.1415 / 180;
  const double ten_to_hundred = std::atan(0.1) / std::acos(-1.0) * 180;
  const auto a = film({100, 100}, {200, 100}, {}, {}, {});
  // B's S-N 45 degrees up, its Frankfort line falling 10 in 100: 45 + (-f) - (-f).
  const auto b = film({100, 100}, {200, 0}, {}, {60, 120}, {160, 130});
  EXPECT_NEAR(*angle_between(a, b, on_sella_nasion, true), 45 * degree, 1e-8);
  // A's S-N 45 degrees up as well: 0 + (-f) - (-f - 45).
  EXPECT_NEAR(*angle_between(b, b, on_sella_nasion, true), 45 * degree, 1e-8);
  EXPECT_NEAR(*angle_between(b, a, on_sella_nasion), -45 * degree, 1e-8);
  const auto level = film({100, 100}, {200, 110}, {}, {60, 120}, {160, 120});
  EXPECT_NEAR(*angle_between(level, level, on_sella_nasion, true), -ten_to_hundred * degree, 1e-8);
}

TEST(ReferenceAngle, MakesLinesCoincideWhenItsOppositeIsUsed) {
  const auto a = film({300, 400}, {700, 350}, {}, {}, {});
  const auto b = film({310, 380}, {690, 460}, {}, {}, {});
  Superimposition on{.base = {300, 400}, .angle = -*angle_between(a, b, on_sella_nasion)};
  const CPointD nasion = placed(on, {690 - 310, 460 - 380});
  // On A's S-N line, |S-N| of B along it, but for the four digits of the turns: 0.0002 of 388.
  const double along = std::hypot(380, 80) / std::hypot(400, 50);
  EXPECT_NEAR(nasion.x, 300 + 400 * along, 0.1);
  EXPECT_NEAR(nasion.y, 400 - 50 * along, 0.1);
}

TEST(ReferenceAngle, IsEmptyWithoutALine) {
  const auto a = film({100, 100}, {200, 100}, {50, 150}, {}, {});
  const auto b = film({100, 100}, {200, 0}, {50, 200}, {}, {});
  EXPECT_FALSE(angle_between(a, b, {0, 0, 51, 0, 0}));
  EXPECT_FALSE(angle_between(a, b, {0, 0, 1, UINT32_MAX, 0}));
  EXPECT_FALSE(angle_between(a, b, {3, 0, 1, 0, 0}));
  for (const unsigned mode : {1U, 2U}) {  // basion-nasion, whatever the numbers are
    const auto angle = angle_between(a, b, {mode, 99, 99, 99, 99});
    ASSERT_TRUE(angle);
    EXPECT_NEAR(*angle, (std::atan2(200, 150) - std::atan2(50, 150)) / std::acos(-1.0) * 3.1415, 1e-7);
  }
}

}  // namespace
