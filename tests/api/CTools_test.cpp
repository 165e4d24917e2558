#include "tool/api/CTools.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>

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
  for (const char *profile : {"", static_cast<const char *>(nullptr)})
    EXPECT_EQ(CTools::GetProfileIntEx("S", "k", 9, profile), 4);
  EXPECT_EQ(CTools::GetProfileIntEx("S", "other", -9, file.c_str()), -9);
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

/// An application whose profile remembers a main window.
struct WindowProfile : support::TestPlatform {
  CWinApp application{"app"};

  WindowProfile() { application.UseMemoryProfile(); }
  void keep(int maximised, std::array<int, 4> place) {
    const char *const keys[] = {"MainPOS_X", "MainPOS_Y", "MainPOS_CX", "MainPOS_CY"};
    application.WriteProfileInt("ENV", "MainMAXWINDOW", maximised);
    for (std::size_t i = 0; i < 4; ++i) application.WriteProfileInt("ENV", keys[i], place[i]);
  }
};

TEST(CToolsWindows, loadingKeepsTheWindowOnTheScreen) {
  constexpr int most = std::numeric_limits<int>::max();
  const CRect screens[] = {{0, 0, 1920, 1080}, {-1920, -100, 1920, 980}};
  struct Row {
    const char *name;
    std::array<int, 4> kept;
    CRect expected;
    int screen = 0;
  };
  const Row rows[] = {{"inside", {100, 50, 800, 600}, {100, 50, 900, 650}},
                      {"too far right", {3000, 0, 800, 600}, {1120, 0, 1920, 600}},
                      {"too far down", {0, 1000, 800, 600}, {0, 480, 800, 1080}},
                      {"left of the screen", {-50, -70, 800, 600}, {0, 0, 800, 600}},
                      {"wider than the screen", {10, 10, 3000, 2000}, {0, 0, 3000, 2000}},
                      {"exactly fitting", {1120, 480, 800, 600}, {1120, 480, 1920, 1080}},
                      {"spoilt numbers", {most, most, most, most}, {0, 0, most, most}},
                      {"screens left of zero", {-1500, -500, 800, 600}, {-1500, -100, -700, 500}, 1}};
  WindowProfile profile;
  for (const Row &row : rows) {
    profile.screen = screens[row.screen];
    profile.keep(0, row.kept);
    CWnd window;
    CTools::LoadWindowPos(&window, "Main");
    WINDOWPLACEMENT placement{};
    window.GetWindowPlacement(&placement);
    EXPECT_EQ(CRect(placement.rcNormalPosition), row.expected) << row.name;
    EXPECT_EQ(placement.flags, WPF_SETMINPOSITION);
    EXPECT_EQ(placement.showCmd, static_cast<UINT>(SW_SHOWNORMAL)) << row.name;
  }
}

TEST(CToolsWindows, withoutASizeOnlyAMaximisedWindowIsShown) {
  WindowProfile profile;
  CWnd untouched;
  untouched.MoveWindow(1, 2, 3, 4);
  CTools::LoadWindowPos(&untouched, "Main");
  EXPECT_FALSE(untouched.IsWindowVisible());
  profile.keep(1, {5, 5, 100, 0});
  CTools::LoadWindowPos(&untouched, "Main");
  CRect place;
  untouched.GetWindowRect(&place);
  EXPECT_EQ(place, CRect(1, 2, 4, 6));
  EXPECT_TRUE(untouched.IsZoomed());
  CTools::LoadWindowPos(nullptr, "Main");
}

