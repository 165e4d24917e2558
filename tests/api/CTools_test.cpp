#include "tool/api/CTools.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/support/faulty_file_system.h"
#include "tests/support/temporary_folder.h"
#include "tool/framework/files/attributes.h"
#include "tool/framework/files/last_error.h"
#include "tool/framework/ui/CWinApp.h"
#include "tool/framework/ui/CWnd.h"

namespace {

using Names = std::vector<std::string>;

// Settings and window positions

TEST(CToolsSettings, applicationFolder) {
  struct Row {
    const char *module;
    int up;
    const char *folder;
  };
  const Row rows[] = {{"C:\\App\\Bin\\t.exe", 0, "C:\\App\\Bin\\"},
                      {"C:\\App\\Bin\\t.exe", 1, "C:\\App\\"},
                      {"C:\\App\\Bin\\t.exe", -1, "C:\\App\\"},
                      {"C:\\t.exe", 1, "C:\\"},
                      {"/opt/tool/bin/ceph", 0, "/opt/tool/bin/"},
                      {"/opt/tool/bin/ceph", 1, "/opt/tool/"},
                      {"/ceph", 1, "/"},
                      {"C:\\\x95\x5C\\\x83\x5C\\t.exe", 1, "C:\\\x95\x5C\\"}};
  support::TestPlatform platform;
  for (const Row &row : rows) {
    platform.module = row.module;
    EXPECT_STREQ(CTools::GetExecutionFileDirectoryPath(row.up), row.folder) << row.module;
    EXPECT_EQ(CTools::GetIniFileName(row.up), CString(row.folder) + "Tracora10.ini");
  }
  platform.module = "/" + std::string(300, 'x') + "/ceph";
  EXPECT_LT(std::strlen(CTools::GetExecutionFileDirectoryPath(0)), 260u);
}

TEST(CToolsSettings, wholeNumbersLiveInAFileOrTheProfile) {
  support::TestPlatform platform;
  CWinApp application("app");
  const std::string file = platform.folder.path("x.ini");
  CTools::WriteProfileIntEx("S", "k", -3, file.c_str());
  CTools::WriteProfileIntEx("S", "k", 4, "");
  EXPECT_EQ(CTools::GetProfileIntEx("S", "k", 9, file.c_str()), -3);
  EXPECT_EQ(CTools::GetProfileIntEx("S", "k", 9, ""), 4);
  EXPECT_EQ(CTools::GetProfileIntEx("S", "other", -9, file.c_str()), -9);
  EXPECT_EQ(CTools::GetProfileIntEx("S", "other", -9, nullptr), -9);
  EXPECT_EQ(CTools::GetProfileIntEx("S", "k", 5, platform.folder.path("missing.ini").c_str()), 5);
  EXPECT_EQ(platform.folder.read("x.ini"), "[S]\r\nk=-3\r\n");
}

TEST(CToolsSettings, registryTexts) {
  support::TestPlatform platform;
  EXPECT_EQ(CTools::RegReadString("name"), "");
  char data[] = "va\0lue";
  EXPECT_EQ(CTools::RegWriteString("name", data, sizeof data), 1);
  EXPECT_EQ(CTools::RegReadString("NAME"), "va");
  char path[] = "C:\\\x95\x5C\\";
  EXPECT_EQ(CTools::RegWriteString("name", path, 4), 1);  // by size, not by terminator
  EXPECT_EQ(CTools::RegReadString("name"), "C:\\\x95");
  EXPECT_EQ(CTools::RegWriteString("name", nullptr, 10), 1);
  EXPECT_EQ(CTools::RegReadString("name"), "");
  support::FaultyFileSystem files;
  files.room = 0;
  {
    const framework::FileSystemScope scope(files);
    EXPECT_EQ(CTools::RegWriteString("name", path, 4), 1);  // a failing write still counts as done
  }
  platform.configuration.clear();
  EXPECT_EQ(CTools::RegWriteString("name", path, 4), 0);
}

struct KeptWindow {
  int maximised, x, y, width, height;
};

void keep(const KeptWindow &kept) {
  CWinApp &application = *AfxGetApp();
  application.WriteProfileInt("ENV", "MainMAXWINDOW", kept.maximised);
  application.WriteProfileInt("ENV", "MainPOS_X", kept.x);
  application.WriteProfileInt("ENV", "MainPOS_Y", kept.y);
  application.WriteProfileInt("ENV", "MainPOS_CX", kept.width);
  application.WriteProfileInt("ENV", "MainPOS_CY", kept.height);
}

TEST(CToolsWindows, loadingKeepsTheWindowOnTheScreen) {
  constexpr int most = std::numeric_limits<int>::max();
  struct Row {
    const char *name;
    KeptWindow kept;
    CRect expected;
  };
  const Row rows[] = {{"inside", {0, 100, 50, 800, 600}, {100, 50, 900, 650}},
                      {"too far right", {0, 3000, 0, 800, 600}, {1120, 0, 1920, 600}},
                      {"too far down", {0, 0, 1000, 800, 600}, {0, 480, 800, 1080}},
                      {"left of the screen", {0, -50, -70, 800, 600}, {0, 0, 800, 600}},
                      {"wider than the screen", {0, 10, 10, 3000, 2000}, {0, 0, 3000, 2000}},
                      {"exactly fitting", {0, 1120, 480, 800, 600}, {1120, 480, 1920, 1080}},
                      {"spoilt numbers", {0, most, most, most, most}, {0, 0, most, most}}};
  support::TestPlatform platform;
  CWinApp application("app");
  application.UseMemoryProfile();
  for (const Row &row : rows) {
    keep(row.kept);
    CWnd window;
    CTools::LoadWindowPos(&window, "Main");
    WINDOWPLACEMENT placement{};
    window.GetWindowPlacement(&placement);
    EXPECT_EQ(CRect(placement.rcNormalPosition), row.expected) << row.name;
    EXPECT_EQ(placement.flags, WPF_SETMINPOSITION);
    EXPECT_EQ(placement.showCmd, static_cast<UINT>(SW_SHOWNORMAL)) << row.name;
  }
}

TEST(CToolsWindows, virtualScreensMayBeginLeftOfZero) {
  support::TestPlatform platform;
  platform.screen = CRect(-1920, -100, 1920, 980);
  CWinApp application("app");
  application.UseMemoryProfile();
  keep({0, -1500, -500, 800, 600});
  CWnd window;
  CTools::LoadWindowPos(&window, "Main");
  CRect place;
  window.GetWindowRect(&place);
  EXPECT_EQ(place, CRect(-1500, -100, -700, 500));
}

TEST(CToolsWindows, withoutASizeOnlyAMaximisedWindowIsShown) {
  support::TestPlatform platform;
  CWinApp application("app");
  application.UseMemoryProfile();
  CWnd untouched;
  untouched.MoveWindow(1, 2, 3, 4);
  CTools::LoadWindowPos(&untouched, "Main");
  EXPECT_FALSE(untouched.IsWindowVisible());
  keep({1, 5, 5, 100, 0});
  CTools::LoadWindowPos(&untouched, "Main");
  CRect place;
  untouched.GetWindowRect(&place);
  EXPECT_EQ(place, CRect(1, 2, 4, 6));
  EXPECT_TRUE(untouched.IsZoomed());
  CTools::LoadWindowPos(nullptr, "Main");
}

TEST(CToolsWindows, savingAndLoadingRestoresTheWindow) {
  support::TestPlatform platform;
  CWinApp application("app");
  application.UseMemoryProfile();
  CWnd window;
  window.MoveWindow(10, 20, 300, 200);
  window.ShowWindow(SW_SHOWMAXIMIZED);
  CTools::SaveWindowPos(&window, "Sub");
  EXPECT_EQ(application.GetProfileInt("ENV", "SubMAXWINDOW", 9), 1u);
  EXPECT_EQ(application.GetProfileInt("ENV", "SubPOS_CX", 9), 300u);
  CWnd again;
  CTools::LoadWindowPos(&again, "Sub");
  CRect place;
  again.GetWindowRect(&place);
  EXPECT_EQ(place, CRect(10, 20, 310, 220));
  EXPECT_TRUE(again.IsZoomed());
  window.ShowWindow(SW_SHOWMINIMIZED);
  CTools::SaveWindowPos(&window, "Sub");
  EXPECT_EQ(application.GetProfileInt("ENV", "SubMAXWINDOW", 9), 0u);
}

TEST(CToolsSettings, scratchFolder) {
  support::TestPlatform platform;
  EXPECT_EQ(CTools::GetTracoraTempPath(), "C:\\temp\\Tracora10_TMP");
  EXPECT_TRUE(platform.folder.has("c/temp/Tracora10_TMP"));
  EXPECT_EQ(CTools::GetTracoraTempPath(), "C:\\temp\\Tracora10_TMP");
  platform.drives['D'] = platform.folder.path("d");
  platform.temporary = "D:\\Users\\u\\AppData\\";
  EXPECT_EQ(CTools::GetTracoraTempPath(), "D:\\temp\\Tracora10_TMP");
  EXPECT_TRUE(platform.folder.has("d/temp/Tracora10_TMP"));
  for (const std::string &unreadable : {std::string(), std::string(400, 'x')}) {
    platform.temporary = unreadable;
    EXPECT_EQ(CTools::GetTracoraTempPath(), "");
  }
}

// Files and folders

TEST(CToolsFiles, existenceAndSize) {
  support::TestPlatform platform;
  const support::TemporaryFolder &folder = platform.folder;
  const std::string file = folder.write("sub/x.txt", "12345");
  EXPECT_EQ(CTools::ExistFile(file.c_str()), 1);
  EXPECT_EQ(CTools::ExistFile(folder.path("sub").c_str()), 1);
  EXPECT_EQ(CTools::ExistFile(folder.path("sub\\").c_str()), 1);
  EXPECT_EQ(CTools::ExistFile(folder.path("SUB\\X.TXT").c_str()), 1);
  for (const char *missing : {"", "none", "sub/x.txt/y"})
    EXPECT_EQ(CTools::ExistFile(*missing ? folder.path(missing).c_str() : ""), 0) << missing;
  EXPECT_EQ(CTools::ExistFile(nullptr), 0);
  EXPECT_EQ(CTools::GetFileSize(file.c_str()), 5u);
  EXPECT_EQ(CTools::GetFileSize(folder.path("sub").c_str()), 0u);
  EXPECT_EQ(CTools::GetFileSize(folder.path("none").c_str()), 0u);
}

TEST(CToolsFiles, removalSparesFoldersAndReadOnlyFiles) {
  const support::TemporaryFolder folder;
  folder.write("a", "");
  folder.write("locked", "");
  folder.write("sub/x", "");
  folder.make_read_only("locked");
  for (const char *name : {"a", "locked", "sub", "none"}) CTools::FileRemove(folder.path(name).c_str());
  EXPECT_EQ(folder.names(), (Names{"locked", "sub", "sub/x"}));
}

TEST(CToolsFiles, copyOfAReadOnlyFileIsWritable) {
  const support::TemporaryFolder folder;
  const std::string source = folder.write("a", "content");
  folder.make_read_only("a");
  const std::string target = folder.path("b");
  EXPECT_EQ(CTools::fCopyNonrFile(source.c_str(), target.c_str(), 1), 1);
  EXPECT_EQ(folder.read("b"), "content");
  EXPECT_EQ(GetFileAttributesA(target.c_str()), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(CTools::fCopyNonrFile(source.c_str(), target.c_str(), 1), 0);
  EXPECT_EQ(CTools::fCopyNonrFile(source.c_str(), target.c_str(), 0), 1);
  EXPECT_EQ(CTools::fCopyNonrFile(folder.path("none").c_str(), target.c_str(), 0), 0);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ENOENT));
}

