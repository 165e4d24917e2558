#include "tool/framework/ui/CWinApp.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/faulty_file_system.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(WinApp, isTheApplicationObjectWhileItLives) {
  CWinApp *stand_in = AfxGetApp();
  ASSERT_NE(stand_in, nullptr);
  {
    CWinApp first("first");
    EXPECT_EQ(AfxGetApp(), &first);
    {
      CWinApp second("second");
      EXPECT_EQ(AfxGetApp(), &second);
    }
    EXPECT_EQ(AfxGetApp(), &first);
  }
  auto older = std::make_unique<CWinApp>("older");
  auto newer = std::make_unique<CWinApp>("newer");
  older.reset();
  newer.reset();
  EXPECT_EQ(AfxGetApp(), stand_in);
}

TEST(WinApp, keepsItsProfileInOneFile) {
  support::TestPlatform platform;
  const char *awkward = " \"two\r\nlines\" \x95\x5C";
  {
    CWinApp application("My App");
    EXPECT_EQ(application.GetProfileString("DB_DIR", "ANAITEMPATH", "fallback"), "fallback");
    EXPECT_EQ(application.GetProfileString("DB_DIR", "ANAITEMPATH"), "");
    EXPECT_TRUE(application.WriteProfileString("DB_DIR", "ANAITEMPATH", "C:\\\x95\x5C\\new"));
    EXPECT_TRUE(application.WriteProfileString("S", "awkward", awkward));
    EXPECT_TRUE(application.WriteProfileInt("ENV", "POS", -5));
    EXPECT_TRUE(application.WriteProfileString("S", "gone", "x"));
    EXPECT_TRUE(application.WriteProfileString("S", "gone", nullptr));
  }
  using Names = std::vector<std::string>;
  EXPECT_EQ(platform.folder.names(), (Names{"configuration", "configuration/My App.ini"}));
  CWinApp again("My App");
  EXPECT_EQ(again.GetProfileString("db_dir", "AnaItemPath", "x"), "C:\\\x95\x5C\\new");
  EXPECT_EQ(again.GetProfileString("S", "awkward"), awkward);
  EXPECT_EQ(again.GetProfileString("S", "gone", "x"), "x");
  EXPECT_EQ(static_cast<int>(again.GetProfileInt("ENV", "POS", 7)), -5);
  EXPECT_EQ(again.GetProfileInt("ENV", "OTHER", 7), 7u);
  EXPECT_FALSE(again.WriteProfileString("S", "a=b", "x"));
  EXPECT_FALSE(again.WriteProfileString(nullptr, "a", "x"));
}

TEST(WinApp, looksAtTheDiskOnce) {
  support::TestPlatform platform;
  platform.folder.write("configuration/app.ini", "[S]\nk=1\n");
  support::FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  CWinApp application("app");
  EXPECT_EQ(application.GetProfileInt("S", "k", 0), 1u);
  const int asked = files.opened + files.asked + files.listed;
  for (int i = 0; i < 10; ++i) EXPECT_EQ(application.GetProfileString("S", "k"), "1");
  EXPECT_EQ(files.opened + files.asked + files.listed, asked);
}

TEST(WinApp, neverSpoilsAProfileItCannotReadOrWrite) {
  support::TestPlatform platform;
  platform.folder.write("configuration/app.ini", "[S]\nk=1\n");
  support::FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  {
    files.room = 3;
    CWinApp application("app");
    EXPECT_FALSE(application.WriteProfileString("S", "k", "2"));
    EXPECT_EQ(application.GetProfileString("S", "k"), "2");  // for this run
  }
  {
    files.room = 1000;
    files.unreadable = "app.ini";
    CWinApp application("app");
    EXPECT_EQ(application.GetProfileString("S", "k", "none"), "none");
    files.unreadable.clear();
    EXPECT_FALSE(application.WriteProfileString("S", "k", "3"));
  }
  EXPECT_EQ(platform.folder.read("configuration/app.ini"), "[S]\nk=1\n");
}

TEST(WinApp, mayLiveInMemoryOrInANamedFile) {
  support::TestPlatform platform;
  CWinApp *stand_in = AfxGetApp();
  CWinApp application("app");
  application.UseMemoryProfile();
  for (CWinApp *in_memory : {stand_in, &application}) {
    EXPECT_TRUE(in_memory->WriteProfileString("S", "in memory", "1"));
    EXPECT_EQ(in_memory->GetProfileString("S", "in memory"), "1");
    EXPECT_TRUE(in_memory->WriteProfileString("S", nullptr, nullptr));
  }
  EXPECT_TRUE(platform.folder.names().empty());
  application.UseProfileFile(platform.folder.write("x/own.ini", "[S]\nk=file\n"));
  EXPECT_EQ(application.GetProfileString("S", "k"), "file");
  platform.configuration.clear();
  CWinApp homeless("app");
  EXPECT_FALSE(homeless.WriteProfileString("S", "k", "1"));
  EXPECT_EQ(homeless.GetProfileString("S", "k"), "1");
}

TEST(WinApp, answersSeveralThreads) {
  CWinApp application("app");
  application.UseMemoryProfile();
  application.WriteProfileString("S", "k", "0");
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&application, t] {
      for (int i = 0; i < 200; ++i) {
        application.WriteProfileInt("S", ("k" + std::to_string(t)).c_str(), i);
        application.GetProfileString("S", "k");
      }
    });
  for (std::thread &thread : threads) thread.join();
  for (const char *key : {"k0", "k1", "k2", "k3"}) EXPECT_EQ(application.GetProfileInt("S", key, 0), 199u);
}

}  // namespace
