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
    const char *path, *native;
  };
  // There is no drive Y; second bytes 0x5C; half-width katakana; a text cut within a character.
  for (const Row &row : {Row{"", ""}, Row{"a\\b/c", "a/b/c"}, Row{"/abs/x.txt", "/abs/x.txt"},
                         Row{"C:\\a\\b", "/drive c/a/b"}, Row{"c:/a", "/drive c/a"}, Row{"C:a", "/drive c/a"},
                         Row{"C:", "/drive c/"}, Row{"C:\\", "/drive c/"}, Row{"x:\\\\a", "/x/a"},
                         Row{"Y:\\a", ""}, Row{"\x95\x5C\\\x83\x5C.txt", "\xE8\xA1\xA8/\xE3\x82\xBD.txt"},
                         Row{"C:\\\x95\x5C", "/drive c/\xE8\xA1\xA8"},
                         Row{"\xB1\\\xB2", "\xEF\xBD\xB1/\xEF\xBD\xB2"}, Row{"a\x81", ""}})
    EXPECT_EQ(exact_native_path(row.path), row.native) << row.path;
  framework::ShortNativePath converter;
  for (const char *path : {"", "a", "a\\b\\c.txt", "/x/y", "\\\\host\\share", "1:\\x"}) {
    const char *converted = converter.convert(path);
    ASSERT_NE(converted, nullptr) << path;
    EXPECT_EQ(converted, exact_native_path(path));
  }
  for (const std::string &path : {std::string("C:\\x"), std::string("\x95\x5C"), std::string(1024, 'a')})
    EXPECT_EQ(converter.convert(path.c_str()), nullptr) << path;
}

TEST(NativePath, looksForAnotherLetterCasePartByPart) {
  const support::TemporaryFolder folder;
  folder.write("Ana/Sub/File.txt", "");
  struct Row {
    const char *path, *found;
  };
  // what is to be created goes into the folder that is there
  for (const Row &row : {Row{"ANA\\SUB\\FILE.TXT", "Ana/Sub/File.txt"}, Row{"ana/new/x.txt", "Ana/new/x.txt"},
                         Row{"ana/SUB/New.txt", "Ana/Sub/New.txt"}, Row{"other/SUB/x", "other/SUB/x"}})
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
