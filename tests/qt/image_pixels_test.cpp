// Which pixels each primitive paints, worked out by hand from what gdi/drawing_device.h states.

#include <gtest/gtest.h>

#include <functional>

#include "tests/qt/bitmap.h"

namespace {

using framework::FillRule;
using framework::LineCap;
using framework::Paint;
using framework::Region;
using support::Bitmap;
using support::pen;
using support::pen_and_brush;

using Rows = std::vector<std::string>;

struct Case {
  const char *name;
  std::function<void(framework::DrawingDevice &)> draw;
  Rows expected;
};

void polyline(framework::DrawingDevice &device, std::vector<POINT> points, const Paint &paint) {
  device.polyline(points, paint);
}

Paint with_cap(Paint paint, LineCap cap) {
  paint.pen.cap = cap;
  return paint;
}
Paint with_gaps(Paint paint) {
  paint.pen.gap_color = support::blue;
  return paint;
}
Paint without_pen(Paint paint) {
  paint.pen.visible = false;
  return paint;
}

const Case cases[] = {
    {"a line leaves out its last point",
     [](auto &d) {
       polyline(d, {{1, 1}, {5, 1}}, pen());
     },
     {".......", ".####..", "......."}},
    {"also backwards",
     [](auto &d) {
       polyline(d, {{5, 1}, {1, 1}}, pen());
     },
     {".......", "..####.", "......."}},
    {"and upwards",
     [](auto &d) {
       polyline(d, {{1, 3}, {1, 0}}, pen());
     },
     {"...", ".#.", ".#.", ".#."}},
    {"a line without length paints nothing",
     [](auto &d) {
       polyline(d, {{1, 1}, {1, 1}}, pen());
     },
     {"...", "..."}},
    {"a flat line has one pixel in each column, ties go up",
     [](auto &d) {
       polyline(d, {{0, 0}, {4, 2}}, pen());
     },
     {"##...", "..##.", "....."}},
    {"whichever way it runs",
     [](auto &d) {
       polyline(d, {{4, 2}, {0, 0}}, pen());
     },
     {".#...", "..##.", "....#"}},
    {"a bend continues",
     [](auto &d) {
       polyline(d, {{0, 0}, {3, 0}, {3, 3}}, pen());
     },
     {"####", "...#", "...#", "...."}},
    {"dashes of one pixel's width count pixels, across bends too",
     [](auto &d) {
       polyline(d, {{0, 0}, {4, 0}, {4, 6}}, pen(1, {3, 2}));
     },
     {"###..", "....#", "....#", "....#", ".....", ".....", "....."}},
    {"gaps in their colour",
     [](auto &d) {
       polyline(d, {{0, 0}, {8, 0}}, with_gaps(pen(1, {3, 2})));
     },
     {"###++###."}},
    {"three wide, flat",
     [](auto &d) {
       polyline(d, {{2, 2}, {7, 2}}, with_cap(pen(3), LineCap::flat));
     },
     {".........", "..#####..", "..#####..", "..#####..", "........."}},
    {"three wide, square",
     [](auto &d) {
       polyline(d, {{2, 2}, {6, 2}}, with_cap(pen(3), LineCap::square));
     },
     {".........", ".#######.", ".#######.", ".#######.", "........."}},
    {"two wide lies above and left",
     [](auto &d) {
       polyline(d, {{1, 2}, {5, 2}}, with_cap(pen(2), LineCap::flat));
     },
     {"......", ".####.", ".####.", "......"}},
    {"square caps lengthen each dash by half the width",
     [](auto &d) {
       polyline(d, {{2, 1}, {18, 1}}, with_cap(pen(2, {4, 4}), LineCap::square));
     },
     {".######..######....", ".######..######....", "..................."}},
    {"flat ones do not, gaps are filled",
     [](auto &d) {
       polyline(d, {{1, 1}, {9, 1}}, with_gaps(with_cap(pen(2, {3, 2}), LineCap::flat)));
     },
     {".###++###.", ".###++###.", ".........."}},
    {"a rectangle leaves out right and bottom",
     [](auto &d) {
       d.rectangle({1, 1, 6, 5}, pen_and_brush());
     },
     {".......", ".#####.", ".#ooo#.", ".#ooo#.", ".#####.", "......."}},
    {"without a pen the brush has it all",
     [](auto &d) {
       d.rectangle({1, 1, 4, 3}, without_pen(pen_and_brush()));
     },
     {".....", ".ooo.", ".ooo.", "....."}},
    {"a box without width paints nothing",
     [](auto &d) {
       d.rectangle({1, 0, 1, 2}, pen_and_brush());
     },
     {"...", "..."}},
    {"a wide pen lies on both sides of the outline",
     [](auto &d) {
       Paint paint = pen_and_brush(3);
       paint.pen.join = framework::LineJoin::miter;
       d.rectangle({1, 1, 8, 7}, paint);
     },
     {"#########", "#########", "#########", "###ooo###", "###ooo###", "#########", "#########",
      "#########"}},
    {"inside the frame it lies within",
     [](auto &d) {
       Paint paint = pen_and_brush(3);
       paint.pen.join = framework::LineJoin::miter;
       paint.pen.inside_frame = true;
       d.rectangle({0, 0, 9, 8}, paint);
     },
     {"#########", "#########", "#########", "###ooo###", "###ooo###", "#########", "#########",
      "#########"}},
    {"dashes run round from the middle of the top; the brush has the gaps",
     [](auto &d) {
       d.rectangle({0, 0, 5, 4}, pen_and_brush(1, {1, 1}));
     },
     {"#o#o#", "ooooo", "#ooo#", "o#o#o"}},
    {"an ellipse has the pixels whose middle lies inside",
     [](auto &d) {
       d.ellipse({1, 0, 7, 6}, pen_and_brush());
     },
     {"..####..", ".#oooo#.", ".#oooo#.", ".#oooo#.", ".#oooo#.", "..####.."}},
    {"a narrow one touches all four sides",
     [](auto &d) {
       d.ellipse({0, 0, 2, 4}, pen_and_brush());
     },
     {"##", "##", "##", "##"}},
    {"an arc is that part of it, counter-clockwise",
     [](auto &d) {
       d.arc({0, 0, 6, 6}, {9, -4}, {-4, -4}, pen());
     },
     {".####.", "......", "......", "......", "......", "......"}},
    {"its rest is the rest",
     [](auto &d) {
       d.arc({0, 0, 6, 6}, {-4, -4}, {9, -4}, pen());
     },
     {"......", "#....#", "#....#", "#....#", "#....#", ".####."}},
    {"all of it when both rays are one",
     [](auto &d) {
       d.arc({0, 0, 6, 6}, {9, 2}, {9, 2}, pen());
     },
     {".####.", "#....#", "#....#", "#....#", "#....#", ".####."}},
    {"rounded corners",
     [](auto &d) {
       d.rounded_rectangle({0, 0, 8, 5}, {4, 4}, pen_and_brush());
     },
     {".######.", "#oooooo#", "#oooooo#", "#oooooo#", ".######."}},
    {"a polygon closes itself",
     [](auto &d) {
       d.polygon(std::vector<POINT>{{0, 0}, {5, 0}, {0, 5}}, FillRule::alternate, pen_and_brush());
     },
     {"######", "#ooo#.", "#oo#..", "#o#...", "##....", "#....."}},
    {"nothing leaves the clip",
     [](auto &d) {
       const Region clip = Region::rectangle({2, 1, 4, 9});
       Paint paint = pen_and_brush();
       paint.clip = &clip;
       d.rectangle({1, 0, 6, 4}, paint);
     },
     {".......", "..oo...", "..oo...", "..##...", "......."}},
    {"nor one with a hole",
     [](auto &d) {
       const Region clip =
           Region::combined(Region::rectangle({0, 0, 7, 5}), Region::rectangle({2, 1, 4, 9}), RGN_DIFF);
       Paint paint = pen_and_brush();
       paint.clip = &clip;
       d.rectangle({1, 0, 6, 4}, paint);
     },
     {".#####.", ".#..o#.", ".#..o#.", ".#..##.", "......."}},
};

TEST(ImagePixels, AreThoseStated) {
  for (const Case &c : cases) {
    Bitmap bitmap(static_cast<int>(c.expected[0].size()), static_cast<int>(c.expected.size()));
    c.draw(bitmap.device);
    EXPECT_EQ(bitmap.rows(), c.expected) << c.name;
  }
}

// Laws over every primitive, pen and raster operation
// -------------------------------------------------------------------------------------------------------------------

LOGFONTA gothic(int height) {
  LOGFONTA font{};
  font.lfHeight = height;
  return font;
}

const std::function<void(framework::DrawingDevice &, const Paint &)> primitives[] = {
    [](auto &d, auto &p) {
      polyline(d, {{5, 5}, {90, 20}, {30, 80}, {90, 70}, {5, 5}, {90, 20}}, p);
    },
    [](auto &d, auto &p) {
      polyline(d, {{-50, 30}, {60, 31}, {200, 33}}, p);
    },
    [](auto &d, auto &p) {
      d.polygon(std::vector<POINT>{{50, 3}, {75, 90}, {10, 35}, {90, 35}, {25, 90}}, FillRule::alternate, p);
    },
    [](auto &d, auto &p) {
      d.polygon(std::vector<POINT>{{50, 3}, {52, 95}, {54, 3}}, FillRule::winding, p);
    },
    [](auto &d, auto &p) {
      d.rectangle({10, 20, 85, 60}, p);
    },
    [](auto &d, auto &p) {
      d.rectangle({10, 20, 13, 60}, p);
    },
    [](auto &d, auto &p) {
      d.rounded_rectangle({10, 20, 85, 60}, {20, 14}, p);
    },
    [](auto &d, auto &p) {
      d.ellipse({-10, 20, 85, 61}, p);
    },
    [](auto &d, auto &p) {
      d.arc({10, 20, 85, 60}, {80, 30}, {70, 90}, p);
    },
    [](auto &d, auto &p) {
      d.fill_region(Region::ellipse({10, 20, 85, 60}), p);
    },
    [](auto &d, auto &p) {
      const LOGFONTA font = gothic(24);
      d.text({{5, 30}, "ANB 2.5", &font, p.pen.color}, p);
    },
    [](auto &d, auto &p) {
      LOGFONTA font = gothic(17);
      font.lfEscapement = 300;
      font.lfUnderline = 1;
      d.text({{5, 70}, "ANB 2.5", &font, p.pen.color}, p);
    },
};

std::vector<Paint> paints() {
  Paint hatched = with_gaps(pen_and_brush(4, {7, 3}));
  hatched.brush.kind = framework::DeviceBrush::Kind::hatched;
  hatched.brush.hatch = HS_DIAGCROSS;
  return {pen(),
          pen(1, {5, 2}),
          pen(7),
          pen(6, {9, 3}),
          pen_and_brush(),
          pen_and_brush(1, {4, 4}),
          pen_and_brush(5),
          hatched,
          without_pen(pen_and_brush())};
}

/// Noise with a seed of its own.
void fill_with_noise(framework::Picture &picture) {
  std::uint32_t state = 12345;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      state = state * 1664525 + 1013904223;
      picture.span().row(y)[x] = 0xFF000000 | state >> 8;
    }
  }
}

