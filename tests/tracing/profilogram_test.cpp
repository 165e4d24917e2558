#include "tool/tracing/profilogram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/trace_entries.h"
#include "tests/support/tracings.h"
#include "tool/api/CCalcTool.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

using testing::ElementsAre;

constexpr COLORREF red = RGB(255, 0, 0);
constexpr std::size_t palatal = 1308, occlusal = 1309, upper_axis = 1310, lower_axis = 1311,
                      open_halves = 1312, teeth_shown = 1268;

/// Every landmark k lies at (10 k + 10, 5).
struct Film {
  tagPOINTLAT rec{};
  std::array<unsigned char, 1400> settings{};
  int polygon = 1, draw_teeth = 0, type = -1, mode = 1;

  Film() {
    rec.lineWidth = 2;
    for (int k = 0; k < analysis::lateral_landmark_count; ++k)
      rec.pt[analysis::first_landmark_entry + k] = {10 * k + 10, 5};
    for (std::size_t v = 0; v < 12; ++v) settings[1296 + v] = 1;
  }
  void set(std::size_t offset, unsigned char value = 1) { settings[offset] = value; }

  support::TraceStoreBytes traces{};

  void draw(framework::RecordingDevice &device) {
    CDC dc(device);
    const tagDPOINT base{0.5, 0.5};
    CCalcTool::Set_Purofiro(&dc, 0, 0, 1, red, 0, &base, rec.pt + analysis::first_landmark_entry, 0, 0, 0,
                            mode, 1, 0, 0, 0, polygon, 1, 0, draw_teeth, settings.data(), &rec, nullptr,
                            traces.data(), type);
  }
  /// Lines by the landmarks they join.
  std::string picture() {
    framework::RecordingDevice device;
    draw(device);
    std::ostringstream names;
    const auto name = [](POINT p) -> std::string_view {
      const int k = p.x / 10 - 1;
      return k >= 0 && k < analysis::lateral_landmark_count
                 ? analysis::lateral_landmarks[static_cast<std::size_t>(k)]
                 : "?";
    };
    for (std::size_t i = 0; i < device.size(); ++i)
      names << (i ? " " : "") << name(device[i].points[0]) << '-' << name(device[i].points[1]);
    return names.str();
  }
};

TEST(setPurofiro, closesThePolygon) {
  Film film;
  EXPECT_EQ(film.picture(), "S-N N-Or Or-ANS ANS-A A-U1 U1-L1 L1-B B-Pog Pog-Me Me-Go Go-Ar Ar-S");
  film.set(1298, 0);
  EXPECT_EQ(film.picture(), "S-N N-ANS ANS-A A-U1 U1-L1 L1-B B-Pog Pog-Me Me-Go Go-Ar Ar-S");
  film.set(open_halves);
  EXPECT_EQ(film.picture(), "S-N N-ANS ANS-A A-U1 L1-B B-Pog Pog-Me Me-Go Go-Ar Ar-S");
  for (std::size_t v = 0; v < 11; ++v) film.set(1296 + v, v == 1);
  EXPECT_EQ(film.picture(), "Ar-N") << "N-Ar goes down";
  film.set(open_halves, 0);
  EXPECT_EQ(film.picture(), "N-Ar Ar-N");
  film.set(1297, 0);
  EXPECT_EQ(film.picture(), "Ar-Ar") << "once round";
  film.set(1307, 0);
  EXPECT_EQ(film.picture(), "");
}

TEST(setPurofiro, addsLinesInTheirOrder) {
  Film film;
  for (std::size_t v = 0; v < 12; ++v) film.set(1296 + v, 0);
  for (const std::size_t line : {palatal, occlusal, upper_axis, lower_axis}) film.set(line);
  // PMo (32) and U1R (8) lie midway between UMo (31) and LMo (33), U1 (7) and L1 (9).
  const std::string all = "ANS-PNS U1-U1R L1-L1R PMo-U1R", without_axes = "ANS-PNS PMo-U1R";
  EXPECT_EQ(film.picture(), all);
  film.type = 1;
  EXPECT_EQ(film.picture(), all) << "teeth are hidden";
  film.set(teeth_shown);
  EXPECT_TRUE(film.picture().starts_with(without_axes + " ")) << "the teeth stand for their axes";
  film.type = -1;
  film.draw_teeth = 1;
  EXPECT_EQ(film.picture(), all) << "no teeth of type -1";
  film.polygon = 0;
  EXPECT_EQ(film.picture(), "");
}

