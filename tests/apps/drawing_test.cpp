// The picture of a tracing: where things fall on the sheet, how two tracings are laid over each other.

#include <gtest/gtest.h>

#include <cmath>

#include "apps/drawing/label_places.h"
#include "apps/drawing/tracing_page.h"
#include "apps/drawing/wrapped_text.h"
#include "tool/analysis/landmarks.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

using app::SheetPoint;
using framework::RecordingDevice;
namespace mark = analysis::lateral;

constexpr double pixels_per_mm = 20;
constexpr app::SheetBox area{10, 10, 200, 287};

framework::DeviceCapabilities paper() {
  framework::DeviceCapabilities all;
  all.printer = true;
  all.width = 4200;
  all.height = 5940;
  all.pixels_per_mm_x = all.pixels_per_mm_y = pixels_per_mm;
  return all;
}

/// A sheet that keeps what is drawn on it.
struct Recorded {
  RecordingDevice device{paper()};
  CDC context{device};
  app::Sheet sheet{context, pixels_per_mm};

  /// Middles of the discs, device pixels: the landmarks in the order of the vocabulary.
  std::vector<CPoint> discs() const {
    std::vector<CPoint> middles;
    for (std::size_t i = 0; i < device.size(); ++i)
      if (device[i].kind == RecordingDevice::Kind::ellipse) {
        const auto box = device[i].points;
        middles.emplace_back((box[0].x + box[1].x) / 2, (box[0].y + box[1].y) / 2);
      }
    return middles;
  }
  bool says(const std::string &text) const {
    for (std::size_t i = 0; i < device.size(); ++i)
      if (device[i].kind == RecordingDevice::Kind::text &&
          device[i].text.find(text) != std::string_view::npos)
        return true;
    return false;
  }
};

app::TracingFile film(const std::string &landmarks, double scale = 0.1) {
  return app::read_json_tracing(R"({"kind": "lateral", "scale": )" + std::to_string(scale) +
                                R"(, "landmarks": {)" + landmarks + "}}");
}

TEST(TracingPage, LifeSizeKeepsMillimetres) {
  const auto tracing = film(R"("S": [500, 700], "N": [1100, 1500])");  // 600 and 800 pixels apart: 100 mm
  Recorded recorded;
  app::SceneOptions options;
  options.teeth.reset();
  app::draw_tracing_page(recorded.sheet, area, {"T", "", true}, tracing, options);
  const auto discs = recorded.discs();
  ASSERT_EQ(discs.size(), 2U);
  const double pixels = std::hypot(discs[1].x - discs[0].x, discs[1].y - discs[0].y);
  EXPECT_NEAR(pixels / pixels_per_mm, 100.0, 0.1);
  EXPECT_TRUE(recorded.says("life size"));
}

TEST(TracingPage, FitsTheAreaAndSaysHowLarge) {
  const auto tracing = film(R"("S": [500, 700], "N": [4500, 1500])");  // 400 mm wide, and 8 mm on both sides
  Recorded recorded;
  app::SceneOptions options;
  EXPECT_THROW(app::draw_tracing_page(recorded.sheet, area, {"T", "", true}, tracing, options),
               app::InputError);
  app::draw_tracing_page(recorded.sheet, area, {"T", "", false}, tracing, options);
  const auto discs = recorded.discs();
  ASSERT_EQ(discs.size(), 2U);
  // The area is 190 mm wide: 190 / 416 of life size.
  EXPECT_NEAR((discs[1].x - discs[0].x) / pixels_per_mm, 400 * 190.0 / 416, 0.2);
  EXPECT_TRUE(recorded.says("46 % of life size"));
}

TEST(TracingPage, DrawsOnlyWhatIsPlaced) {
  Recorded recorded;
  EXPECT_THROW(app::draw_tracing_page(recorded.sheet, area, {"T", "", false}, film(""), {}), app::InputError);
  app::draw_tracing_page(recorded.sheet, area, {"T", "", false},
                         film(R"("S": [500, 700], "N": [1100, 650], "Po": [400, 900])"), {});
  EXPECT_TRUE(recorded.says("S-N"));
  EXPECT_FALSE(recorded.says("Frankfort"));
}

