#include "tool/framework/files/read_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/faulty_file_system.h"
#include "tests/support/temporary_folder.h"

namespace {

using framework::read_whole_file;
using support::FaultyFileSystem;

TEST(ReadWholeFile, givesEveryByteWithoutLookingAround) {
  const support::TemporaryFolder folder;
  FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  for (const std::string &content :
       {std::string("a\0b\r\n\x95\x5C\xFF", 8), std::string(), std::string(300000, 'x')})
    EXPECT_EQ(read_whole_file(folder.write("x.bin", content).c_str()), content);
  EXPECT_EQ(files.opened, 3);
  EXPECT_EQ(files.closed, 3);
  EXPECT_EQ(files.asked + files.listed, 0);
}

TEST(ReadWholeFile, refusesWhatIsNoPlainFile) {
  const support::TemporaryFolder folder;
  folder.write("sub/x", "");
  const std::string pipe = folder.path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::string rows[] = {
      "",          folder.path("missing"), folder.path("sub"), folder.path("sub/x/y"), pipe,
      "/dev/zero", std::string(5000, 'a'), folder.path("\x81")};
  FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  for (const std::string &path : rows) EXPECT_FALSE(read_whole_file(path.c_str())) << path;
  EXPECT_FALSE(read_whole_file(nullptr));
  const std::string huge = folder.write("huge", "x");
  std::filesystem::resize_file(huge, framework::largest_whole_file + 1);
  EXPECT_FALSE(read_whole_file(huge.c_str()));
  EXPECT_EQ(files.opened, files.closed);
}

TEST(ReadWholeFile, livesWithShortReadsAndTellsFailures) {
  const support::TemporaryFolder folder;
  const std::string path = folder.write("x.txt", "abcdefghij");
  FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  files.largest_read = 3;
  EXPECT_EQ(read_whole_file(path.c_str()), "abcdefghij");
  files.readable = 5;
  EXPECT_FALSE(read_whole_file(path.c_str()));
  files.unreadable = "x.txt";
  EXPECT_FALSE(read_whole_file(path.c_str()));
}

TEST(ReadWholeFile, takesAFileThatShrinksAsFarAsItGoes) {
  class Shrinking : public framework::PosixFileSystem {
   public:
    using PosixFileSystem::status;
    std::optional<framework::FileStatus> status(int handle) override {
      auto status = PosixFileSystem::status(handle);
      status->size += 100;  // as if the rest had been cut off right afterwards
      return status;
    }
  };
  const support::TemporaryFolder folder;
  const std::string path = folder.write("x.txt", "abc");
  Shrinking files;
  const framework::FileSystemScope scope(files);
  EXPECT_EQ(read_whole_file(path.c_str()), "abc");
}

TEST(ReadWholeFile, findsNamesInAnotherLetterCase) {
  const support::TemporaryFolder folder;
  folder.write("AnaItem/List.TXT", "found");
  folder.write("exact/list.txt", "small");
  folder.write("exact/LIST.TXT", "large");
  EXPECT_EQ(read_whole_file(folder.path("ANAITEM\\list.txt").c_str()), "found");
  EXPECT_EQ(read_whole_file(folder.path("exact/list.txt").c_str()), "small");
  EXPECT_EQ(read_whole_file(folder.path("EXACT/List.txt").c_str()), "large");  // first in byte order
  EXPECT_FALSE(read_whole_file(folder.path("exact/lists.txt").c_str()));
}

}  // namespace
