// Paper and SVG: true sizes, real text, clips, and nothing left behind when writing fails.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <regex>

#include "backends/qt/pdf_device.h"
#include "backends/qt/pictures.h"
#include "backends/qt/svg_device.h"
#include "tests/qt/bitmap.h"
#include "tests/support/temporary_folder.h"
#include "tool/framework/gdi/CDC.h"
#include "tool/framework/text/cp932.h"

namespace {

using framework::Paint;
using framework::Region;
using qt_backend::PdfDevice;
using qt_backend::SvgDevice;
using support::pen;
using support::pen_and_brush;
using support::TemporaryFolder;
using testing::HasSubstr;
using testing::Not;

std::string output_of(const std::string &command) {
  std::string output;
  FILE *pipe = ::popen(command.c_str(), "r");
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) output += static_cast<char>(c);
  EXPECT_EQ(::pclose(pipe), 0) << command;
  return output;
}

/// A grey page: brightness of its pixels from the top down.
struct Page {
  int width = 0, height = 0;
  std::string pixels;

  bool dark(int x, int y) const {
    return static_cast<unsigned char>(pixels[static_cast<std::size_t>(y * width + x)]) < 128;
  }
  RECT ink() const {
    RECT box{width, height, 0, 0};
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        if (dark(x, y))
          box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                 std::max(box.bottom, y + 1)};
      }
    }
    return box;
  }
};

/// The first page at ten pixels a millimetre.
Page rendered(const std::string &pdf) {
  const std::string file = output_of("pdftoppm -r 254 -gray -singlefile '" + pdf + "'");
  Page page;
  int start = 0;
  EXPECT_EQ(std::sscanf(file.c_str(), "P5 %d %d 255%n", &page.width, &page.height, &start), 2);
  page.pixels = file.substr(static_cast<std::size_t>(start) + 1);
  return page;
}

void write_pdf(const std::string &path, const std::function<void(PdfDevice &)> &draw,
               const qt_backend::PageSetup &setup = {}) {
  PdfDevice device(path, setup);
  ASSERT_TRUE(device.begin_document("test"));
  ASSERT_TRUE(device.begin_page());
  draw(device);
  ASSERT_TRUE(device.end_page());
  ASSERT_TRUE(device.end_document()) << device.error();
}

Paint black(int width) {
  Paint paint = pen(width);
  paint.pen.color = 0;
  return paint;
}

LOGFONTA gothic(int height) {
  LOGFONTA font{};
  font.lfHeight = height;
  return font;
}

// Paper
// -------------------------------------------------------------------------------------------------------------------

TEST(Pdf, AHundredMillimetresAreAHundredMillimetres) {
  const TemporaryFolder folder;
  for (const int dots_per_inch : {300, 600, 1200}) {
    const std::string path = folder.path("a.pdf");
    write_pdf(path,
              [&](PdfDevice &device) {
                CDC dc(device);
                dc.SetMapMode(MM_LOMETRIC);
                CPen line(PS_SOLID, 2, RGB(0, 0, 0));
                dc.SelectObject(&line);
                for (const int end : {0, 1000}) {  // marks at 20 mm and 120 mm, across and down
                  dc.MoveTo(200 + end, -100);
                  dc.LineTo(200 + end, -150);
                  dc.MoveTo(100, -200 - end);
                  dc.LineTo(150, -200 - end);
                }
              },
              {210, 297, dots_per_inch});
    const Page page = rendered(path);
    EXPECT_NEAR(page.width, 2100, 3);
    EXPECT_NEAR(page.height, 2970, 3);
    const RECT ink = page.ink();
    EXPECT_NEAR(ink.right - ink.left, (1200 - 100) + 2, 2);
    for (const int mark : {200, 1200}) {
      EXPECT_TRUE(page.dark(mark, 125)) << dots_per_inch;
      EXPECT_FALSE(page.dark(mark - 4, 125) || page.dark(mark + 4, 125));
      EXPECT_TRUE(page.dark(125, mark)) << dots_per_inch;
      EXPECT_FALSE(page.dark(125, mark - 4) || page.dark(125, mark + 4));
    }
  }
}

