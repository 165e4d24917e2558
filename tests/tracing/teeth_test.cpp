#include "tool/tracing/teeth.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/trace_entries.h"
#include "tests/support/tracings.h"
#include "tool/api/CCalcTool.h"
#include "tool/framework/gdi/recording_device.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr COLORREF red = RGB(255, 0, 0), blue = RGB(0, 0, 255);

template <typename T, typename Bytes>
void put(Bytes &bytes, std::size_t offset, T value) {
  std::memcpy(bytes.data() + offset, &value, sizeof value);
}

struct Paper {
  framework::RecordingDevice device;
  CDC dc{device};

  /// Sums of the coordinates of all points drawn.
  CPoint sum() const {
    CPoint total;
    for (std::size_t i = 0; i < device.size(); ++i) {
      for (const POINT &p : device[i].points) total.Offset(p.x, p.y);
    }
    return total;
  }
  CPoint last_of(std::size_t piece) const { return device[piece].points.back(); }
};

/// The record's lines are 3 wide; y of 1000 is 0 on a flipped device.
struct Film {
  tagPOINTLAT rec{};
  tagDPOINT base{0, 0};
  int mode = 1, flip = 0, show = 1, type = 0, mirror = 0;
  double scale = 1.0;
  std::array<std::byte, 1000> adjust{};
  support::TraceStoreBytes traces{};

  Film() { rec.lineWidth = 3; }
  int top() const { return flip ? 1000 : 0; }
  double y(double device) const { return flip ? 1000 - device : device; }

  void upper_incisor(Paper &paper, CPointD a, CPointD b) {
    CCalcTool::Write_U1(&paper.dc, a.x, y(a.y), b.x, y(b.y), red, 0, 0, top(), &base, 1, 0, mode, scale, 0, 0,
                        0, 1, flip, show, type, &rec, adjust.data(), mirror);
  }
  void lower_incisor(Paper &paper, CPointD a, CPointD b) {
    CCalcTool::Write_L1(&paper.dc, a.x, y(a.y), b.x, y(b.y), red, 0, 0, top(), &base, 1, 0, mode, scale, 0, 0,
                        0, 1, flip, show, type, &rec, adjust.data(), mirror);
  }
  void upper_molar(Paper &paper, CPointD a, CPointD b, CPointD c) {
    CCalcTool::Write_Um(&paper.dc, a.x, y(a.y), b.x, y(b.y), c.x, y(c.y), red, 1, 0, top(), &base, 1, 0, mode,
                        scale, 0, 0, 0, 1, flip, show, type, &rec);
  }
  void lower_molar(Paper &paper, CPointD a, CPointD b, CPointD c) {
    CCalcTool::Write_Lm(&paper.dc, a.x, y(a.y), b.x, y(b.y), c.x, y(c.y), red, 1, 0, top(), &base, 1, 0, mode,
                        scale, 0, 0, 0, 1, flip, show, type, &rec);
  }
};

// Side points and sums over all points, from the published tables and steps in another program that turns
// vectors with the full pi. Tip (300.5, 200.5), apex (400.5, 600.5).
TEST(writeIncisor, fitsTheTemplate) {
  struct Row {
    char tooth;
    int type;
    std::array<int, 4> adjust;  ///< distances of the side points, then their places along the axis
    int mirror, flip;
    CPoint side_3, side_4, sum;
  };
  // clang-format off
  const Row rows[] = {
      {'U', 0, {0, 0, 0, 0}, 0, 0, {435, 461}, {302, 477}, {13896, 16347}},
      {'U', 0, {0, 0, 0, 0}, 1, 0, {302, 494}, {427, 446}, {13981, 16418}},
      {'U', 0, {0, 0, 0, 0}, 0, 1, {435, 461}, {302, 477}, {13708, 16481}},
      {'U', 0, {50, 0, 0, 0}, 0, 0, {502, 444}, {302, 477}, {14417, 16202}},
      {'U', 0, {0, -25, 5, 50}, 1, 1, {309, 521}, {462, 717}, {14251, 18947}},
      {'U', 1, {0, 0, 0, 0}, 0, 0, {412, 441}, {307, 464}, {15053, 18133}},
      {'U', 1, {0, -25, 5, 50}, 1, 1, {319, 491}, {452, 696}, {16054, 21351}},
      {'L', 0, {0, 0, 0, 0}, 0, 0, {421, 399}, {296, 431}, {12786, 14614}},
      {'L', 0, {0, -25, 5, 50}, 1, 1, {291, 453}, {436, 626}, {13203, 16339}},
      {'L', 1, {0, 0, 0, 0}, 0, 0, {400, 349}, {287, 362}, {11815, 13416}},
      {'L', 1, {0, -25, 5, 50}, 1, 1, {285, 394}, {399, 494}, {11866, 14783}},
  };
  // clang-format on
  for (const Row &row : rows) {
    Film film;
    const bool upper = row.tooth == 'U';
    for (std::size_t i = 0; i < 4; ++i)
      put(film.adjust, (i < 2 ? 904 : 908) + 2 * i + (upper ? 0 : 4),
          static_cast<std::int16_t>(row.adjust[i]));
    film.type = row.type;
    film.mirror = row.mirror;
    film.flip = row.flip;
    Paper paper;
    if (upper)
      film.upper_incisor(paper, {300.5, 200.5}, {400.5, 600.5});
    else
      film.lower_incisor(paper, {300.5, 200.5}, {400.5, 600.5});
    SCOPED_TRACE(testing::Message() << row.tooth << row.type << " adjusted by " << row.adjust[0] << " mirror "
                                    << row.mirror << " flip " << row.flip);
    ASSERT_EQ(paper.device.size(), 4U);
    EXPECT_EQ(paper.last_of(0), row.side_3);
    EXPECT_EQ(paper.last_of(1), CPoint(400, 600));
    EXPECT_EQ(paper.last_of(2), row.side_4);
    EXPECT_EQ(paper.last_of(3), CPoint(300, 200));
    EXPECT_EQ(paper.sum(), row.sum);
    EXPECT_THAT(paper.device.line(0), HasSubstr("pen solid 3 #ff0000"));
  }
}

