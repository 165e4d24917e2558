#include "tool/framework/files/CFile.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/faulty_file_system.h"
#include "tests/support/temporary_folder.h"
#include "tool/framework/files/CFileFind.h"
#include "tool/framework/files/attributes.h"
#include "tool/framework/files/last_error.h"
#include "tool/framework/files/system_paths.h"

namespace {

TEST(CFile, writesSeeksAndReads) {
  support::TestPlatform platform;
  CFile file("C:\\x.bin", CFile::modeCreate | CFile::modeReadWrite);
  file.Write("abcdef", 6);
  EXPECT_EQ(file.GetLength(), 6u);
  EXPECT_EQ(file.Seek(2, CFile::begin), 2u);
  char buffer[10] = {};
  EXPECT_EQ(file.Read(buffer, 3), 3u);
  EXPECT_STREQ(buffer, "cde");
  EXPECT_EQ(file.GetPosition(), 5u);
  EXPECT_EQ(file.Seek(-1, CFile::end), 5u);
  EXPECT_EQ(file.Read(buffer, 10), 1u);
  EXPECT_EQ(file.SeekToEnd(), 6u);
  EXPECT_THROW(file.Seek(-1, CFile::begin), CFileException);
  file.SetLength(3);
  EXPECT_EQ(file.GetLength(), 3u);
  EXPECT_EQ(file.GetFileName(), "x.bin");
  file.Close();
  file.Close();
  EXPECT_EQ(platform.folder.read("c/x.bin"), "abc");
}

TEST(CFile, openingFollowsTheFlags) {
  constexpr UINT create = CFile::modeCreate | CFile::modeWrite;
  struct Row {
    UINT flags;
    bool exists;
    const char *content;  ///< afterwards; null: cannot be opened
  };
  for (const Row &row :
       {Row{CFile::modeRead, true, "old"}, Row{CFile::modeRead, false, nullptr},
        Row{CFile::modeWrite, true, "old"}, Row{CFile::modeWrite, false, nullptr}, Row{create, false, ""},
        Row{create | CFile::shareDenyNone, true, ""}, Row{create | CFile::modeNoTruncate, true, "old"}}) {
    const support::TemporaryFolder folder;
    if (row.exists) folder.write("x", "old");
    CFile file;
    CFileException error;
    EXPECT_EQ(file.Open(folder.path("x").c_str(), row.flags, &error), row.content != nullptr) << row.flags;
    EXPECT_EQ(folder.read("x"), row.content ? row.content : "") << row.flags;
    EXPECT_TRUE(row.content || error.m_cause == CFileException::fileNotFound) << row.flags;
  }
}

TEST(CFile, throwsWhatWentWrong) {
  const support::TemporaryFolder folder;
  char byte = 0;
  CFile closed;
  CFile reading(folder.write("x", "abc").c_str(), CFile::modeRead);
  CFile full("/dev/full", CFile::modeWrite);
  const std::pair<std::function<void()>, int> rows[] = {
      {[&] { CFile(folder.path("no").c_str(), CFile::modeRead); }, CFileException::fileNotFound},
      {[&] { CFile(folder.path().c_str(), CFile::modeRead); }, CFileException::accessDenied},
      {[&] { CFile(nullptr, CFile::modeRead); }, CFileException::fileNotFound},
      {[&] { closed.Read(&byte, 1); }, CFileException::invalidFile},
      {[&] { closed.GetLength(); }, CFileException::invalidFile},
      {[&] { reading.Write("x", 1); }, CFileException::invalidFile},
      {[&] { full.Write("x", 1); }, CFileException::diskFull},
      {[&] { CFile::Remove(folder.path("no").c_str()); }, CFileException::fileNotFound}};
  for (const auto &[action, expected] : rows) {
    int cause = CFileException::none;
    try {
      action();
    } catch (const CFileException &error) {
      cause = error.m_cause;
    }
    EXPECT_EQ(cause, expected);
  }
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ENOENT));
}

TEST(CFile, renamesAndRemovesCarefully) {
  const support::TemporaryFolder folder;
  const std::string a = folder.write("a", "a"), b = folder.write("b", "b"), c = folder.path("c");
  EXPECT_THROW(CFile::Rename(a.c_str(), b.c_str()), CFileException);
  EXPECT_EQ(folder.read("b"), "b");
  CFile::Rename(a.c_str(), folder.path("A").c_str());
  CFile::Rename(folder.path("A").c_str(), c.c_str());
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"b", "c"}));
  folder.make_read_only("b");
  EXPECT_THROW(CFile::Remove(b.c_str()), CFileException);
  CFile::Remove(c.c_str());
  EXPECT_EQ(folder.names(), std::vector<std::string>{"b"});
}