TEST(CToolsFiles, foldersAreMadeWithTheirParents) {
  support::TestPlatform platform;
  EXPECT_EQ(CTools::MkDir("C:\\\x95\x5C\\b\\"), 1);
  EXPECT_EQ(CTools::MkDir("C:/\x95\x5C/b"), 1);
  EXPECT_TRUE(platform.folder.has("c/\xE8\xA1\xA8/b"));
  platform.folder.write("c/file", "");
  EXPECT_EQ(CTools::MkDir("C:\\file\\x"), 0);
  EXPECT_EQ(CTools::MkDir("Q:\\x"), 0);
  EXPECT_EQ(CTools::MkDir(""), 0);
}

TEST(CToolsFiles, treeCopyOverwritesAndKeeps) {
  const support::TemporaryFolder folder;
  folder.write("from/a", "new");
  folder.write("from/sub/.hidden", "deep");
  folder.write("from/empty/x", "");
  std::filesystem::remove(folder.path("from/empty/x"));
  folder.write("to/a", "old");
  folder.write("to/kept", "kept");
  for (const char *ending : {"", "\\", "/"}) {
    CString source(folder.path("from") + ending);
    CString target(folder.path("to") + ending);
    EXPECT_EQ(CTools::DirectoryCopy(source, target), 1);
  }
  EXPECT_EQ(folder.read("to/a"), "new");
  EXPECT_EQ(folder.read("to/kept"), "kept");
  EXPECT_EQ(folder.read("to/sub/.hidden"), "deep");
  EXPECT_TRUE(folder.has("to/empty"));
}

