#include "tool/framework/gdi/pixel_device.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "tool/framework/gdi/CDC.h"

namespace {

using framework::Picture;
using framework::PixelDevice;
using framework::PixelView;
using framework::Region;

constexpr COLORREF black = 0, white = 0xFFFFFF, red = RGB(255, 0, 0), blue = RGB(0, 0, 255);

/// A picture from rows of letters: '.' white, '#' black, 'r' red, 'b' blue.
Picture picture_of(const std::vector<std::string> &rows) {
  Picture picture(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
  for (std::size_t y = 0; y < rows.size(); ++y)
    for (std::size_t x = 0; x < rows[y].size(); ++x) {
      const char c = rows[y][x];
      picture.span().row(static_cast<int>(y))[x] = framework::to_pixel(c == '#'   ? black
                                                                       : c == 'r' ? red
                                                                       : c == 'b' ? blue
                                                                                  : white);
    }
  return picture;
}

std::vector<std::string> rows_of(const Picture &picture) {
  std::vector<std::string> rows;
  for (int y = 0; y < picture.height(); ++y) {
    std::string row;
    for (int x = 0; x < picture.width(); ++x) {
      const COLORREF color = picture.color(x, y);
      row += color == black ? '#' : color == white ? '.' : color == red ? 'r' : color == blue ? 'b' : '?';
    }
    rows.push_back(row);
  }
  return rows;
}
using Rows = std::vector<std::string>;

TEST(PixelDevice, binaryRasterOperations) {
  using U = std::uint32_t;
  const std::function<U(U, U)> formulas[] = {
      [](U, U) { return 0U; },           [](U p, U d) { return ~(p | d); }, [](U p, U d) { return ~p & d; },
      [](U p, U) { return ~p; },         [](U p, U d) { return p & ~d; },   [](U, U d) { return ~d; },
      [](U p, U d) { return p ^ d; },    [](U p, U d) { return ~(p & d); }, [](U p, U d) { return p & d; },
      [](U p, U d) { return ~(p ^ d); }, [](U, U d) { return d; },          [](U p, U d) { return ~p | d; },
      [](U p, U) { return p; },          [](U p, U d) { return p | ~d; },   [](U p, U d) { return p | d; },
      [](U, U) { return 0xFFFFFFU; }};
  for (int rop = R2_BLACK; rop <= R2_WHITE; ++rop) {
    const U expected = (formulas[rop - R2_BLACK](0x0F33A5, 0x55C3F0) & 0xFFFFFF) | 0xFF000000;
    EXPECT_EQ(framework::apply_rop2(rop, 0xFF0F33A5, 0xFF55C3F0), expected) << rop;
  }
}

TEST(PixelDevice, transfersUnderRasterOperations) {
  using U = std::uint32_t;
  struct Row {
    DWORD operation;
    std::function<U(U, U, U)> formula;  // source, pixel, pattern
  };
  const Row rows[] = {{SRCCOPY, [](U s, U, U) { return s; }},
                      {SRCPAINT, [](U s, U d, U) { return s | d; }},
                      {SRCAND, [](U s, U d, U) { return s & d; }},
                      {SRCINVERT, [](U s, U d, U) { return s ^ d; }},
                      {SRCERASE, [](U s, U d, U) { return s & ~d; }},
                      {NOTSRCCOPY, [](U s, U, U) { return ~s; }},
                      {NOTSRCERASE, [](U s, U d, U) { return ~(s | d); }},
                      {MERGEPAINT, [](U s, U d, U) { return ~s | d; }},
                      {0x00C000CA, [](U s, U, U p) { return s & p; }},
                      {PATCOPY, [](U, U, U p) { return p; }},
                      {PATINVERT, [](U, U d, U p) { return d ^ p; }},
                      {DSTINVERT, [](U, U d, U) { return ~d; }},
                      {BLACKNESS, [](U, U, U) { return 0U; }},
                      {WHITENESS, [](U, U, U) { return 0xFFFFFFU; }}};
  for (const Row &row : rows) {
    Picture from(1, 1, 0x0F33A5), to(1, 1, 0x55C3F0);
    PixelDevice from_device(from.span()), to_device(to.span());
    CDC source(from_device), target(to_device);
    CBrush brush(COLORREF{0x6A6A11});
    target.SelectObject(&brush);
    EXPECT_TRUE(target.BitBlt(0, 0, 1, 1, &source, 0, 0, row.operation));
    EXPECT_EQ(to.color(0, 0), row.formula(0x0F33A5, 0x55C3F0, 0x6A6A11) & 0xFFFFFF)
        << std::hex << row.operation;
  }
}

TEST(PixelDevice, copiesOverlapAndStayInside) {
  Picture picture = picture_of({"r#b.", "#b.r"});
  PixelDevice device(picture.span());
  CDC dc(device);
  EXPECT_TRUE(dc.BitBlt(1, 0, 3, 2, &dc, 0, 0, SRCCOPY));  // to the right over itself
  EXPECT_EQ(rows_of(picture), (Rows{"rr#b", "##b."}));
  EXPECT_TRUE(dc.BitBlt(-1, -1, 4, 2, &dc, 0, 0, SRCCOPY));
  EXPECT_EQ(rows_of(picture), (Rows{"#b.b", "##b."}));
  EXPECT_TRUE(dc.BitBlt(2, 0, 4, 2, &dc, 3, 1, SRCCOPY));  // source pixels outside leave the target alone
  EXPECT_EQ(rows_of(picture), (Rows{"#b.b", "##b."}));
  EXPECT_EQ(dc.SetPixel(4, 0, red), CLR_INVALID);
  EXPECT_EQ(dc.GetPixel(0x7FFFFFFF, -1), CLR_INVALID);
  CRgn clip;
  clip.CreateRectRgn(1, 0, 2, 5);
  dc.SelectObject(&clip);
  EXPECT_TRUE(dc.PatBlt(0, 0, 9, 9, BLACKNESS));
  EXPECT_EQ(rows_of(picture), (Rows{"##.b", "##b."}));
}

TEST(PixelDevice, stretchesAndMirrors) {
  struct Row {
    int mode, x, width, source_x, source_width;
    const char *result;
  };
  for (const Row &row : {Row{COLORONCOLOR, 0, 6, 0, 3, "rr##bb"}, Row{COLORONCOLOR, 0, 3, 0, 3, "r#b..."},
                         Row{COLORONCOLOR, 1, 1, 0, 3, ".#...."},  // the pixel under the centre
                         Row{COLORONCOLOR, 5, -6, 0, 3, "b##rr."}, Row{COLORONCOLOR, 0, 3, 3, -3, "b#r..."},
                         Row{COLORONCOLOR, 3, -3, 3, -3, "r#b..."}, Row{COLORONCOLOR, -2, 6, 0, 3, "##bb.."},
                         Row{HALFTONE, 0, 6, 0, 3, "rr##bb"}}) {
    Picture from = picture_of({"r#b"}), to(6, 1);
    PixelDevice from_device(from.span()), to_device(to.span());
    CDC source(from_device), target(to_device);
    target.SetStretchBltMode(row.mode);
    EXPECT_TRUE(
        target.StretchBlt(row.x, 0, row.width, 1, &source, row.source_x, 0, row.source_width, 1, SRCCOPY));
    EXPECT_EQ(rows_of(to)[0], row.result) << row.x << " " << row.width << " " << row.source_width;
  }
}

TEST(PixelDevice, halftoneAveragesWhatAPixelCovers) {
  Picture from(3, 2), to(2, 1);
  const int greys[] = {0, 60, 120, 30, 90, 240};
  for (int i = 0; i < 6; ++i)
    from.span().row(i / 3)[i % 3] = framework::to_pixel(RGB(greys[i], greys[i], greys[i]));
  PixelDevice from_device(from.span()), to_device(to.span());
  CDC source(from_device), target(to_device);
  target.SetStretchBltMode(HALFTONE);
  target.StretchBlt(0, 0, 2, 1, &source, 0, 0, 3, 2, SRCCOPY);
  // One and a half columns each: (0 + 30 + (60 + 90) / 2) / 3 and ((60 + 90) / 2 + 120 + 240) / 3.
  EXPECT_EQ(to.color(0, 0), RGB(35, 35, 35));
  EXPECT_EQ(to.color(1, 0), RGB(145, 145, 145));
}

TEST(PixelDevice, floodFillsUpToABorderOrOverASurface) {
  struct Row {
    UINT kind;
    COLORREF color;
    POINT seed;
    Rows result;
  };
  for (const Row &row : {Row{FLOODFILLBORDER, black, {0, 0}, {"rr#b", "rrr#", "##r#"}},
                         Row{FLOODFILLBORDER, black, {3, 0}, {"..#r", "...#", "##.#"}},  // not over corners
                         Row{FLOODFILLBORDER, black, {2, 0}, {"..#b", "...#", "##.#"}},  // on the border
                         Row{FLOODFILLSURFACE, black, {0, 2}, {"..#b", "...#", "rr.#"}},
                         Row{FLOODFILLSURFACE, blue, {3, 0}, {"..#r", "...#", "##.#"}},
                         Row{FLOODFILLSURFACE, red, {0, 0}, {"..#b", "...#", "##.#"}},
                         Row{FLOODFILLBORDER, black, {-1, 9}, {"..#b", "...#", "##.#"}}}) {
    Picture picture = picture_of({"..#b", "...#", "##.#"});
    PixelDevice device(picture.span());
    CDC dc(device);
    CBrush brush(red);
    dc.SelectObject(&brush);
    EXPECT_TRUE(dc.ExtFloodFill(row.seed.x, row.seed.y, row.color, row.kind));
    EXPECT_EQ(rows_of(picture), row.result);
  }
}

/// Repeats until nothing changes: slow and obvious.
std::vector<bool> spread(const Picture &maze, POINT seed) {
  const int w = maze.width(), h = maze.height();
  std::vector<bool> reached(static_cast<std::size_t>(w * h));
  reached[static_cast<std::size_t>(seed.y * w + seed.x)] = maze.color(seed.x, seed.y) != black;
  for (bool changed = true; changed;) {
    changed = false;
    for (int i = 0; i < w * h; ++i) {
      const auto at = static_cast<std::size_t>(i);
      if (reached[at] || maze.color(i % w, i / w) == black) continue;
      const bool near = (i % w > 0 && reached[at - 1]) || (i % w < w - 1 && reached[at + 1]) ||
                        (i >= w && reached[at - static_cast<std::size_t>(w)]) ||
                        (i < w * (h - 1) && reached[at + static_cast<std::size_t>(w)]);
      if (near) reached[at] = changed = true;
    }
  }
  return reached;
}

TEST(PixelDevice, floodFillFindsEveryPixelOfAMaze) {
  std::mt19937 random(3);
  for (int round = 0; round < 30; ++round) {
    Picture maze(31, 23);
    for (int i = 0; i < 31 * 23; ++i)
      maze.span().row(i / 31)[i % 31] = framework::to_pixel(random() % 5 < 2 ? black : white);
    const POINT seed{static_cast<LONG>(random() % 31), static_cast<LONG>(random() % 23)};
    const std::vector<bool> expected = spread(maze, seed);
    const Picture before = maze;
    PixelDevice device(maze.span());
    CDC dc(device);
    CBrush brush(blue);
    dc.SelectObject(&brush);
    dc.FloodFill(seed.x, seed.y, black);
    for (int i = 0; i < 31 * 23; ++i)
      ASSERT_EQ(maze.color(i % 31, i / 31),
                expected[static_cast<std::size_t>(i)] ? blue : before.color(i % 31, i / 31));
  }
}

TEST(PixelDevice, fillsRegionsInTheBrush) {
  Picture picture(4, 3);
  PixelDevice device(picture.span());
  CDC dc(device);
  CRgn region, clip;
  const POINT triangle[] = {{0, 0}, {4, 0}, {0, 4}};
  region.CreatePolygonRgn(triangle, 3, ALTERNATE);
  clip.CreateRectRgn(0, 1, 9, 9);
  CBrush brush(red);
  EXPECT_TRUE(dc.FillRgn(&region, &brush));
  EXPECT_EQ(rows_of(picture), (Rows{"rrr.", "rr..", "r..."}));
  dc.SetROP2(R2_XORPEN);
  dc.FillRgn(&region, &brush);  // red and red: black
  EXPECT_EQ(rows_of(picture), (Rows{"###.", "##..", "#..."}));
  dc.SelectClipRgn(&clip);
  dc.FillRgn(&region, &brush);
  EXPECT_EQ(rows_of(picture), (Rows{"###.", "rr..", "r..."}));
  dc.SelectClipRgn(nullptr);
  const RECT box{0, 0, 4, 3};
  dc.FillSolidRect(&box, white);  // a fill is a copy
  dc.FrameRect(&box, &brush);
  EXPECT_EQ(rows_of(picture), (Rows{"rrrr", "r..r", "rrrr"}));
  dc.Draw3dRect(&box, black, blue);
  EXPECT_EQ(rows_of(picture), (Rows{"###b", "#..b", "bbbb"}));
  EXPECT_EQ(dc.GetBkColor(), blue);
}

TEST(MemoryContext, drawsOnItsBitmap) {
  Picture picture(3, 2);
  PixelDevice device(picture.span());
  CDC dc(device), memory;
  CBitmap bitmap;
  ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&dc, 3, 2));
  EXPECT_EQ(bitmap.GetBitmapSize(), CSize(3, 2));
  ASSERT_TRUE(memory.CreateCompatibleDC(&dc));
  EXPECT_FALSE(memory.BitBlt(0, 0, 1, 1, nullptr, 0, 0, SRCCOPY));
  EXPECT_EQ(memory.SetPixel(0, 0, red), red);  // nothing to draw on, nothing said
  CBitmap *before = memory.SelectObject(&bitmap);
  ASSERT_NE(before, nullptr);
  const RECT box{0, 0, 2, 2};
  memory.FillSolidRect(&box, red);
  EXPECT_TRUE(dc.BitBlt(0, 0, 3, 2, &memory, 0, 0, SRCCOPY));
  EXPECT_EQ(rows_of(picture), (Rows{"rr#", "rr#"}));
  bitmap.DeleteObject();  // the context keeps the pixels
  EXPECT_EQ(memory.GetPixel(0, 0), red);
  EXPECT_EQ(memory.SelectObject(before), nullptr);  // the one before has no object any more
  EXPECT_EQ(memory.GetPixel(0, 0), CLR_INVALID);
}

