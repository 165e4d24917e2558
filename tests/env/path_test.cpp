#include "tool/env/path.h"

#include <gtest/gtest.h>

namespace {

struct Row {
  const char *path;
  const char *expected;
};

TEST(Path, trailingDelimiterIsAddedOnce) {
  const Row rows[] = {
      {"C:/data", "C:/data/"},
      {"C:\\data", "C:\\data\\"},
      {"C:\\data\\", "C:\\data\\"},
      {"C:/data\\", "C:/data\\"},
      {"C:\\a/b", "C:\\a/b/"},
      {"/a", "/a\\"},  // the first character does not count
      {"/", "/"},
      {"/a/b", "/a/b/"},
      {"data", "data\\"},
      {"C:\\\x95\x5C", "C:\\\x95\x5C\\"},  // second byte 0x5C
      {"\x95\x5C\\", "\x95\x5C\\"},
      {"", ""},
  };
  for (const Row &row : rows) EXPECT_EQ(env::with_trailing_delimiter(row.path), row.expected) << row.path;
}

TEST(Path, trailingDelimiterIsRemoved) {
  const Row rows[] = {
      {"C:\\data\\", "C:\\data"}, {"C:/data/", "C:/data"},
      {"C:\\data", "C:\\data"},   {"C:", "C:\\"},
      {"C:\\", "C:\\"},           {"abc", "a:\\"},
      {"abc\\", "abc"},           {"C:\\\x95\x5C", "C:\\\x95\x5C"},
      {"a\\\\\\", "a\\\\"},       {"", ""},
  };
  for (const Row &row : rows) EXPECT_EQ(env::without_trailing_delimiter(row.path), row.expected) << row.path;
}

TEST(Path, splitsIntoParts) {
  struct Parts {
    const char *path;
    const char *drive;
    const char *folder;
    const char *title;
    const char *extension;
  };
  const Parts rows[] = {
      {"C:\\a\\b.txt", "C:", "C:\\a\\", "b", ".txt"},
      {"/a/b.c.d", "", "/a/", "b.c", ".d"},
      {"a.b\\c", "", "a.b\\", "c", ""},
      {"C:b.txt", "C:", "C:", "b", ".txt"},
      {".profile", "", "", "", ".profile"},
      {"a\\", "", "a\\", "", ""},
      {"\x95\x5C.txt", "", "", "\x95\x5C", ".txt"},
      {"C:\\\x95\x5C\\\x83\x5C.x", "C:", "C:\\\x95\x5C\\", "\x83\x5C", ".x"},
      {"", "", "", "", ""},
  };
  for (const Parts &row : rows) {
    EXPECT_EQ(env::drive_part(row.path), row.drive) << row.path;
    EXPECT_EQ(env::folder_part(row.path), row.folder) << row.path;
    EXPECT_EQ(env::file_title(row.path), row.title) << row.path;
    EXPECT_EQ(env::file_extension(row.path), row.extension) << row.path;
  }
}

}  // namespace