TEST(CToolsFiles, treeCopyTellsFailures) {
  const support::TemporaryFolder folder;
  folder.write("from/a", "content");
  folder.write("file", "");
  const auto copy = [&](const char *from, const char *to) {
    CString source(folder.path(from));
    CString target(folder.path(to));
    return CTools::DirectoryCopy(source, target);
  };
  EXPECT_EQ(copy("none", "to"), 0);
  EXPECT_EQ(copy("from", "file"), 0);
  EXPECT_EQ(copy("from", "from/inside"), 0);
  EXPECT_EQ(folder.names(), (Names{"file", "from", "from/a", "to"}));
  support::FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  files.room = 3;
  EXPECT_EQ(copy("from", "to"), 0);
  EXPECT_FALSE(folder.has("to/a"));
}

TEST(CToolsFiles, flatCopyTakesPlainVisibleFiles) {
  const support::CurrentFolderScope current;
  const support::TemporaryFolder folder;
  folder.write("from/a.txt", "a");
  folder.write("from/.hidden", "");
  folder.write("from/sub/x", "");
  folder.write("to/a.txt", "old");
  EXPECT_EQ(CTools::CopyFolderFile(folder.path("to").c_str(), folder.path("from\\").c_str()), 1);
  EXPECT_TRUE(std::filesystem::equivalent(".", folder.path("from")));
  EXPECT_EQ(folder.read("to/a.txt"), "a");
  EXPECT_FALSE(folder.has("to/.hidden") || folder.has("to/sub"));
  EXPECT_EQ(CTools::CopyFolderFile(folder.path("new/deep").c_str(), folder.path("from").c_str()), 1);
  EXPECT_TRUE(folder.has("new/deep/a.txt"));
  EXPECT_EQ(CTools::CopyFolderFile(folder.path("to").c_str(), folder.path("none").c_str()), 0);
  folder.make_read_only("to/a.txt");
  EXPECT_EQ(CTools::CopyFolderFile(folder.path("to").c_str(), folder.path("from").c_str()), 0);
}

