#pragma once
// Where the application's settings live, and window placements. Paths are code page 932.

#include <optional>
#include <string>
#include <string_view>

class CWnd;

namespace env {

inline constexpr std::string_view settings_file = "Tracora10.ini";
inline constexpr std::string_view registry_key = "SOFTWARE\\Vantre\\Tracora10";
inline constexpr std::string_view scratch_folder_name = "Tracora10_TMP";

/// The folder of the running program with a trailing delimiter; `one_up`: the folder above it. Cut to what a
/// buffer of 260 bytes holds.
std::string application_folder(bool one_up);

/// Whole numbers in the ini file at a path, or in the application's profile when the path is empty or null.
int profile_number(const char *section, const char *key, int fallback, const char *path);
void write_profile_number(const char *section, const char *key, int value, const char *path);

/// The scratch folder's path on the drive of the user's temporary files, without a trailing delimiter;
/// created when missing. Empty when the user has no temporary path.
std::string scratch_folder();

/// Keeps a window's normal rectangle and whether it is maximised in section "ENV" of the application's
/// profile, under keys that begin with the prefix.
void save_window_position(const CWnd &window, std::string_view prefix);
/// Restores them, with the window kept on the virtual screen. Without a kept size only a maximised window is
/// shown so.
void load_window_position(CWnd &window, std::string_view prefix);

}  // namespace env
