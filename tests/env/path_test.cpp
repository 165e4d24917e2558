#include "tool/env/path.h"

#include <gtest/gtest.h>

namespace {

struct Row {
  const char *path, *expected;
};

TEST(Path, trailingDelimiterIsAddedOnce) {
  // 0x5C is a second byte here and there; of "/a" the first character does not count
  for (const Row &row :
       {Row{"C:/data", "C:/data/"}, Row{"C:\\data", "C:\\data\\"}, Row{"C:\\data\\", "C:\\data\\"},
        Row{"C:/data\\", "C:/data\\"}, Row{"C:\\a/b", "C:\\a/b/"}, Row{"/a", "/a\\"}, Row{"/", "/"},
        Row{"/a/b", "/a/b/"}, Row{"data", "data\\"}, Row{"C:\\\x95\x5C", "C:\\\x95\x5C\\"},
        Row{"\x95\x5C\\", "\x95\x5C\\"}, Row{"", ""}})
    EXPECT_EQ(env::with_trailing_delimiter(row.path), row.expected) << row.path;
}

TEST(Path, trailingDelimiterIsRemoved) {
  for (const Row &row :
       {Row{"C:\\data\\", "C:\\data"}, Row{"C:/data/", "C:/data"}, Row{"C:\\data", "C:\\data"},
        Row{"C:", "C:\\"}, Row{"C:\\", "C:\\"}, Row{"abc", "a:\\"}, Row{"abc\\", "abc"},
        Row{"C:\\\x95\x5C", "C:\\\x95\x5C"}, Row{"a\\\\\\", "a\\\\"}, Row{"", ""}})
    EXPECT_EQ(env::without_trailing_delimiter(row.path), row.expected) << row.path;
}

TEST(Path, splitsIntoParts) {
  struct Parts {
    const char *path, *drive;
    const char *folder, *title, *extension;
  };
  const Parts rows[] = {{"C:\\a\\b.txt", "C:", "C:\\a\\", "b", ".txt"},
                        {"/a/b.c.d", "", "/a/", "b.c", ".d"},
                        {"a.b\\c", "", "a.b\\", "c", ""},
                        {"C:b.txt", "C:", "C:", "b", ".txt"},
                        {".profile", "", "", "", ".profile"},
                        {"a\\", "", "a\\", "", ""},
                        {"\x95\x5C.txt", "", "", "\x95\x5C", ".txt"},
                        {"C:\\\x95\x5C\\\x83\x5C.x", "C:", "C:\\\x95\x5C\\", "\x83\x5C", ".x"},
                        {"", "", "", "", ""}};
  for (const Parts &row : rows) {
    EXPECT_EQ(env::drive_part(row.path), row.drive) << row.path;
    EXPECT_EQ(env::folder_part(row.path), row.folder) << row.path;
    EXPECT_EQ(env::file_title(row.path), row.title) << row.path;
    EXPECT_EQ(env::file_extension(row.path), row.extension) << row.path;
  }
}

}  // namespace
