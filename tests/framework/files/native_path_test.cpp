#include "tool/framework/files/native_path.h"

#include <gtest/gtest.h>

#include "tests/support/faulty_file_system.h"
#include "tests/support/temporary_folder.h"
#include "tool/framework/files/read_file.h"

namespace {

using framework::exact_native_path;
using framework::native_path;

TEST(NativePath, translatesDelimitersDrivesAndText) {
  support::TestPlatform platform;
  platform.drives = {{'C', "/drive c"}, {'X', "/x"}};
  struct Row {
    const char *path;
    const char *native;
  };
  const Row rows[] = {
      {"", ""},
      {"a\\b/c", "a/b/c"},
      {"/abs/x.txt", "/abs/x.txt"},
      {"C:\\a\\b", "/drive c/a/b"},
      {"c:/a", "/drive c/a"},
      {"C:a", "/drive c/a"},
      {"C:", "/drive c/"},
      {"C:\\", "/drive c/"},
      {"x:\\\\a", "/x/a"},
      {"Y:\\a", ""},                                                // no such drive
      {"\x95\x5C\\\x83\x5C.txt", "\xE8\xA1\xA8/\xE3\x82\xBD.txt"},  // second bytes 0x5C
      {"C:\\\x95\x5C", "/drive c/\xE8\xA1\xA8"},
      {"\xB1\\\xB2", "\xEF\xBD\xB1/\xEF\xBD\xB2"},  // half-width katakana
      {"a\x81", ""},                                // no code page 932 text
  };
  for (const Row &row : rows) EXPECT_EQ(exact_native_path(row.path), row.native) << row.path;
}

TEST(NativePath, shortPathsAgreeWithTheGeneralWay) {
  const char *rows[] = {"", "a", "a\\b\\c.txt", "/x/y", "\\\\host\\share", "1:\\x"};
  for (const char *path : rows) {
    framework::ShortNativePath converter;
    const char *converted = converter.convert(path);
    ASSERT_NE(converted, nullptr) << path;
    EXPECT_EQ(converted, exact_native_path(path));
  }
  framework::ShortNativePath converter;
  for (const std::string &path : {std::string("C:\\x"), std::string("\x95\x5C"), std::string(1024, 'a')})
    EXPECT_EQ(converter.convert(path.c_str()), nullptr) << path;
}

TEST(NativePath, looksForAnotherLetterCasePartByPart) {
  const support::TemporaryFolder folder;
  folder.write("Ana/Sub/File.txt", "");
  struct Row {
    const char *path;
    const char *found;
  };
  const Row rows[] = {
      {"Ana/Sub/File.txt", "Ana/Sub/File.txt"}, {"ANA\\SUB\\FILE.TXT", "Ana/Sub/File.txt"},
      {"ana/new/x.txt", "Ana/new/x.txt"},  // to be created in the folder that is there
      {"ana/SUB/New.txt", "Ana/Sub/New.txt"},   {"other/SUB/x", "other/SUB/x"},
  };
  for (const Row &row : rows)
    EXPECT_EQ(native_path(folder.path(row.path)), folder.path(row.found)) << row.path;
}

TEST(NativePath, searchesNoFolderForAnExactPath) {
  const support::TemporaryFolder folder;
  const std::string path = folder.write("a/b", "");
  support::FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  EXPECT_EQ(native_path(path), path);
  EXPECT_EQ(files.listed, 0);
  EXPECT_EQ(files.asked, 1);
}

TEST(NativePath, reachesNamesThatTheCodePageLacks) {
  const support::TemporaryFolder folder;
  const std::string path =
      folder.write("Jos\xC3\xA9/x.txt", "found");  // as katakana it would be another name
  EXPECT_EQ(framework::read_whole_file(path.c_str()), "found");
  EXPECT_EQ(framework::cp932_path(path), path);
  EXPECT_EQ(native_path(folder.path("Jos\xC3\xA9/new.txt")), folder.path("Jos\xC3\xA9/new.txt"));
  EXPECT_EQ(framework::cp932_path("/\xE8\xA1\xA8"), "/\x95\x5C");
}

TEST(NativePath, createsTheFolderOfADriveOnlyForWriting) {
  support::TestPlatform platform;
  native_path("C:\\x.txt");
  EXPECT_FALSE(platform.folder.has("c"));
  EXPECT_EQ(framework::native_path_for_writing("C:\\x.txt"), platform.folder.path("c/x.txt"));
  EXPECT_TRUE(platform.folder.has("c"));
}

}  // namespace