TEST(ImageLaws, ExclusiveOrTwiceRestoresEveryBit) {
  const Region clip =
      Region::combined(Region::ellipse({0, 0, 100, 100}), Region::rectangle({40, 40, 60, 60}), RGN_DIFF);
  for (const Region *used : {static_cast<const Region *>(nullptr), &clip}) {
    int changes = 0;
    for (const auto &draw : primitives) {
      for (Paint paint : paints()) {
        paint.rop = R2_XORPEN;
        paint.clip = used;
        Bitmap bitmap(100, 100);
        fill_with_noise(bitmap.picture);
        const auto before = bitmap.colors();
        draw(bitmap.device, paint);
        changes += bitmap.colors() != before;
        draw(bitmap.device, paint);
        EXPECT_EQ(bitmap.colors(), before);
      }
    }
    EXPECT_GT(changes, 80);
  }
}

/// An R2 code less one is the table of its results for (pen, pixel) = 00, 01, 10, 11.
COLORREF operated(int rop, COLORREF ink, COLORREF pixel) {
  const unsigned table = static_cast<unsigned>(rop - 1);
  COLORREF result = 0;
  if (table & 1) result |= ~ink & ~pixel;
  if (table & 2) result |= ~ink & pixel;
  if (table & 4) result |= ink & ~pixel;
  if (table & 8) result |= ink & pixel;
  return result & 0xFFFFFF;
}