TEST(CToolsFiles, deletingSparesReadOnlyFiles) {
  const support::TemporaryFolder folder;
  folder.write("gone/sub/deep/x", "");
  folder.write("half/a", "");
  folder.write("half/sub/locked", "");
  folder.make_read_only("half/sub/locked");
  CTools::DeleteFolder(folder.path("gone\\").c_str());
  CTools::DeleteFolder(folder.path("half").c_str());
  CTools::DeleteFolder(folder.path("none").c_str());
  CTools::DeleteFolder("");
  EXPECT_EQ(folder.names(), (Names{"half", "half/sub", "half/sub/locked"}));
}

TEST(CToolsFiles, deletingNeverFollowsLinks) {
  const support::TemporaryFolder folder;
  folder.write("precious/x", "");
  folder.write("gone/a", "");
  std::filesystem::create_directory_symlink(folder.path("precious"), folder.path("gone/link"));
  std::filesystem::create_symlink("nowhere", folder.path("gone/dangling"));
  CTools::DeleteFolder(folder.path("gone").c_str());
  EXPECT_EQ(folder.names(), (Names{"precious", "precious/x"}));
}

TEST(CToolsFiles, writingTellsAFullDisk) {
  support::TestPlatform platform;
  const std::string path = platform.folder.path("x");
  CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
  char bytes[] = "a\0b";
  EXPECT_EQ(CTools::WriteFile(&file, ""), 1);
  EXPECT_EQ(CTools::WriteFile(&file, "text"), 1);
  EXPECT_EQ(CTools::WriteFileB(&file, bytes, 3), 1);
  EXPECT_TRUE(platform.messages.empty());
  support::FaultyFileSystem files;
  files.room = 2;
  const framework::FileSystemScope scope(files);
  EXPECT_EQ(CTools::WriteFile(&file, "more"), 0);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "Disk Full");
  EXPECT_EQ(platform.messages[0].type, MB_OK);
  EXPECT_EQ(CTools::WriteFile(nullptr, "more"), 0);
}

