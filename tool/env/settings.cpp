#include "tool/env/settings.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

#include "tool/env/files.h"
#include "tool/env/path.h"
#include "tool/framework/files/private_profile.h"
#include "tool/framework/files/system_paths.h"
#include "tool/framework/platform.h"
#include "tool/framework/ui/CWinApp.h"
#include "tool/framework/ui/CWnd.h"

namespace env {
namespace {

constexpr const char *window_section = "ENV";

bool is_empty(const char *text) {
  return !text || *text == '\0';
}

std::string key(std::string_view prefix, const char *name) {
  return std::string(prefix) + name;
}

int kept_number(std::string_view prefix, const char *name) {
  return static_cast<int>(AfxGetApp()->GetProfileInt(window_section, key(prefix, name).c_str(), 0));
}

void keep_number(std::string_view prefix, const char *name, int value) {
  AfxGetApp()->WriteProfileInt(window_section, key(prefix, name).c_str(), value);
}

/// Of a folder with a trailing delimiter; a root is its own parent.
std::string parent_folder(const std::string &folder) {
  const std::string_view inner = std::string_view(folder).substr(0, folder.empty() ? 0 : folder.size() - 1);
  const std::string parent(folder_part(inner));
  return parent.empty() ? folder : parent;
}

/// Coordinates are added and subtracted without wrapping round.
int saturated(std::int64_t value) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<int>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

/// Start of a span of `size` pixels, moved to lie on a screen that begins at `screen_begin` and is
/// `screen_size` wide.
int kept_on_screen(int position, int size, int screen_begin, int screen_size) {
  const int begin = std::max(position, screen_begin);
  if (std::int64_t{begin} + size <= screen_size) return begin;
  return std::max(screen_size - size, 0);
}

}  // namespace

std::string application_folder(bool one_up) {
  std::array<char, MAX_PATH> module;
  GetModuleFileNameA(nullptr, module.data(), MAX_PATH);
  std::string folder(folder_part(module.data()));
  return with_trailing_delimiter(one_up ? parent_folder(folder) : folder);
}

int profile_number(const char *section, const char *key, int fallback, const char *path) {
  return static_cast<int>(is_empty(path) ? AfxGetApp()->GetProfileInt(section, key, fallback)
                                         : GetPrivateProfileIntA(section, key, fallback, path));
}

void write_profile_number(const char *section, const char *key, int value, const char *path) {
  if (is_empty(path))
    AfxGetApp()->WriteProfileInt(section, key, value);
  else
    WritePrivateProfileStringA(section, key, std::to_string(value).c_str(), path);
}

std::string scratch_folder() {
  std::array<char, MAX_PATH> temporary;
  const DWORD length = GetTempPathA(MAX_PATH, temporary.data());
  if (length == 0 || length > MAX_PATH) return {};
  const std::string drive(drive_part({temporary.data(), length}));
  std::string folder = drive + "\\temp\\" + std::string(scratch_folder_name);
  make_folders(folder.c_str());
  return folder;
}

void save_window_position(const CWnd &window, std::string_view prefix) {
  WINDOWPLACEMENT placement{};
  window.GetWindowPlacement(&placement);
  const RECT &normal = placement.rcNormalPosition;
  keep_number(prefix, "MAXWINDOW", placement.showCmd == SW_SHOWMAXIMIZED ? 1 : 0);
  keep_number(prefix, "POS_X", normal.left);
  keep_number(prefix, "POS_Y", normal.top);
  keep_number(prefix, "POS_CX", saturated(std::int64_t{normal.right} - normal.left));
  keep_number(prefix, "POS_CY", saturated(std::int64_t{normal.bottom} - normal.top));
}

void load_window_position(CWnd &window, std::string_view prefix) {
  const bool maximised = kept_number(prefix, "MAXWINDOW") != 0;
  const int width = kept_number(prefix, "POS_CX");
  const int height = kept_number(prefix, "POS_CY");
  if (width < 1 || height < 1) {
    if (maximised) window.ShowWindow(SW_SHOWMAXIMIZED);
    return;
  }
  const CRect screen = framework::platform().virtual_screen();
  const int x = kept_on_screen(kept_number(prefix, "POS_X"), width, screen.left, screen.Width());
  const int y = kept_on_screen(kept_number(prefix, "POS_Y"), height, screen.top, screen.Height());
  WINDOWPLACEMENT placement{};
  placement.length = sizeof(WINDOWPLACEMENT);
  placement.flags = WPF_SETMINPOSITION;
  placement.showCmd = maximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
  placement.rcNormalPosition = {x, y, saturated(std::int64_t{x} + width),
                                saturated(std::int64_t{y} + height)};
  window.SetWindowPlacement(&placement);
}

}  // namespace env
