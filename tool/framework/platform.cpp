#include "tool/framework/platform.h"

#include <pwd.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <vector>

#include "tool/framework/gdi/pixel_device.h"
#include "tool/framework/text/cp932.h"
#include "tool/framework/ui/message_box.h"

namespace framework {
namespace {

constexpr const char *product_folder = "/Tracora10";

std::string environment(const std::string &name) {
  const char *value = std::getenv(name.c_str());
  return value ? value : "";
}

std::string home_folder() {
  if (std::string home = environment("HOME"); !home.empty()) return home;
  std::vector<char> buffer(4096);
  passwd entry{};
  passwd *found = nullptr;
  getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
  return found && found->pw_dir ? found->pw_dir : "";
}

/// The folder a variable names (only an absolute path counts), else the place below the home folder; empty
/// without either.
std::string user_folder(const char *variable, const char *below_home) {
  if (std::string folder = environment(variable); folder.starts_with('/')) return folder;
  const std::string home = home_folder();
  return home.empty() ? "" : home + below_home;
}

std::string running_program() {
  std::string path(4096, '\0');
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return cp932_from_utf8(path).value_or(path);
}

std::atomic<Platform *> installed_platform{nullptr};

}  // namespace

std::unique_ptr<DrawingDevice> Platform::make_image_device(PixelSpan pixels) {
  return std::make_unique<PixelDevice>(pixels);
}

HeadlessPlatform::HeadlessPlatform() : module(running_program()) {
  if (const std::string folder = user_folder("XDG_CONFIG_HOME", "/.config"); !folder.empty())
    configuration = folder + product_folder;
  if (const std::string folder = user_folder("XDG_DATA_HOME", "/.local/share"); !folder.empty())
    drives['C'] = folder + product_folder + "/drive_c";
  for (char letter = 'A'; letter <= 'Z'; ++letter)
    if (std::string folder = environment(std::string("TOOL_DRIVE_") + letter); !folder.empty())
      drives[letter] = std::move(folder);
}

int HeadlessPlatform::show_message(const MessageBox &message) {
  return message_hook ? message_hook(message) : IDOK;
}

std::string HeadlessPlatform::drive_folder(char letter) const {
  const auto drive = drives.find(letter);
  return drive == drives.end() ? std::string() : drive->second;
}

Platform &platform() {
  if (Platform *installed = installed_platform.load(std::memory_order_acquire)) return *installed;
  static HeadlessPlatform headless;
  return headless;
}

Platform *install_platform(Platform *platform) {
  return installed_platform.exchange(platform);
}

}  // namespace framework