TEST(Bitmap, readsRowsOfEveryDepth) {
  struct Row {
    UINT depth;
    std::vector<unsigned char> bits;  // 2 x 2, rows padded to 16 bits
  };
  for (const Row &row : {Row{1, {0x80, 0, 0x40, 0}}, Row{8, {255, 0, 0, 255}},
                         Row{24, {255, 255, 255, 0, 0, 0, 0, 0, 0, 255, 255, 255}},
                         Row{32, {255, 255, 255, 0, 0, 0, 0, 0, 0, 0, 0, 0, 255, 255, 255, 0}}}) {
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(2, 2, 1, row.depth, row.bits.data())) << row.depth;
    CDC memory;
    memory.CreateCompatibleDC(nullptr);
    memory.SelectObject(&bitmap);
    for (int i = 0; i < 4; ++i)
      EXPECT_EQ(memory.GetPixel(i % 2, i / 2), i == 0 || i == 3 ? white : black) << row.depth;
  }
  CBitmap bad;
  for (const auto &[width, height, depth] :
       {std::array{0, 2, 32}, {2, -1, 32}, {40000, 2, 32}, {30000, 30000, 1}, {2, 2, 7}})
    EXPECT_FALSE(bad.CreateBitmap(width, height, 1, static_cast<UINT>(depth), nullptr));
}

}  // namespace