TEST(Pdf, SaysWhatItCanDo) {
  const PdfDevice device("unused.pdf");
  const framework::DeviceCapabilities able = device.capabilities();
  EXPECT_TRUE(able.printer);
  EXPECT_FALSE(able.raster_operations || able.flood_fill || able.read_pixels);
  EXPECT_EQ(able.pixels_per_mm_x, 1200 / 25.4);
  EXPECT_EQ(able.width, 9921);    // 210 mm
  EXPECT_EQ(able.height, 14031);  // 297 mm
}

TEST(Pdf, TextIsTextInEmbeddedFonts) {
  const TemporaryFolder folder;
  const std::string path = folder.path("text.pdf");
  write_pdf(path, [](PdfDevice &device) {
    const LOGFONTA font = gothic(200);
    device.text({{500, 500}, framework::cp932_from_utf8("SNA 82.5 上顎").value(), &font, 0}, {});
  });
  EXPECT_THAT(output_of("pdftotext '" + path + "' -"), HasSubstr("SNA 82.5 上顎"));
  EXPECT_THAT(output_of("pdffonts '" + path + "'"),
              testing::ContainsRegex("IPAGothic +CID TrueType +Identity-H +yes"));
  // 200 dots at 1200 to the inch are 4.2 mm; five cells of letters and blanks and four of kanji follow the
  // rule.
  const RECT ink = rendered(path).ink();
  EXPECT_NEAR(ink.right - ink.left, 13 * 100 * 254 / 1200, 5);
}

TEST(Pdf, DashesKeepTheirLength) {
  const TemporaryFolder folder;
  const std::string path = folder.path("dash.pdf");
  write_pdf(path, [](PdfDevice &device) {
    Paint paint = black(3 * 47);
    paint.pen.dash_count = 2;
    paint.pen.dashes = {472, 472};  // 10 mm
    paint.pen.cap = framework::LineCap::flat;
    device.polyline(std::vector<POINT>{{1000, 1000}, {1000 + 5 * 472, 1000}}, paint);
  });
  const Page page = rendered(path);
  const int y = 1000 * 254 / 1200;
  for (int dash = 0; dash < 5; ++dash) {
    const int middle = (1000 + 472 * dash + 236) * 254 / 1200;
    EXPECT_EQ(page.dark(middle, y), dash % 2 == 0);
    EXPECT_EQ(page.dark(middle - 45, y), dash % 2 == 0);
    EXPECT_EQ(page.dark(middle + 45, y), dash % 2 == 0);
  }
}

TEST(Pdf, ClipsAndPaintsRasterOperationsAsCopies) {
  const TemporaryFolder folder;
  const std::string path = folder.path("clip.pdf");
  write_pdf(path, [](PdfDevice &device) {
    const Region clip = Region::rectangle({2000, 2000, 3000, 3000});
    Paint paint = pen_and_brush();
    paint.brush.color = 0;
    paint.rop = R2_XORPEN;
    paint.clip = &clip;
    device.ellipse({1000, 1000, 4000, 4000}, paint);
    device.rectangle({2200, 2200, 2400, 2400}, paint);  // black on black would be white again
    device.flood_fill({1500, 1500}, 0, FLOODFILLBORDER, paint);
  });
  const RECT ink = rendered(path).ink();
  EXPECT_NEAR(ink.left, 423, 1);
  EXPECT_NEAR(ink.right, 635, 1);
  EXPECT_NEAR(ink.top, 423, 1);
  EXPECT_NEAR(ink.bottom, 635, 1);
  EXPECT_TRUE(rendered(path).dark(2300 * 254 / 1200, 2300 * 254 / 1200));
}

TEST(Pdf, HasAsManyPagesAsWereBegun) {
  const TemporaryFolder folder;
  PdfDevice device(folder.path("pages.pdf"));
  device.rectangle({0, 0, 100, 100}, pen());  // before the document: nothing
  ASSERT_TRUE(device.begin_document(framework::cp932_from_utf8("患者").value()));
  EXPECT_FALSE(folder.has("pages.pdf"));
  for (int page = 0; page < 3; ++page) EXPECT_TRUE(device.begin_page() && device.end_page());
  EXPECT_TRUE(device.end_document());
  const std::string info = output_of("pdfinfo '" + folder.path("pages.pdf") + "'");
  EXPECT_THAT(info, testing::ContainsRegex("Pages: +3"));
  EXPECT_THAT(info, HasSubstr("患者"));
  EXPECT_FALSE(device.end_document());
}

