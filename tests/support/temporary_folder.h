#pragma once
// A folder of its own for one test, and a platform whose drives and settings lie in it.

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tool/framework/platform.h"
#include "tool/framework/ui/message_box.h"

namespace support {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tool_test_XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder &) = delete;
  TemporaryFolder &operator=(const TemporaryFolder &) = delete;

  const std::string &path() const { return path_; }
  std::string path(const std::string &name) const { return path_ + "/" + name; }
  /// Writes a file, with its folders.
  std::string write(const std::string &name, const std::string &content) const {
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary) << content;
    return path(name);
  }
  std::string read(const std::string &name) const {
    std::ostringstream content;
    content << std::ifstream(path(name), std::ios::binary).rdbuf();
    return content.str();
  }
  bool has(const std::string &name) const { return std::filesystem::exists(path(name)); }
  void make_read_only(const std::string &name) const {
    using std::filesystem::perms;
    std::filesystem::permissions(path(name), perms::owner_read | perms::group_read);
  }
  /// Everything in the folder, relative and in order.
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(path_))
      names.push_back(entry.path().lexically_relative(path_).string());
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::string path_;
};

/// Remembers messages; drive C:, settings and registry values lie in a temporary folder.
class TestPlatform : public framework::HeadlessPlatform {
 public:
  TestPlatform() {
    drives = {{'C', folder.path("c")}};
    configuration = folder.path("configuration");
    message_hook = [this](const framework::MessageBox &message) {
      messages.push_back(message);
      return IDOK;
    };
  }

  TemporaryFolder folder;
  std::vector<framework::MessageBox> messages;

 private:
  framework::PlatformScope scope_{*this};
};

/// Returns to the folder that was current before.
class CurrentFolderScope {
 public:
  CurrentFolderScope() : before_(std::filesystem::current_path()) {}
  ~CurrentFolderScope() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }

 private:
  std::filesystem::path before_;
};

}  // namespace support
