// Pictures from and to files.

#include "backends/qt/pictures.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/temporary_folder.h"

namespace {

using framework::Picture;

Picture gradient(int width, int height) {
  Picture picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      picture.span().row(y)[x] = 0xFF000000 | static_cast<std::uint32_t>(x * 5 << 16 | y * 7 << 8 | (x + y));
    }
  }
  return picture;
}

int largest_difference(const Picture &a, const Picture &b) {
  int difference = a.width() == b.width() && a.height() == b.height() ? 0 : 999;
  for (int y = 0; y < a.height() && difference < 999; ++y) {
    for (int x = 0; x < a.width(); ++x) {
      for (int shift : {0, 8, 16}) {
        const int one = static_cast<int>(a.color(x, y) >> shift & 0xFF);
        const int other = static_cast<int>(b.color(x, y) >> shift & 0xFF);
        difference = std::max(difference, std::abs(one - other));
      }
    }
  }
  return difference;
}

TEST(Pictures, SavingAndLoadingIsTheIdentity) {
  const support::TemporaryFolder folder;
  const Picture picture = gradient(31, 17);
  struct Row {
    const char *name;
    int tolerance;
  };
  for (const Row &row :
       {Row{"a.png", 0}, Row{"a.bmp", 0}, Row{"日本 x.PNG", 0}, Row{"a.jpg", 25}, Row{"a.jpeg", 25}}) {
    std::string error;
    EXPECT_TRUE(qt_backend::save_picture(picture.view(), folder.path(row.name), error)) << error;
    const qt_backend::LoadedPicture loaded = qt_backend::load_picture(folder.path(row.name));
    EXPECT_EQ(loaded.error, "");
    EXPECT_LE(largest_difference(picture, loaded.picture), row.tolerance) << row.name;
  }
}

TEST(Pictures, WhatIsNoneIsRefusedInWords) {
  const support::TemporaryFolder folder;
  // A grey picture of 40000 x 40000 pixels begins; its pixels never come.
  const std::string huge(
      "\x89\x50\x4e\x47\x0d\x0a\x1a\x0a\x00\x00\x00\x0d\x49\x48\x44\x52"
      "\x00\x00\x9c\x40\x00\x00\x9c\x40\x08\x00\x00\x00\x00\x74\x67\x51"
      "\xd9\x00\x00\x00\x00\x49\x44\x41\x54\x35\xaf\x06\x1e",
      45);
  folder.write("text.png", "no picture at all");
  folder.write("empty.png", "");
  folder.write("cut.png", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
  folder.write("huge.png", huge);
  folder.write("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
  struct Row {
    const char *name;
    const char *reason;
  };
  for (const Row &row : {Row{"text.png", "no PNG"}, Row{"empty.png", "no PNG"}, Row{"cut.png", "cannot read"},
                         Row{"huge.png", "40000 x 40000"}, Row{"drawing.svg", "no PNG"},
                         Row{"absent.png", "No such"}, Row{".", "folder"}}) {
    const qt_backend::LoadedPicture loaded = qt_backend::load_picture(folder.path(row.name));
    EXPECT_TRUE(loaded.picture.empty());
    EXPECT_NE(loaded.error.find(row.reason), std::string::npos) << row.name << ": " << loaded.error;
    EXPECT_NE(loaded.error.find(row.name), std::string::npos) << loaded.error;
  }
}

TEST(Pictures, AFailedWriteLeavesNothing) {
  const support::TemporaryFolder folder;
  const Picture picture = gradient(5, 5);
  folder.write("file", "");
  for (const char *name : {"no/such/folder.png", "picture.gif", "picture", "file/x.png"}) {
    std::string error;
    EXPECT_FALSE(qt_backend::save_picture(picture.view(), folder.path(name), error));
    EXPECT_NE(error.find(name), std::string::npos) << error;
  }
  std::string error;
  EXPECT_FALSE(qt_backend::save_picture(Picture().view(), folder.path("nothing.png"), error));
  EXPECT_EQ(folder.names(), std::vector<std::string>{"file"});
}

}  // namespace
