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
  const std::string bmp_head(
      "BM\x36\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x40\x9c\0\0\x40\x9c\0\0\1\0\x20\0\0\0\0\0", 34);
  folder.write("text.png", "no picture at all");
  folder.write("empty.png", "");
  folder.write("cut.png", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
  folder.write("huge.bmp", bmp_head + std::string(20, '\0'));
  folder.write("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
  struct Row {
    const char *name;
    const char *reason;
  };
  for (const Row &row : {Row{"text.png", "no PNG"}, Row{"empty.png", "no PNG"}, Row{"cut.png", "cannot read"},
                         Row{"huge.bmp", "40000 x 40000"}, Row{"drawing.svg", "no PNG"},
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
