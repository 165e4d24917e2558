#include <gtest/gtest.h>

#include "tests/support/faulty_file_system.h"
#include "tests/support/temporary_folder.h"
#include "tool/framework/files/ini_document.h"
#include "tool/framework/files/private_profile.h"
#include "tool/framework/files/registry.h"

namespace {

constexpr const char *sample =
    "; made by hand\r\n"
    "stray=1\r\n"
    "[Main]\r\n"
    "Name = \"quoted \" \r\n"
    "Empty=\r\n"
    ";Off=1\r\n"
    "Number= -12px\r\n"
    "Path=C:\\\x95\x5C\\x = y\r\n"
    "\r\n"
    "[ Other ]\n"
    "name='single'\n"
    "[main]\n"
    "Late=1";

std::string value(const std::string &path, const char *section, const char *key, DWORD size = 100) {
  char buffer[100];
  const DWORD length = GetPrivateProfileStringA(section, key, "none  ", buffer, size, path.c_str());
  return std::string(buffer, length);
}

TEST(PrivateProfile, reads) {
  using namespace std::string_literals;
  const support::TemporaryFolder folder;
  const std::string path = folder.write("x.ini", sample);
  struct Row {
    const char *section, *key;
    std::string value;
    DWORD size = 100;
  };
  // The fallback loses its trailing blanks, and of two sections the first counts.
  const Row rows[] = {Row{"MAIN", "name", "quoted "},
                      Row{"Main", "Empty", ""},
                      Row{"Main", "Off", "none"},
                      Row{"Main", "path", "C:\\\x95\x5C\\x = y"},
                      Row{"Other", "Name", "single"},
                      Row{"Main", "Late", "none"},
                      Row{"Main", "stray", "none"},
                      Row{"Nowhere", "Name", "none"},
                      Row{"Main", "Name", "quo", 4},
                      Row{"Main", "Name", "", 1},
                      Row{"Main", nullptr, "Name\0Empty\0Number\0Path\0"s},
                      Row{nullptr, nullptr, "Main\0Other\0main\0"s},
                      Row{nullptr, nullptr, "Main\0O"s, 8}};
  for (const Row &row : rows) EXPECT_EQ(value(path, row.section, row.key, row.size), row.value);
  EXPECT_EQ(value(folder.path("missing.ini"), "Main", "Name"), "none");
  struct Number {
    const char *key;
    int value;
  };
  for (const Number &row :
       {Number{"Number", -12}, Number{"Name", 0}, Number{"Empty", 7}, Number{"Missing", 7}})
    EXPECT_EQ(static_cast<int>(GetPrivateProfileIntA("Main", row.key, 7, path.c_str())), row.value)
        << row.key;
}

TEST(PrivateProfile, writesOneLineAndKeepsTheOthers) {
  struct Row {
    const char *name, *before;
    const char *section, *key;
    const char *value, *after;
  };
  const Row rows[] = {
      {"change", "[A]\r\nx = 1 \r\n;c\r\ny=2\r\n", "a", "X", "9", "[A]\r\nX=9\r\n;c\r\ny=2\r\n"},
      {"add before the blank line", "[A]\r\nx=1\r\n\r\n[B]\r\n", "A", "y", "2",
       "[A]\r\nx=1\r\ny=2\r\n\r\n[B]\r\n"},
      {"add a section", "[A]\r\nx=1", "B", "y", "2", "[A]\r\nx=1\r\n[B]\r\ny=2\r\n"},
      {"to nothing", "", "B", "y", "", "[B]\r\ny=\r\n"},
      {"remove a key", "[A]\nx=1\ny=2\n", "A", "x", nullptr, "[A]\ny=2\n"},
      {"remove a section", "a\r\n[A]\r\nx=1\r\n[B]\r\n", "A", nullptr, nullptr, "a\r\n[B]\r\n"},
      {"remove what is missing", "[A]\r\nx=1\r\n", "C", nullptr, nullptr, "[A]\r\nx=1\r\n"}};
  for (const Row &row : rows) {
    const support::TemporaryFolder folder;
    const std::string path = folder.write("x.ini", row.before);
    EXPECT_TRUE(WritePrivateProfileStringA(row.section, row.key, row.value, path.c_str())) << row.name;
    EXPECT_EQ(folder.read("x.ini"), row.after) << row.name;
  }
}

TEST(PrivateProfile, refusesWhatALineCannotHold) {
  const support::TemporaryFolder folder;
  const std::string path = folder.write("x.ini", "[A]\r\n");
  for (const auto &[section, key, text] : {std::array{"A", "k", "1\r\n[Evil]"},
                                           {"A", "k=", "1"},
                                           {"A", "k\nx", "1"},
                                           {"A]", "k", "1"},
                                           {"A", "", "1"},
                                           {"A", ";k", "1"}})
    EXPECT_FALSE(WritePrivateProfileStringA(section, key, text, path.c_str())) << section << key;
  EXPECT_EQ(folder.read("x.ini"), "[A]\r\n");
  EXPECT_FALSE(WritePrivateProfileStringA("A", "k", "1", folder.path("no/x.ini").c_str()));
  EXPECT_FALSE(WritePrivateProfileStringA("A", "k", "1", ""));
}

TEST(PrivateProfile, losesNothingOnAFullOrUnreadableDisk) {
  const support::TemporaryFolder folder;
  const std::string path = folder.write("x.ini", sample);
  support::FaultyFileSystem files;
  const framework::FileSystemScope scope(files);
  files.room = 10;
  EXPECT_FALSE(WritePrivateProfileStringA("Main", "Name", "new", path.c_str()));
  files.room = 10000;
  files.readable = 10;
  EXPECT_FALSE(WritePrivateProfileStringA("Main", "Name", "new", path.c_str()));
  EXPECT_EQ(folder.read("x.ini"), sample);
}

TEST(IniDocument, leavesAnyTextAsItIs) {
  for (const std::string text : {"", "\r", "\n\r\n\r", "[", "[]", "=", "[a\r\n=x\r\n]", "\xFF\x81", "a=b"})
    EXPECT_EQ(framework::IniDocument(text).text(), text);
}

TEST(ProtectedValue, comesBackAsItWas) {
  using namespace std::string_literals;
  for (const std::string &text :
       {""s, "plain"s, "C:\\road\\new"s, " blanks "s, "\"quoted\""s, "'"s, "'a'"s, "hex:41"s, "two\r\nlines"s,
        "\t"s, "a\0b"s, "\x95\x5C"s, "; no comment"s, "a=b"s}) {
    framework::IniDocument document;
    ASSERT_TRUE(document.set("S", "k", framework::protected_value(text))) << text;
    const framework::IniDocument read(document.text());
    EXPECT_EQ(framework::unprotected_value(*read.find("S", "k")), text);
  }
}

TEST(Registry, keepsTextsInOneFileOfTheUser) {
  support::TestPlatform platform;
  EXPECT_FALSE(framework::read_registry_text("Key", "name"));
  EXPECT_TRUE(framework::write_registry_text("Key", "name", "value"));
  EXPECT_TRUE(framework::write_registry_text("Key", "", "own"));
  EXPECT_EQ(framework::read_registry_text("KEY", "Name"), "value");
  EXPECT_EQ(framework::read_registry_text("Key", ""), "own");
  EXPECT_FALSE(framework::read_registry_text("Other", "name"));
  EXPECT_TRUE(platform.folder.has("configuration/registry.ini"));
  for (const std::string &nowhere : {std::string(), platform.folder.write("file", "")}) {
    platform.configuration = nowhere;
    EXPECT_FALSE(framework::open_registry_key("Key"));
    EXPECT_FALSE(framework::write_registry_text("Key", "name", "x"));
    EXPECT_FALSE(framework::read_registry_text("Key", "name"));
  }
}

}  // namespace