// SVG
// -------------------------------------------------------------------------------------------------------------------

std::string svg_of(const std::function<void(SvgDevice &)> &draw) {
  const TemporaryFolder folder;
  SvgDevice device(folder.path("a.svg"), 400, 300);
  EXPECT_TRUE(device.begin_document("test") && device.begin_page());
  draw(device);
  EXPECT_TRUE(device.end_document()) << device.error();
  return folder.read("a.svg");
}

/// Every corner of every path.
std::vector<std::pair<double, double>> corners(const std::string &svg) {
  std::vector<std::pair<double, double>> found;
  static const std::regex corner("[MLC ](-?[0-9.e-]+),(-?[0-9.e-]+)");
  static const std::regex path(" d=\"([^\"]*)\"");
  for (std::sregex_iterator p(svg.begin(), svg.end(), path), none; p != none; ++p) {
    const std::string data = " " + (*p)[1].str();
    for (std::sregex_iterator c(data.begin(), data.end(), corner); c != none; ++c) {
      found.emplace_back(std::stod((*c)[1]), std::stod((*c)[2]));
    }
  }
  return found;
}

TEST(Svg, SaysItsSizeAndKeepsText) {
  const std::string svg = svg_of([](SvgDevice &device) {
    const LOGFONTA font = gothic(20);
    device.text({{10, 10}, "SNA", &font, 0}, {});
  });
  EXPECT_THAT(svg, HasSubstr("width=\"105.833mm\" height=\"79.375mm\""));  // 400 and 300 of 96 to the inch
  EXPECT_THAT(svg, HasSubstr("viewBox=\"0 0 400 300\""));
  EXPECT_THAT(svg, testing::ContainsRegex("<text[^>]*font-family=\"IPAGothic\"[^>]*font-size=\"20\""));
  EXPECT_THAT(svg, HasSubstr(">SNA</text>"));
}

TEST(Svg, CutsAlongTheClip) {
  const RECT box{100, 50, 200, 150};
  const Region rectangle = Region::rectangle(box);
  const Region ellipse = Region::ellipse(box);
  const Region rows = Region::combined(ellipse, Region::rectangle({120, 80, 140, 90}), RGN_DIFF);
  for (const Region *clip : {&rectangle, &ellipse, &rows}) {
    const std::string svg = svg_of([&](SvgDevice &device) {
      Paint paint = pen_and_brush(9, {20, 10});
      paint.clip = clip;
      device.polyline(std::vector<POINT>{{0, 0}, {300, 200}, {20, 180}}, paint);
      device.polygon(std::vector<POINT>{{150, 0}, {300, 250}, {0, 200}}, framework::FillRule::alternate,
                     paint);
      device.rectangle({90, 40, 150, 100}, paint);
      device.rounded_rectangle({150, 100, 260, 180}, {30, 30}, paint);
      device.ellipse({120, 20, 260, 100}, paint);
      device.arc({80, 60, 160, 170}, {80, 100}, {300, 100}, paint);
      device.fill_region(Region::ellipse({90, 90, 130, 160}), paint);
      paint.brush.kind = framework::DeviceBrush::Kind::hatched;
      device.rectangle({130, 60, 220, 120}, paint);
      const LOGFONTA font = gothic(40);
      device.text({{80, 70}, "SNA SNB", &font, 0}, paint);
      device.rectangle({300, 200, 390, 290}, paint);
      device.text({{300, 200}, "away", &font, 0}, paint);
    });
    const auto found = corners(svg);
    EXPECT_GT(found.size(), 100U);
    for (const auto &[x, y] : found) {
      EXPECT_TRUE(x > 99.9 && x < 200.1 && y > 49.9 && y < 150.1) << x << " " << y;
      if (clip == &ellipse) {  // control points of a curve lie outside
        EXPECT_LT(std::hypot(x - 150, y - 100), 57.2);
      }
    }
    EXPECT_THAT(svg, Not(HasSubstr("<text")));
  }
}