// Upper: A (300.5, 500.5), B (380.5, 520.5), C (375.5, 300.5); lower: A (400.5, 500.5), B (320.5, 530.5),
// C (390.5, 700.5).
TEST(writeMolar, fitsTheTemplate) {
  struct Row {
    bool upper;
    int type, flip, mode;
    std::array<CPoint, 6> ends;  ///< of the pieces
    CPoint sum;
  };
  // clang-format off
  const Row rows[] = {
      {true, 0, 0, 1, {{{300, 500}, {333, 215}, {375, 300}, {403, 210}, {440, 489}, {380, 520}}}, {17503, 17243}},
      {true, 0, 1, 1, {{{300, 500}, {333, 215}, {375, 300}, {392, 253}, {418, 576}, {380, 520}}}, {17104, 18043}},
      {true, 0, 1, 0, {{{300, 500}, {333, 215}, {375, 300}, {392, 253}, {418, 576}, {380, 520}}}, {17171, 18324}},
      {true, 1, 0, 1, {{{300, 500}, {334, 263}, {375, 300}, {412, 242}, {456, 480}, {380, 520}}}, {21140, 22113}},
      {true, 1, 1, 1, {{{300, 500}, {334, 263}, {375, 300}, {398, 298}, {429, 591}, {380, 520}}}, {20703, 23384}},
      {true, 1, 1, 0, {{{300, 500}, {334, 263}, {375, 300}, {398, 298}, {429, 591}, {380, 520}}}, {20550, 23776}},
      {false, 0, 0, 1, {{{482, 561}, {383, 843}, {390, 700}, {283, 838}, {320, 530}, {400, 500}}}, {20130, 34684}},
      {false, 0, 1, 1, {{{422, 400}, {383, 843}, {390, 700}, {483, 848}, {320, 530}, {400, 500}}}, {21114, 33463}},
      {false, 0, 1, 0, {{{422, 400}, {383, 843}, {390, 700}, {483, 848}, {320, 530}, {400, 500}}}, {21346, 33353}},
      {false, 1, 0, 1, {{{520, 589}, {382, 867}, {390, 700}, {284, 845}, {320, 530}, {400, 500}}}, {30424, 53217}},
      {false, 1, 1, 1, {{{432, 354}, {382, 867}, {390, 700}, {481, 855}, {320, 530}, {400, 500}}}, {31284, 50145}},
      {false, 1, 1, 0, {{{432, 354}, {382, 867}, {390, 700}, {481, 855}, {320, 530}, {400, 500}}}, {31668, 50089}},
  };
  // clang-format on
  for (const Row &row : rows) {
    Film film;
    film.type = row.type;
    film.flip = row.flip;
    film.mode = row.mode;
    Paper paper;
    if (row.upper)
      film.upper_molar(paper, {300.5, 500.5}, {380.5, 520.5}, {375.5, 300.5});
    else
      film.lower_molar(paper, {400.5, 500.5}, {320.5, 530.5}, {390.5, 700.5});
    SCOPED_TRACE(testing::Message() << (row.upper ? "upper " : "lower ") << row.type << " flip " << row.flip
                                    << " mode " << row.mode);
    ASSERT_EQ(paper.device.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(paper.last_of(i), row.ends[i]) << i;
    EXPECT_EQ(paper.sum(), row.sum);
  }
}

TEST(writeTooth, bandsAndNothing) {
  Film film;
  Paper paper;
  film.mode = 0;
  film.upper_incisor(paper, {30.5, 20.5}, {40.5, 60.5});
  film.lower_molar(paper, {40.5, 50.5}, {32.5, 53.5}, {39.5, 70.5});
  for (std::size_t i = 0; i < paper.device.size(); ++i)
    EXPECT_THAT(paper.device.line(i),
                HasSubstr(i < 4 ? "| pen solid 1 #ff0000 | rop xor" : "| pen solid 1 #ffffff | rop xor"));
  EXPECT_EQ(paper.dc.GetROP2(), R2_COPYPEN);
  film.mode = 1;
  paper.device.clear();
  const auto draw_all = [&](Film &nothing) {
    nothing.upper_incisor(paper, {30.5, 20.5}, {40.5, 60.5});
    nothing.upper_molar(paper, {30.5, 50.5}, {38.5, 52.5}, {37.5, 30.5});
  };
  Film hidden, flat, strange;
  hidden.show = 0;
  flat.scale = 0;
  for (Film *nothing : {&hidden, &flat}) draw_all(*nothing);
  for (const int type : {-1, 2, INT32_MAX}) {
    strange.type = type;
    draw_all(strange);
  }
  EXPECT_EQ(paper.device.size(), 0U);
  film.upper_incisor(paper, {30.5, 20.5}, {30.5, 20.5});  // no axis: everything in one place
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(paper.last_of(i), CPoint(30, 20));
}

// Hand-drawn teeth -----------------------------------------------------------------------------------------

std::vector<std::string> moved_tooth(Film &film, CPoint tip, CPoint apex, CPoint traced_tip,
                                     CPoint traced_apex) {
  Paper paper;
  film.base = {0.5, 0.5};
  CCalcTool::Draw_U1(&paper.dc, red, 0, 0, 0, &film.base, 0, 0, tip, apex, traced_tip, traced_apex, 1, 0,
                     film.mode, 1, 0, 0, 0, 1, 0, film.show, film.type, &film.rec, film.adjust.data(),
                     film.traces.data(), 0);
  std::vector<std::string> lines = paper.device.lines();
  for (std::string &line : lines) line.resize(line.find(" |"));
  return lines;
}

TEST(drawIncisor, itsTraceFollows) {
  Film film;
  film.traces[4] = support::trace_entry("U1", "08", {{0, {{110, 94}, {120, 85}}}, {0, {{90, 80}, {90, 90}}}});
  const auto entry = film.traces[4];
  EXPECT_THAT(moved_tooth(film, {100, 100}, {100, 20}, {100, 100}, {100, 20}),
              ElementsAre("polyline (110,94) (120,85)", "polyline (90,80) (90,90)"));
  EXPECT_THAT(moved_tooth(film, {103, 98}, {103, 18}, {100, 100}, {100, 20}),
              ElementsAre("polyline (113,92) (123,83)", "polyline (93,78) (93,88)"));
  // The axis falls from straight up by atan(1 / 2) to the right: offsets from the tip (10, -6), (20, -15),
  // (-10, -20) and (-10, -10) turn by 26.565 degrees: (x c - y s, x s + y c), c = 0.894427, s = 0.447214.
  EXPECT_THAT(moved_tooth(film, {200, 100}, {240, 20}, {100, 100}, {100, 20}),
              ElementsAre("polyline (211,99) (224,95)", "polyline (199,77) (195,86)"));
  // An axis without length cannot turn.
  EXPECT_THAT(moved_tooth(film, {200, 100}, {200, 100}, {100, 100}, {100, 20}),
              ElementsAre("polyline (210,94) (220,85)", "polyline (190,80) (190,90)"));
  EXPECT_EQ(film.traces[4], entry) << "the store stays as it is";
  film.show = 0;
  EXPECT_THAT(moved_tooth(film, {100, 100}, {100, 20}, {100, 100}, {100, 20}), IsEmpty());
  film.show = 1;
  film.traces[4] = support::trace_entry("U1", "9", {{0, {{110, 95}, {120, 85}}}});
  EXPECT_EQ(moved_tooth(film, {100, 100}, {100, 20}, {100, 100}, {100, 20}).size(), 4U) << "the template";
}

// The tracing itself ---------------------------------------------------------------------------------------

struct OwnFilm {
  tagPOINTLAT rec = support::lateral_record(0.1, {{"Po", {100, 100}}});
  std::array<std::byte, 1400> settings{};
  support::TraceStoreBytes traces{};
  int image_width = 0;
  OwnFilm() {
    put(settings, 1268, 1);
    put(settings, 1348, 5);
  }
  void incisor(Paper &paper, CPoint tip, CPoint apex) {
    CCalcTool::Draw_U1Ex(&paper.dc, 10, 20, 2.0, tip, apex, red, 0, nullptr, traces.data(), image_width, 0,
                         settings.data(), 0, 0.0, &rec, 0.5, 0, 1, blue);
  }
  void molar(Paper &paper, CPoint a, CPoint b, CPoint c) {
    CCalcTool::Draw_UmEx(&paper.dc, 10, 20, 2.0, a, b, c, red, 0, traces.data(), image_width, 0,
                         settings.data(), 0, 0.0, &rec, 0.5, 1, 1, blue);
  }
};

TEST(drawOwnTooth, fitsTheTemplate) {
  OwnFilm film;
  Paper paper;
  film.incisor(paper, {310, 220}, {410, 620});  // at (300, 200) and (400, 600)
  ASSERT_EQ(paper.device.size(), 4U);
  EXPECT_EQ(paper.last_of(0), CPoint(435, 461));
  EXPECT_EQ(paper.last_of(2), CPoint(302, 477));
  EXPECT_EQ(paper.last_of(3), CPoint(300, 200));
  EXPECT_THAT(paper.device.line(0), HasSubstr("pen solid 5 #ff0000"));
  paper.device.clear();
  film.molar(paper, {310, 520}, {391, 541}, {385, 320});  // at (300, 500), (381, 521), (375, 300)
  ASSERT_EQ(paper.device.size(), 6U);
  EXPECT_EQ(paper.sum(), CPoint(21137, 22098));
  paper.device.clear();
  put(film.settings, 1268, 0);
  film.incisor(paper, {310, 220}, {410, 620});
  EXPECT_EQ(paper.device.size(), 0U);
}

TEST(drawOwnTooth, widthInAnImage) {
  for (const auto &[image_width, width] :
       {std::pair{1600, "4"}, {1500, "4"}, {750, "2"}, {1, "2"}, {2250, "6"}}) {
    OwnFilm film;
    film.image_width = image_width;
    Paper paper;
    film.incisor(paper, {310, 220}, {410, 620});
    ASSERT_GT(paper.device.size(), 4U) << "piece by piece";
    EXPECT_THAT(paper.device.line(0), HasSubstr(std::string("pen solid ") + width + " #ff0000"));
  }
}

TEST(drawOwnTooth, aTraceComesFirst) {
  OwnFilm film;
  film.traces[0] = support::trace_entry("U1", "8", {{0, {{110, 100}, {130, 140}}}});
  Paper paper;
  film.incisor(paper, {310, 220}, {410, 620});
  EXPECT_THAT(paper.device.lines(),
              ElementsAre(HasSubstr("ellipse (96,76) (104,84) | pen solid 1 #0000ff"),
                          HasSubstr("ellipse (116,116) (124,124) | pen solid 1 #0000ff"),
                          "polyline (100,80) (120,120) | pen solid 5 #ff0000 round | rop copy"));
}

TEST(drawOwnTooth, isUprightInLifeSize) {
  // A tooth seen in life size is the tooth on the screen, mirrored about the horizontal through porion and
  // scaled by 0.1 mm per pixel x 20 units per mm; each point within the pixels lost by truncation.
  framework::DeviceCapabilities paper_device;
  paper_device.printer = true;
  paper_device.width = paper_device.height = 5000;
  framework::RecordingDevice printer(paper_device), screen;
  CDC on_paper(printer), on_screen(screen);
  OwnFilm film;
  put(film.settings, 1224, 1);
  const auto draw = [&](CDC &dc, double mag, double factor) {
    CCalcTool::Draw_U1Ex(&dc, 0, 0, mag, CPoint(310, 220), CPoint(410, 620), red, 0, nullptr,
                         film.traces.data(), 0, 0, film.settings.data(), 0, 0.0, &film.rec, factor, 0, 0,
                         blue);
    CCalcTool::Draw_LmEx(&dc, 0, 0, mag, CPoint(500, 500), CPoint(420, 530), CPoint(490, 700), red, 0,
                         film.traces.data(), 0, 0, film.settings.data(), 0, 0.0, &film.rec, factor, 1, 0,
                         blue);
  };
  draw(on_paper, 20.0, 1.0);
  draw(on_screen, 1.0, 2.0);
  ASSERT_EQ(printer.size(), screen.size());
  // Porion (100, 100) lies at 100 x 20 on paper and 100 x 2 on the screen.
  for (std::size_t i = 0; i < screen.size(); ++i) {
    for (std::size_t j = 0; j < screen[i].points.size(); ++j) {
      EXPECT_NEAR(printer[i].points[j].x - 2000, screen[i].points[j].x - 200, 4) << i << ' ' << j;
      EXPECT_NEAR(printer[i].points[j].y + 2000, -(screen[i].points[j].y - 200), 4) << i << ' ' << j;
    }
  }
}

}  // namespace