TEST(Registration, ReadsLineAndPoint) {
  const struct {
    const char *text;
    unsigned mode;
    int from, to, at;
  } rows[] = {
      {"S-N", 0, mark::S, mark::N, mark::S},           {"S-N@N", 0, mark::S, mark::N, mark::N},
      {"ANS-PNS@A", 0, mark::ANS, mark::PNS, mark::A}, {"Go(L)-Me", 0, mark::GoL, mark::Me, mark::GoL},
      {"Ba-N", 1, mark::Ba, mark::N, mark::Ba},        {"Ba-N@N", 0, mark::Ba, mark::N, mark::N}};
  for (const auto &row : rows) {
    const app::Registration on = app::parse_registration(row.text);
    EXPECT_EQ(on.mode, row.mode) << row.text;
    EXPECT_EQ(on.line[0], static_cast<unsigned>(row.from)) << row.text;
    EXPECT_EQ(on.line[1], static_cast<unsigned>(row.to)) << row.text;
    EXPECT_EQ(on.at, static_cast<unsigned>(row.at)) << row.text;
  }
  for (const char *fault : {"", "S", "S-", "S-Q", "S-S", "S-N@", "S-N@Q"})
    EXPECT_THROW(app::parse_registration(fault), app::InputError) << fault;
}

/// A film turned by `degrees` clockwise on the screen about its sella, at another scale and place.
app::TracingFile turned(const app::TracingFile &tracing, double degrees, double scale) {
  app::TracingFile other = tracing;
  tagPOINTLAT &record = *other.lateral();
  const CPoint sella = record.pt[8 + mark::S];
  const double c = std::cos(degrees * M_PI / 180), s = std::sin(degrees * M_PI / 180),
               f = record.scale / scale;
  for (const int k : {mark::S, mark::N, mark::Me}) {
    const double dx = record.pt[8 + k].x - sella.x, dy = record.pt[8 + k].y - sella.y;
    record.pt[8 + k] = {static_cast<LONG>(std::lround(900 + f * (c * dx - s * dy))),
                        static_cast<LONG>(std::lround(800 + f * (s * dx + c * dy)))};
  }
  record.scale = scale;
  return other;
}

TEST(Registration, LaysATurnedFilmBackOnItself) {
  const auto first = film(R"("S": [700, 900], "N": [1400, 820], "Me": [1250, 2000])");
  for (const double degrees : {-20.0, -3.0, 0.0, 7.0, 25.0}) {
    const auto second = turned(first, degrees, 0.08);
    const app::Placement place =
        app::registered(*first.lateral(), *second.lateral(), app::parse_registration("S-N"));
    for (const int k : {mark::S, mark::N, mark::Me}) {
      const CPoint there = place.on_first_film(second.lateral()->pt[8 + k]);
      EXPECT_NEAR(there.x, first.lateral()->pt[8 + k].x, 1.5) << degrees << ' ' << k;
      EXPECT_NEAR(there.y, first.lateral()->pt[8 + k].y, 1.5) << degrees << ' ' << k;
    }
  }
}

TEST(LabelPlaces, KeepApartWhereThereIsRoom) {
  const std::vector<app::LabelRequest> requests{{{50, 50}, 8, 3}, {{52, 50}, 8, 3}, {{50, 53}, 8, 3}};
  const auto places = app::place_labels(requests, 1);
  for (std::size_t i = 0; i < places.size(); ++i)
    for (std::size_t j = 0; j < i; ++j)
      EXPECT_TRUE(std::abs(places[i].x - places[j].x) >= 8 || std::abs(places[i].y - places[j].y) >= 3)
          << i << j;
}

TEST(WrappedText, BreaksAtBlanksLineFeedsAndBetweenKanji) {
  Recorded recorded;  // its letters are half as wide as they are high
  const app::TextLook look{4, 0, false, app::TextSide::left};
  using Lines = std::vector<std::string>;
  const struct {
    std::string text;
    Lines lines;
  } rows[] = {{"", {""}},           {"one two", {"one", "two"}},    {"a b c d", {"a b c", "d"}},
              {"a\nb", {"a", "b"}}, {"abcdefgh", {"abcde", "fgh"}}, {"計測値です", {"計測", "値で", "す"}}};
  for (const auto &row : rows)
    EXPECT_EQ(app::wrapped(recorded.sheet, row.text, look, 10), row.lines) << row.text;
}

}  // namespace
