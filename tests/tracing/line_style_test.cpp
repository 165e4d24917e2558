#include "tool/tracing/line_style.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace tracing;

constexpr Medium screen{}, text23{true, MM_TEXT, 23} /* 600 dots per inch */, text3{true, MM_TEXT, 3},
    unmeasured{true, MM_TEXT, 0}, tenths{true, MM_LOMETRIC, 23}, hundredths{true, MM_HIMETRIC, 23},
    twips{true, MM_TWIPS, 23};
constexpr int print20 = 20 << 16 | 2;  // on a screen 2 pixels, on paper 2 mm

/// "standard 1 w2", "system 1 w2" (system dashes), "own w5: 30 10" (dashes of its own).
std::string text_of(const PenSpec &pen) {
  std::ostringstream text;
  if (pen.kind == PenSpec::Kind::own_dashes) {
    EXPECT_EQ(pen.style, 0x10107);
    text << "own w" << pen.width << ':';
    for (int i = 0; i < pen.dash_count; ++i) text << ' ' << pen.dashes[static_cast<std::size_t>(i)];
    return text.str();
  }
  const bool geometric = pen.kind == PenSpec::Kind::system_dashes;
  EXPECT_EQ(pen.style & ~0xFF, geometric ? 0x10100 : 0);
  text << (geometric ? "system " : "standard ") << (pen.style & 0xFF) << " w" << pen.width;
  return text.str();
}

PenSpec dashes(const LineStyle &line, const Medium &) {
  return system_dash_pen(line);
}
PenSpec styles(const LineStyle &line, const Medium &) {
  return system_style_pen(line);
}

// clang-format off
const struct {
  PenSpec (*rule)(const LineStyle &, const Medium &);
  Medium medium;
  int style, width;
  const char *pen;
} rows[] = {
    {reference_pen, screen, 0, 3, "standard 0 w3"},       {reference_pen, screen, 1, 5, "own w5: 9 3"},
    {reference_pen, screen, 2, 1, "own w1: 3 3"},         {reference_pen, screen, 3, 2, "own w2: 9 3 3 3"},
    {reference_pen, screen, 4, 1, "own w1: 9 3 3 3 3 3"}, {reference_pen, screen, 1, 0, "standard 1 w0"},
    {reference_pen, screen, 5, 4, "standard 5 w4"},       {reference_pen, screen, 6, 4, "standard 6 w4"},
    {reference_pen, screen, 101, 7, "standard 0 w1"},     {reference_pen, screen, 102, print20, "standard 0 w2"},
    {reference_pen, screen, 103, 5, "own w1: 3 3"},       {reference_pen, screen, 104, 5, "own w1: 9 3"},
    {reference_pen, screen, 105, 5, "own w1: 9 3 3 3"},   {reference_pen, screen, 106, 5, "own w1: 9 3 3 3 3 3"},
    {reference_pen, text23, 0, 0, "standard 0 w2"},       {reference_pen, text23, 0, 1, "standard 0 w2"},
    {reference_pen, text23, 0, 3, "standard 0 w6"},       {reference_pen, text23, 102, print20, "standard 0 w46"},
    {reference_pen, text23, 102, 9, "standard 0 w2"},     {reference_pen, text23, 104, 5, "own w11: 69 23"},
    {reference_pen, text3, 0, 2, "standard 0 w2"},        {reference_pen, unmeasured, 1, 5, "own w5: 3 1"},
    {reference_pen, tenths, 104, 5, "own w5: 30 10"},     {reference_pen, tenths, 101, 5, "standard 0 w5"},
    {reference_pen, tenths, 0, 0, "standard 0 w1"},       {reference_pen, tenths, 102, print20, "standard 0 w20"},
    {reference_pen, hundredths, 0, 0, "standard 0 w10"},  {reference_pen, hundredths, 2, 5, "own w50: 100 100"},
    {reference_pen, twips, 104, 5, "own w1: 9 3"},        {reference_pen, twips, 0, 5, "standard 0 w5"},
    {dashes, screen, 1, 2, "system 1 w2"},                {dashes, tenths, 4, 3, "system 4 w3"},
    {dashes, screen, 1, 1, "standard 1 w1"},              {dashes, screen, 0, 5, "standard 0 w5"},
    {dashes, screen, 5, 2, "standard 5 w2"},              {dashes, screen, 104, 5, "standard 1 w1"},
    {styles, screen, 1, 2, "system 1 w2"},                {styles, screen, 5, 2, "system 5 w2"},
    {styles, screen, 6, 1, "standard 6 w1"},              {styles, tenths, 0, 5, "standard 0 w5"},
    {outline_pen, screen, 1, 3, "system 1 w3"},           {outline_pen, screen, 104, 5, "standard 1 w1"},
    {outline_pen, tenths, 104, 5, "system 1 w5"},         {outline_pen, text23, 102, print20, "standard 0 w46"},
    {image_pen, screen, 1, 5, "standard 1 w5"},           {image_pen, screen, 101, 5, "standard 0 w1"},
    {image_pen, screen, 102, 5, "standard 0 w5"},         {image_pen, screen, 102, 2, "standard 0 w2"},
    {image_pen, screen, 103, 5, "standard 2 w1"},         {image_pen, screen, 104, 5, "standard 1 w1"},
    {image_pen, screen, 105, 5, "standard 3 w1"},         {image_pen, screen, 106, 5, "standard 4 w1"},
    {image_pen, text23, 102, 5, "standard 0 w13"},        {image_pen, text3, 102, 5, "standard 0 w2"},
    {image_pen, tenths, 102, 5, "standard 0 w6"},         {image_pen, hundredths, 102, 5, "standard 0 w60"},
    {image_pen, twips, 102, 5, "standard 0 w2"},          {image_pen, tenths, 0, 5, "standard 0 w5"},
};
// clang-format on

TEST(lineStyle, penRules) {
  for (const auto &row : rows) {
    const PenSpec pen = row.rule({row.width, 0x123456, row.style}, row.medium);
    EXPECT_EQ(text_of(pen), row.pen) << "row " << &row - rows;
    EXPECT_EQ(pen.color, 0x123456U);
  }
}

TEST(lineStyle, imageWidth) {
  const int widths[][2] = {{1600, 4}, {1500, 4}, {751, 2}, {750, 2}, {2250, 6}, {0, 2}, {-1, 2}};
  for (const auto &[image, line] : widths) EXPECT_EQ(image_line_width(image), line) << image;
}

}  // namespace
