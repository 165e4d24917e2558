#include "tool/framework/platform.h"

#include <gtest/gtest.h>
#include <cstdlib>

#include "tests/support/temporary_folder.h"

namespace {

class Environment {
 public:
  Environment(const char *name, const char *value) : name_(name) {
    if (const char *before = ::getenv(name)) before_ = before;
    had_ = ::getenv(name) != nullptr;
    value ? ::setenv(name, value, 1) : ::unsetenv(name);
  }
  ~Environment() { had_ ? ::setenv(name_, before_.c_str(), 1) : ::unsetenv(name_); }
  Environment(const Environment &) = delete;
  Environment &operator=(const Environment &) = delete;

 private:
  const char *name_;
  std::string before_;
  bool had_;
};

TEST(HeadlessPlatform, findsTheUsersFolders) {
  const Environment home("HOME", "/home/u");
  const Environment no_data("XDG_DATA_HOME", nullptr);
  const Environment drive_d("TOOL_DRIVE_D", "/mnt/d");
  {
    const Environment config("XDG_CONFIG_HOME", nullptr);
    const framework::HeadlessPlatform platform;
    EXPECT_EQ(platform.configuration_folder(), "/home/u/.config/Tracora10");
    EXPECT_EQ(platform.drive_folder('C'), "/home/u/.local/share/Tracora10/drive_c");
    EXPECT_EQ(platform.drive_folder('D'), "/mnt/d");
    EXPECT_EQ(platform.drive_folder('E'), "");
  }
  const Environment config("XDG_CONFIG_HOME", "/cfg");
  const Environment data("XDG_DATA_HOME", "relative");  // counts only when absolute
  const framework::HeadlessPlatform platform;
  EXPECT_EQ(platform.configuration_folder(), "/cfg/Tracora10");
  EXPECT_TRUE(std::filesystem::equivalent(platform.module_path(), "/proc/self/exe"));
  EXPECT_EQ(platform.drive_folder('C'), "/home/u/.local/share/Tracora10/drive_c");
}

TEST(MessageBoxes, goToThePlatformInUse) {
  EXPECT_EQ(AfxMessageBox("nobody sees this"), IDOK);
  support::TestPlatform platform;
  EXPECT_EQ(AfxMessageBox("seen", MB_YESNO | MB_ICONQUESTION), IDOK);
  platform.message_hook = [](const framework::MessageBox &) { return IDNO; };
  EXPECT_EQ(AfxMessageBox(nullptr), IDNO);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "seen");
  EXPECT_EQ(platform.messages[0].type, 0x24u);
}

}  // namespace