TEST(CToolsWindows, savingAndLoadingRestoresTheWindow) {
  WindowProfile profile;
  CWnd window, again;
  window.MoveWindow(10, 20, 300, 200);
  window.ShowWindow(SW_SHOWMAXIMIZED);
  CTools::SaveWindowPos(&window, "Sub");
  EXPECT_EQ(profile.application.GetProfileInt("ENV", "SubMAXWINDOW", 9), 1u);
  EXPECT_EQ(profile.application.GetProfileInt("ENV", "SubPOS_CX", 9), 300u);
  CTools::LoadWindowPos(&again, "Sub");
  CRect place;
  again.GetWindowRect(&place);
  EXPECT_EQ(place, CRect(10, 20, 310, 220));
  EXPECT_TRUE(again.IsZoomed());
  window.ShowWindow(SW_SHOWMINIMIZED);
  CTools::SaveWindowPos(&window, "Sub");
  EXPECT_EQ(profile.application.GetProfileInt("ENV", "SubMAXWINDOW", 9), 0u);
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

TEST(CToolsFiles, existenceSizeAndRemoval) {
  const support::TemporaryFolder folder;
  folder.write("sub/x.txt", "12345");
  folder.write("locked", "");
  folder.make_read_only("locked");
  struct Row {
    const char *name;
    int exists;
    unsigned size;
  };
  for (const Row &row : {Row{"sub/x.txt", 1, 5}, Row{"SUB\\X.TXT", 1, 5}, Row{"sub", 1, 0},
                         Row{"sub\\", 1, 0}, Row{"none", 0, 0}, Row{"sub/x.txt/y", 0, 0}}) {
    EXPECT_EQ(CTools::ExistFile(folder.path(row.name).c_str()), row.exists) << row.name;
    EXPECT_EQ(CTools::GetFileSize(folder.path(row.name).c_str()), row.size) << row.name;
  }
  EXPECT_EQ(CTools::ExistFile("") + CTools::ExistFile(nullptr), 0);
  for (const char *name : {"sub/x.txt", "locked", "sub", "none"})
    CTools::FileRemove(folder.path(name).c_str());
  EXPECT_EQ(folder.names(), (Names{"locked", "sub"})) << "folders and read-only files stay";
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
  platform.folder.write("c/file", "");
  for (const char *path : {"C:\\\x95\x5C\\b\\", "C:/\x95\x5C/b"}) EXPECT_EQ(CTools::MkDir(path), 1);
  for (const char *path : {"C:\\file\\x", "Q:\\x", ""}) EXPECT_EQ(CTools::MkDir(path), 0) << path;
  EXPECT_TRUE(platform.folder.has("c/\xE8\xA1\xA8/b"));
}

TEST(CToolsFiles, treeCopyOverwritesKeepsAndTellsFailures) {
  const support::TemporaryFolder folder;
  folder.write("from/a", "new");
  folder.write("from/sub/.hidden", "deep");
  std::filesystem::create_directory(folder.path("from/empty"));
  folder.write("to/a", "old");
  folder.write("to/kept", "kept");
  folder.write("file", "");
  const auto copy = [&](const std::string &from, const std::string &to) {
    CString source(folder.path(from));
    CString target(folder.path(to));
    return CTools::DirectoryCopy(source, target);
  };
  for (const char *ending : {"", "\\", "/"})
    EXPECT_EQ(copy(std::string("from") + ending, std::string("to") + ending), 1);
  EXPECT_EQ(folder.read("to/a"), "new");
  EXPECT_EQ(folder.read("to/kept"), "kept");
  EXPECT_EQ(folder.read("to/sub/.hidden"), "deep");
  EXPECT_TRUE(folder.has("to/empty"));
  EXPECT_EQ(copy("none", "to"), 0);
  EXPECT_EQ(copy("from", "file"), 0);
  EXPECT_EQ(copy("from", "from/inside"), 0);
  EXPECT_FALSE(folder.has("from/inside"));
  support::FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  files.room = 2;
  EXPECT_EQ(copy("from", "full"), 0);
  EXPECT_FALSE(folder.has("full/a"));
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

TEST(CToolsFiles, deletingSparesReadOnlyFilesAndNeverFollowsLinks) {
  const support::TemporaryFolder folder;
  for (const char *file : {"gone/sub/deep/x", "half/a", "half/sub/locked", "precious/x"})
    folder.write(file, "");
  folder.make_read_only("half/sub/locked");
  std::filesystem::create_directory_symlink(folder.path("precious"), folder.path("gone/link"));
  std::filesystem::create_symlink("nowhere", folder.path("gone/dangling"));
  for (const char *name : {"gone\\", "half", "none"}) CTools::DeleteFolder(folder.path(name).c_str());
  CTools::DeleteFolder("");
  EXPECT_EQ(folder.names(), (Names{"half", "half/sub", "half/sub/locked", "precious", "precious/x"}));
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
    int start, count;
    const char *expected;
  };
  char source[] = "abcdef";
  for (const Cut &row :
       {Cut{0, 3, "abc"}, {2, 99, "cdef"}, {6, 1, ""}, {99, 1, ""}, {1, 0, ""}, {1, -1, ""}, {-2, 2, "ab"}}) {
    char target[16] = "unchanged";
    CTools::StrCut(source, target, row.start, row.count);
    EXPECT_STREQ(target, row.expected) << row.start << " " << row.count;
  }
  struct Changed {
    std::string text;
    const char *escaped, *trimmed;
  };
  for (Changed row : {Changed{"A&B&", "A&&B&&", "A&B&"},
                      {"", "", ""},
                      {"  a b\t  ", "  a b\t  ", "  a b\t"},
                      {"   ", "   ", ""}}) {
    char target[16] = "unchanged";
    CTools::And_Check(row.text.data(), target);
    EXPECT_STREQ(target, row.escaped);
    CTools::Del_Space(row.text.data());
    EXPECT_STREQ(row.text.c_str(), row.trimmed);
  }
  unsigned char bytes[] = {0, 0, 1};
  EXPECT_EQ(CTools::IsNull(bytes, 0), 1);
  EXPECT_EQ(CTools::IsNull(bytes, 2), 1);
  EXPECT_EQ(CTools::IsNull(bytes, 3), 0);
}

TEST(CToolsText, splitsKeyAndValue) {
  const std::string long_key(60, 'k'), cut_key(50, 'k');
  struct Row {
    std::string line, key, value;  ///< as Div_Str cuts them
    std::string free_key = key, free_value = value;
  };
  for (const Row &row :
       {Row{"a=b", "a", "b"}, Row{"a=b=c", "a", "b=c"}, Row{"=b", "", "b"}, Row{"a=", "a", ""},
        Row{"plain%%", "plain%%", ""}, Row{"", "", ""}, Row{"a=50%% x", "a", "50%% x", "a", "50% x"},
        Row{long_key + "=v", cut_key, "v", long_key}, Row{long_key, cut_key, ""},
        Row{"\x95\x5C=1", "\x95\x5C", "1"}}) {
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
  EXPECT_EQ(CTools::GetLineText(text + 5, &consumed, 511), CString("\0", 1)) << "an empty line";
  EXPECT_EQ(consumed, 2);
  char unterminated[3] = {'x', 'y', 'z'};  // no byte beyond max is looked at
  EXPECT_EQ(CTools::GetLineText(unterminated, &consumed, 3), "xyz");
  EXPECT_EQ(CTools::GetLineText(text, nullptr, -1).GetLength(), 1);
}

TEST(CToolsText, delimitersOfBuffersAndTexts) {
  struct Row {
    const char *path, *added, *removed;
  };
  for (const Row &row :
       {Row{"C:/data", "C:/data/", "C:/data"}, Row{"C:\\data\\", "C:\\data\\", "C:\\data"}}) {
    char buffer[32];
    std::strcpy(buffer, row.path);
    EXPECT_EQ(CTools::LastDelimAdd(buffer), static_cast<int>(std::strlen(row.added)));
    EXPECT_STREQ(buffer, row.added);
    EXPECT_EQ(CTools::LastDelimDel(buffer), static_cast<int>(std::strlen(row.removed)));
    EXPECT_STREQ(buffer, row.removed);
    CString text(row.path);
    CTools::LastDelimAdd(text);
    EXPECT_EQ(text, row.added);
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
