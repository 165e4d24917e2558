#include "tool/framework/files/file_system.h"

#include <gtest/gtest.h>

#include "tests/support/faulty_file_system.h"
#include "tests/support/temporary_folder.h"

namespace {

using Names = std::vector<std::string>;

TEST(ReplaceFile, keepsTheOldContentWhenItFails) {
  const support::TemporaryFolder folder;
  const std::string path = folder.write("x.ini", "old");
  support::FaultyFileSystem files;
  const framework::FileSystemScope scope(files);

  files.room = 2;
  EXPECT_FALSE(framework::replace_file(path, "new content"));
  EXPECT_EQ(errno, ENOSPC);
  files.room = 100;
  files.rename_fails = true;
  EXPECT_FALSE(framework::replace_file(path, "new content"));
  EXPECT_EQ(folder.read("x.ini"), "old");
  EXPECT_EQ(folder.names(), Names{"x.ini"});  // nothing left behind

  files.rename_fails = false;
  files.largest_write = 3;
  EXPECT_TRUE(framework::replace_file(path, "new content"));
  EXPECT_EQ(folder.read("x.ini"), "new content");
}

TEST(ReplaceFile, keepsRightsAndRefusesReadOnlyFilesAndFolders) {
  using std::filesystem::perms;
  const support::TemporaryFolder folder;
  const std::string path = folder.write("x.ini", "old");
  std::filesystem::permissions(path, perms::owner_read | perms::owner_write);
  EXPECT_TRUE(framework::replace_file(path, "new"));
  EXPECT_EQ(std::filesystem::status(path).permissions(), perms::owner_read | perms::owner_write);
  folder.make_read_only("x.ini");
  EXPECT_FALSE(framework::replace_file(path, "newer"));
  EXPECT_EQ(folder.read("x.ini"), "new");
  EXPECT_FALSE(framework::replace_file(folder.path(), "x"));
  EXPECT_FALSE(framework::replace_file(folder.path("missing/x"), "x"));
}

TEST(CopyFile, copiesLargeFilesInPieces) {
  const support::TemporaryFolder folder;
  std::string content;
  for (int i = 0; i < 50000; ++i) content += std::to_string(i);
  const std::string source = folder.write("a", content);
  support::FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  files.largest_read = 1000;
  files.largest_write = 777;
  EXPECT_TRUE(framework::copy_file(source, folder.path("b"), true));
  EXPECT_EQ(folder.read("b"), content);
}

TEST(CopyFile, failsCleanly) {
  const support::TemporaryFolder folder;
  const std::string source = folder.write("a", "source");
  const std::string target = folder.write("b", "target");
  folder.write("sub/x", "");
  const auto copied = [&](const std::string &from, const std::string &to, bool fail_if_exists = false) {
    return framework::copy_file(from, to, fail_if_exists);
  };
  EXPECT_FALSE(copied(source, target, true)) << "existing target";
  EXPECT_FALSE(copied(target, target)) << "onto itself";
  for (const std::string &bad : {folder.path("none"), folder.path("sub"), std::string("/dev/zero")})
    EXPECT_FALSE(copied(bad, target)) << bad;
  for (const char *bad : {"sub", "no/x"}) EXPECT_FALSE(copied(source, folder.path(bad))) << bad;
  support::FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  files.room = 3;
  EXPECT_FALSE(copied(source, target)) << "full disk";
  files.room = 100;
  files.readable = 3;
  EXPECT_FALSE(copied(source, target)) << "unreadable from the fourth byte on";
  EXPECT_EQ(folder.read("b"), "target");
  EXPECT_EQ(folder.names(), (Names{"a", "b", "sub", "sub/x"}));
}

TEST(MakeFolders, createsParentsAndAcceptsWhatIsThere) {
  const support::TemporaryFolder folder;
  EXPECT_TRUE(framework::make_folders(folder.path("a/b/c")));
  EXPECT_TRUE(framework::make_folders(folder.path("a/b")));
  EXPECT_TRUE(framework::make_folders("/"));
  folder.write("file", "");
  EXPECT_FALSE(framework::make_folders(folder.path("file")));
  EXPECT_FALSE(framework::make_folders(folder.path("file/x")));
  EXPECT_FALSE(framework::make_folders(""));
  EXPECT_EQ(folder.names(), (Names{"a", "a/b", "a/b/c", "file"}));
}

}  // namespace