TEST(setPurofiro, drawsTheFourTeeth) {
  Film film;
  film.polygon = 0;
  film.draw_teeth = 1;
  film.type = 0;
  film.set(teeth_shown);
  for (int code = 8; code <= 11; ++code) {
    film.traces[static_cast<std::size_t>(code)] =
        support::trace_entry("t", std::to_string(code), {{0, {{10 * code, 1}, {10 * code, 2}}}});
  }
  framework::RecordingDevice device;
  film.draw(device);
  std::vector<int> order;
  for (std::size_t i = 0; i < device.size(); ++i) order.push_back(device[i].points[0].x / 10);
  EXPECT_THAT(order, ElementsAre(9, 11, 8, 10));
  film.traces = {};
  device.clear();
  film.draw(device);
  EXPECT_EQ(device.size(), 20U) << "pieces of the templates";
  film.draw_teeth = 0;
  device.clear();
  film.draw(device);
  EXPECT_EQ(device.size(), 0U);
}

TEST(setPurofiro, isARubberBand) {
  Film film;
  film.mode = 0;
  framework::RecordingDevice device;
  film.draw(device);
  EXPECT_EQ(device.line(0), "polyline (10,5) (20,5) | pen solid 1 #ffffff | rop xor");
  film.mode = 1;
  film.draw(device);
  EXPECT_EQ(device.line(12), "polyline (10,5) (20,5) | pen solid 2 #ff0000 round | rop copy");
}

TEST(drawPaProfiro, joinsNineLines) {
  const auto pa = support::frontal_record(0.1, {{"ZR", {11, 12}},
                                                {"ZL", {21, 22}},
                                                {"AGR", {31, 32}},
                                                {"AGL", {41, 42}},
                                                {"JR", {51, 52}},
                                                {"JL", {61, 62}},
                                                {"U6R", {71, 72}},
                                                {"L6R", {74, 79}},
                                                {"U6L", {81, 82}},
                                                {"L6L", {78, 79}},
                                                {"ANS", {91, 92}},
                                                {"Me", {101, 102}},
                                                {"ZAR", {111, 112}},
                                                {"ZAL", {121, 122}}});
  std::array<unsigned char, 1400> settings{};
  for (const auto &[offset, value] : {std::pair{100, 0x0000FF}, {636, 101}, {1348, 9}})
    std::memcpy(settings.data() + offset, &value, sizeof value);
  framework::RecordingDevice device;
  CDC dc(device);
  // Scaled by 1.5, minus (1, 2). Midpoints (72, 75) and, from the left, (80, 81).
  const std::vector<std::string> lines = {"(15,16) (45,46)", "(30,31) (60,61)",     "(75,76) (45,46)",
                                          "(90,91) (60,61)", "(107,110) (119,119)", "(135,136) (150,151)",
                                          "(15,16) (30,31)", "(45,46) (60,61)",     "(165,166) (180,181)"};
  CCalcTool::Draw_PA_Profiro1(&dc, {1, 2}, 1.5, &pa, settings.data());
  CCalcTool::Draw_PA_Profiro1_Image(&dc, {1, 2}, 1.5, &pa, settings.data(), 1600, 0);
  ASSERT_EQ(device.size(), 18U);
  for (std::size_t i = 0; i < 18; ++i)
    EXPECT_EQ(device.line(i), "polyline " + lines[i % 9] + " | pen solid 1 #ff0000 | rop copy") << i;
}

TEST(getPileJawAgreement, comparesJawLengths) {
  const auto a = support::lateral_record(
      0.1, {{"ANS", {500, 100}}, {"PNS", {100, 100}}, {"Go", {100, 300}}, {"Me", {400, 700}}});
  auto b = support::lateral_record(
      0.2, {{"ANS", {350, 100}}, {"PNS", {100, 100}}, {"Go", {100, 300}}, {"Me", {100, 500}}});
  EXPECT_NEAR(CCalcTool::GetPileJawAgreement(&a, &a, 0), 1.0, 1e-12);
  EXPECT_NEAR(CCalcTool::GetPileJawAgreement(&a, &b, 0), 50.0 / 40.0, 1e-12);
  EXPECT_NEAR(CCalcTool::GetPileJawAgreement(&a, &b, 1), 40.0 / 50.0, 1e-12);
  b.scale = 0;
  EXPECT_EQ(CCalcTool::GetPileJawAgreement(&a, &b, 0), 0.0);
  EXPECT_EQ(CCalcTool::GetPileJawAgreement(&b, &a, 0), 0.0);
  const tagPOINTLAT empty = support::lateral_record(0.1, {{"ANS", {500, 100}}});
  EXPECT_EQ(CCalcTool::GetPileJawAgreement(&empty, &a, 0), 0.0);
}

}  // namespace