TEST(Svg, LeavesWhatLiesInsideTheClipAsItIs) {
  const Region clip = Region::rectangle({0, 0, 200, 200});
  const std::string svg = svg_of([&](SvgDevice &device) {
    Paint paint = pen(3);
    paint.clip = &clip;
    const LOGFONTA font = gothic(20);
    device.polyline(std::vector<POINT>{{10, 10}, {100, 50}}, paint);
    device.text({{10, 100}, "inside", &font, 0}, paint);
  });
  EXPECT_THAT(svg, HasSubstr("d=\"M10.5,10.5 L100.5,50.5\""));
  EXPECT_THAT(svg, HasSubstr("stroke-width=\"3\""));
  EXPECT_THAT(svg, HasSubstr(">inside</text>"));
}

// Failure
// -------------------------------------------------------------------------------------------------------------------

TEST(Documents, AreThereWholeOrNotAtAll) {
  const TemporaryFolder folder;
  folder.write("old.pdf", "old");
  folder.write("old.svg", "old");
  for (const bool finish : {false, true}) {
    {
      PdfDevice pdf(folder.path("old.pdf"));
      SvgDevice svg(folder.path("old.svg"), 100, 100);
      for (framework::DrawingDevice *device :
           {static_cast<framework::DrawingDevice *>(&pdf), static_cast<framework::DrawingDevice *>(&svg)}) {
        EXPECT_TRUE(device->begin_document("") && device->begin_page());
        device->rectangle({10, 10, 50, 50}, black(3));
        EXPECT_TRUE(!finish || device->end_document());
      }
    }
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"old.pdf", "old.svg"}));
    EXPECT_EQ(folder.read("old.pdf") == "old", !finish);
    EXPECT_EQ(folder.read("old.svg") == "old", !finish);
  }
}

TEST(Documents, SayWhyTheyCannotBeWritten) {
  const TemporaryFolder folder;
  const std::string path = folder.path("no/such/folder/a.pdf");
  PdfDevice pdf(path);
  SvgDevice svg(path, 100, 100);
  EXPECT_FALSE(pdf.begin_document("") || pdf.begin_page() || pdf.end_document());
  EXPECT_FALSE(svg.begin_document("") || svg.begin_page() || svg.end_document());
  EXPECT_THAT(pdf.error(), HasSubstr("cannot write " + path));
  EXPECT_THAT(svg.error(), HasSubstr("cannot write " + path));
  EXPECT_EQ(folder.names(), std::vector<std::string>());
  PdfDevice no_page(folder.path("a.pdf"), {0, 297, 1200});
  EXPECT_FALSE(no_page.begin_document(""));
  EXPECT_THAT(no_page.error(), HasSubstr("page size"));
}

/// Files cannot grow beyond so many bytes, as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FullDisk(const FullDisk &) = delete;
  FullDisk &operator=(const FullDisk &) = delete;

 private:
  void (*signal_)(int);
  rlimit before_{};
};

TEST(Documents, AFullDiskLeavesNothing) {
  const TemporaryFolder folder;
  bool written = false;
  std::string pdf_error, svg_error, picture_error;
  {
    const FullDisk disk(100);
    PdfDevice pdf(folder.path("a.pdf"));
    written |= pdf.begin_document("") && pdf.begin_page() && pdf.end_document();
    pdf_error = pdf.error();
    SvgDevice svg(folder.path("a.svg"), 100, 100);
    written |= svg.begin_document("") && svg.begin_page() && svg.end_document();
    svg_error = svg.error();
    written |=
        qt_backend::save_picture(framework::Picture(50, 50).view(), folder.path("a.bmp"), picture_error);
  }
  EXPECT_FALSE(written);
  EXPECT_THAT(pdf_error, HasSubstr("a.pdf"));
  EXPECT_THAT(svg_error, HasSubstr("a.svg"));
  EXPECT_THAT(picture_error, HasSubstr("a.bmp"));
  EXPECT_EQ(folder.names(), std::vector<std::string>());
}

TEST(Documents, APipeOrDeviceIsNotReplaced) {
  const TemporaryFolder folder;
  const std::string pipe = folder.path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  PdfDevice pdf(pipe);
  EXPECT_FALSE(pdf.begin_document(""));
  EXPECT_THAT(pdf.error(), HasSubstr("no plain file"));
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

}  // namespace