TEST(CFile, tellsStatusAndAttributes) {
  const support::TemporaryFolder folder;
  folder.write(".hidden", "12345");
  folder.write("locked", "");
  folder.make_read_only("locked");
  CFileStatus status;
  ASSERT_TRUE(CFile::GetStatus(folder.path(".hidden").c_str(), status));
  EXPECT_EQ(status.m_size, 5u);
  EXPECT_EQ(status.m_attribute, CFile::hidden);
  ASSERT_TRUE(CFile::GetStatus(folder.path().c_str(), status));
  EXPECT_TRUE(status.m_attribute & CFile::directory);
  EXPECT_FALSE(CFile::GetStatus(folder.path("none").c_str(), status));

  const std::string locked = folder.path("locked");
  EXPECT_EQ(GetFileAttributesA(locked.c_str()), FILE_ATTRIBUTE_READONLY);
  EXPECT_TRUE(SetFileAttributesA(locked.c_str(), FILE_ATTRIBUTE_NORMAL));
  EXPECT_EQ(GetFileAttributesA(locked.c_str()), FILE_ATTRIBUTE_NORMAL);
  EXPECT_TRUE(SetFileAttributesA(locked.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
  EXPECT_EQ(GetFileAttributesA(folder.path("none").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_FALSE(SetFileAttributesA(folder.path("none").c_str(), FILE_ATTRIBUTE_NORMAL));
}

std::vector<std::string> found(const std::string &pattern) {
  std::vector<std::string> names;
  CFileFind finder;
  for (BOOL more = finder.FindFile(pattern.c_str()); more;) {
    more = finder.FindNextFile();
    names.push_back(finder.GetFileName().str());
  }
  return names;
}

TEST(CFileFind, walksAFolder) {
  using Names = std::vector<std::string>;
  const support::TemporaryFolder folder;
  for (const char *name : {"a.txt", "B.TXT", "c", "sub/x", "\xE8\xA1\xA8.txt"}) folder.write(name, "");
  const Names all{".", "..", "B.TXT", "a.txt", "c", "sub", "\x95\x5C.txt"};
  const Names texts{"B.TXT", "a.txt", "\x95\x5C.txt"};
  const std::pair<const char *, Names> rows[] = {{"*.*", all},     {"\\*", all}, {"*.txt", texts},
                                                 {"?.txt", texts}, {"C", {"c"}}, {"none*", {}},
                                                 {"none/*", {}}};
  for (const auto &[pattern, names] : rows) EXPECT_EQ(found(folder.path(pattern)), names) << pattern;
}

TEST(CFileFind, tellsAboutEachEntry) {
  const support::TemporaryFolder folder;
  folder.write(".h.txt", "123");
  CFileFind finder;
  ASSERT_TRUE(finder.FindFile(folder.path(".h*").c_str()));
  EXPECT_FALSE(finder.FindNextFile());
  EXPECT_EQ(finder.GetFileTitle(), ".h");
  EXPECT_EQ(finder.GetFilePath(), folder.path(".h.txt").c_str());
  EXPECT_EQ(finder.GetLength(), 3u);
  EXPECT_TRUE(finder.IsHidden());
  EXPECT_FALSE(finder.IsDirectory() || finder.IsDots() || finder.IsSystem() || finder.IsReadOnly());
}

TEST(Patterns, match) {
  const char *const kanji = "\x95\x5C";  // one character of two bytes
  struct Row {
    const char *name, *pattern;
  };
  for (const Row &row : {Row{"abc", "*"}, Row{"", "*"}, Row{"abc", "a*c"}, Row{"aab", "*ab"},
                         Row{"abc", "???"}, Row{kanji, "?"}, Row{"ABC", "abc"}, Row{"abc", "*.*"},
                         Row{"abcabcabd", "*abc*abd"}, Row{"abc", "abc**"}})
    EXPECT_TRUE(framework::matches_pattern(row.name, row.pattern)) << row.name << " " << row.pattern;
  for (const Row &row : {Row{"abc", "a*b"}, Row{"abc", "??"}, Row{kanji, "??"}, Row{"a\x83\x41", "a\x83\x61"},
                         Row{"abc", ""}, Row{"abc", "abcd"}})
    EXPECT_FALSE(framework::matches_pattern(row.name, row.pattern)) << row.name << " " << row.pattern;
}

TEST(SystemPaths, followTheirSizeRules) {
  support::TestPlatform platform;
  platform.module = "/opt/tool/ceph";
  char buffer[32] = "untouched";
  EXPECT_EQ(GetModuleFileNameA(nullptr, buffer, sizeof buffer), 14u);
  EXPECT_STREQ(buffer, "/opt/tool/ceph");
  EXPECT_EQ(GetModuleFileNameA(nullptr, buffer, 5), 4u);
  EXPECT_STREQ(buffer, "/opt");
  EXPECT_EQ(GetTempPathA(sizeof buffer, buffer), 8u);
  EXPECT_STREQ(buffer, "C:\\temp\\");
  EXPECT_EQ(GetTempPathA(8, buffer), 9u);
  platform.temporary.clear();
  EXPECT_EQ(GetTempPathA(sizeof buffer, buffer), 0u);
}

TEST(SystemPaths, moveTheCurrentFolder) {
  const support::CurrentFolderScope scope;
  const support::TemporaryFolder folder;
  folder.write("Sub/x", "");
  char buffer[1000];
  EXPECT_TRUE(SetCurrentDirectoryA(folder.path("sub\\").c_str()));
  ASSERT_GT(GetCurrentDirectoryA(sizeof buffer, buffer), 0u);
  EXPECT_TRUE(std::filesystem::equivalent(buffer, folder.path("Sub")));
  EXPECT_FALSE(SetCurrentDirectoryA(folder.path("none").c_str()));
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ENOENT));
}

}  // namespace