// Text and numbers

TEST(CToolsText, cutsEscapesAndTrims) {
  struct Cut {
    int start;
    int count;
    const char *expected;
  };
  char source[] = "abcdef";
  for (const Cut &row :
       {Cut{0, 3, "abc"}, {2, 99, "cdef"}, {6, 1, ""}, {99, 1, ""}, {1, 0, ""}, {1, -1, ""}, {-2, 2, "ab"}}) {
    char target[16] = "unchanged";
    CTools::StrCut(source, target, row.start, row.count);
    EXPECT_STREQ(target, row.expected) << row.start << " " << row.count;
  }
  char target[16] = "unchanged";
  char ampersands[] = "A&B&";
  CTools::And_Check(ampersands, target);
  EXPECT_STREQ(target, "A&&B&&");
  char empty[] = "";
  CTools::And_Check(empty, target);
  EXPECT_STREQ(target, "");
  char blanks[] = "  a b\t  ";
  CTools::Del_Space(blanks);
  EXPECT_STREQ(blanks, "  a b\t");
  char only[] = "   ";
  CTools::Del_Space(only);
  EXPECT_STREQ(only, "");
}

TEST(CToolsText, testsBytesForZero) {
  unsigned char bytes[] = {0, 0, 1};
  EXPECT_EQ(CTools::IsNull(bytes, 0), 1);
  EXPECT_EQ(CTools::IsNull(bytes, 2), 1);
  EXPECT_EQ(CTools::IsNull(bytes, 3), 0);
}

TEST(CToolsText, splitsKeyAndValue) {
  const std::string long_key(60, 'k');
  struct Row {
    std::string line;
    std::string key;  ///< as Div_Str cuts it
    std::string value;
    std::string free_key;
    std::string free_value;
  };
  for (const Row &row :
       {Row{"a=b", "a", "b", "a", "b"}, Row{"a=b=c", "a", "b=c", "a", "b=c"}, Row{"=b", "", "b", "", "b"},
        Row{"a=", "a", "", "a", ""}, Row{"plain%%", "plain%%", "", "plain%%", ""}, Row{"", "", "", "", ""},
        Row{"a=50%% x", "a", "50%% x", "a", "50% x"},
        Row{long_key + "=v", long_key.substr(0, 50), "v", long_key, "v"},
        Row{long_key, long_key.substr(0, 50), "", long_key.substr(0, 50), ""},
        Row{"\x95\x5C=1", "\x95\x5C", "1", "\x95\x5C", "1"}}) {
    std::string key(80, '\0');
    std::string value(80, '#');
    CTools::Div_Str(row.line.c_str(), key.data(), value.data());
    EXPECT_STREQ(key.c_str(), row.key.c_str()) << row.line;
    EXPECT_STREQ(value.c_str(), row.value.c_str()) << row.line;
    key.assign(80, '\0');
    CTools::Div_StrFree(row.line.c_str(), key.data(), value.data());
    EXPECT_STREQ(key.c_str(), row.free_key.c_str()) << row.line;
    EXPECT_STREQ(value.c_str(), row.free_value.c_str()) << row.line;
  }
  char key[60] = "############";
  char value[10];
  CTools::Div_Str(CString("ab=c"), key, value);
  EXPECT_STREQ(key, "ab##########");  // the key gets no terminator
  CTools::Div_StrFree("xyz=c", key, value);
  EXPECT_STREQ(key, "xyz#########");
}