TEST(ImageLaws, EveryRasterOperationMeetsEachPixelOnce) {
  for (std::size_t i = 0; i < std::size(primitives); ++i) {
    for (Paint paint : paints()) {
      const bool text = i + 2 >= std::size(primitives);
      paint.pen.color = text ? 0x345678 : support::red;
      // What a copy paints on white, text as aliased as it is under an operation, is the ink of each pixel.
      Bitmap ink(100, 100, 0x010203);
      Paint copy = paint;
      Bitmap noise(100, 100);
      fill_with_noise(noise.picture);
      const auto before = noise.colors();
      if (text) {
        Bitmap black(100, 100, 0);
        copy.rop = R2_XORPEN;
        primitives[i](black.device, copy);
        for (int y = 0; y < 100; ++y) {
          for (int x = 0; x < 100; ++x) {
            if (black.picture.color(x, y) != 0) ink.picture.span().row(y)[x] = framework::to_pixel(0x345678);
          }
        }
      } else {
        primitives[i](ink.device, copy);
      }
      const auto inks = ink.colors();
      for (int rop = R2_BLACK; rop <= R2_WHITE; ++rop) {
        if (rop == R2_COPYPEN) continue;
        paint.rop = rop;
        fill_with_noise(noise.picture);
        primitives[i](noise.device, paint);
        auto expected = before;
        for (std::size_t k = 0; k < expected.size(); ++k) {
          if (inks[k] != 0x010203) expected[k] = operated(rop, inks[k], before[k]);
        }
        ASSERT_EQ(noise.colors(), expected) << "primitive " << i << " rop " << rop;
      }
    }
  }
}

TEST(ImageLaws, FarAwayCoordinatesAreHarmless) {
  constexpr LONG far = 1 << 30;
  for (const Paint &paint : paints()) {
    Bitmap bitmap(20, 20);
    polyline(bitmap.device, {{-far, 10}, {far, 10}, {far, -far}, {10, far}}, paint);
    bitmap.device.polygon(std::vector<POINT>{{-far, -far}, {far, -far}, {0, far}}, FillRule::winding, paint);
    bitmap.device.rectangle({-far, -far, far, 10}, paint);
    bitmap.device.rounded_rectangle({-far, -far, far, 10}, {far, far}, paint);
    bitmap.device.ellipse({-far, -far, far, far}, paint);
    bitmap.device.arc({-far, -far, 5, far}, {far, 0}, {-far, 0}, paint);
    bitmap.device.text({{far, -far}, "far", nullptr, 0}, paint);
    const LOGFONTA font = gothic(far);
    bitmap.device.text({{-far, 0}, "far", &font, 0}, paint);
  }
}

}  // namespace