TEST(CToolsText, readsLinesOfABuffer) {
  char text[] = "abc\r\n\r\ndef";
  int consumed = 0;
  EXPECT_EQ(CTools::GetLineText(text, &consumed, 511), "abc");
  EXPECT_EQ(consumed, 5);
  const CString empty = CTools::GetLineText(text + 5, &consumed, 511);
  EXPECT_EQ(empty.GetLength(), 1);
  EXPECT_EQ(empty[0], '\0');
  EXPECT_EQ(consumed, 2);
  EXPECT_EQ(CTools::GetLineText(text + 7, &consumed, 511), "def");
  EXPECT_EQ(consumed, 4);
  EXPECT_EQ(CTools::GetLineText(text, &consumed, 2), "ab");
  EXPECT_EQ(consumed, 3);
  char unterminated[3] = {'x', 'y', 'z'};  // no byte beyond max is looked at
  EXPECT_EQ(CTools::GetLineText(unterminated, &consumed, 3), "xyz");
  std::string endless(2000, 'x');
  EXPECT_EQ(CTools::GetLineText(endless.data(), &consumed, 2000).GetLength(), 511);
  EXPECT_EQ(CTools::GetLineText(text, nullptr, -1).GetLength(), 1);
}

TEST(CToolsText, delimitersOfBuffersAndTexts) {
  struct Row {
    const char *path;
    const char *added;
    const char *removed;
  };
  for (const Row &row : {Row{"C:/data", "C:/data/", "C:/data"}, Row{"C:\\data\\", "C:\\data\\", "C:\\data"},
                         Row{"C:", "C:\\", "C:\\"}, Row{"C:\\\x95\x5C", "C:\\\x95\x5C\\", "C:\\\x95\x5C"}}) {
    char buffer[32];
    std::strcpy(buffer, row.path);
    EXPECT_EQ(CTools::LastDelimAdd(buffer), static_cast<int>(std::strlen(row.added)));
    EXPECT_STREQ(buffer, row.added);
    std::strcpy(buffer, row.path);
    EXPECT_EQ(CTools::LastDelimDel(buffer), static_cast<int>(std::strlen(row.removed)));
    EXPECT_STREQ(buffer, row.removed);
    CString text(row.path);
    CTools::LastDelimAdd(text);
    EXPECT_EQ(text, row.added);
    text = row.path;
    CTools::LastDelimDel(text);
    EXPECT_EQ(text, row.removed);
  }
  CString empty;
  CTools::LastDelimAdd(empty);
  CTools::LastDelimDel(empty);
  EXPECT_TRUE(empty.IsEmpty());
  char nothing[2] = "";
  EXPECT_EQ(CTools::LastDelimDel(nothing), 0);
}

TEST(CToolsText, fileNamesAndNumbers) {
  EXPECT_EQ(CTools::GetFileTitle("C:\\a\\b.txt"), "b");
  EXPECT_EQ(CTools::GetFileExt("C:\\a\\b.txt"), ".txt");
  EXPECT_EQ(CTools::GetFileExt("C:\\a.b\\c"), "");
  EXPECT_EQ(CTools::IsNum("007"), 1);
  EXPECT_EQ(CTools::IsNum("1e5"), 0);
  EXPECT_EQ(CTools::IsNum(nullptr), 1);
  EXPECT_EQ(CTools::FtoA(2.5, 2), "2.50");
}

TEST(CToolsText, showsTheLastError) {
  support::TestPlatform platform;
  SetLastError(ENOENT);
  CTools::GetLastErrMessage();
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "No such file or directory");
  EXPECT_EQ(platform.messages[0].type, MB_ICONHAND);
}

}  // namespace
