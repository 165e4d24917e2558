#pragma once
// The seam to the desktop: whoever shows windows installs a Platform once. Without one a headless platform
// answers: message boxes go to a hook, metrics are fixed, drive C: is a folder of the user's own.
//
// What a platform must supply is the list of virtual functions below; texts the library shows are code page
// 932, folders are native UTF-8 paths.

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "tool/framework/gdi/pixels.h"
#include "tool/framework/types.h"

namespace framework {

class DrawingDevice;

struct MessageBox {
  std::string text;     ///< code page 932
  std::string caption;  ///< code page 932, may be empty
  UINT type;            ///< MB_... flags
};

class Platform {
 public:
  virtual ~Platform() = default;

  /// Shows a message and gives the button's ID... value.
  virtual int show_message(const MessageBox &message) = 0;
  /// The rectangle round all screens, device pixels.
  virtual CRect virtual_screen() const = 0;
  /// The running program's file, code page 932; empty when unknown.
  virtual std::string module_path() const = 0;
  /// The user's folder for temporary files in the application's form, code page 932 with a trailing
  /// delimiter; empty when there is none.
  virtual std::string temporary_path() const = 0;
  /// The native folder that stands for a drive letter ('A' to 'Z'); empty: there is no such drive.
  virtual std::string drive_folder(char letter) const = 0;
  /// The native folder for the profile and the per-user registry values; empty: they are kept nowhere.
  virtual std::string configuration_folder() const = 0;
  /// Paints on pixels in memory, which outlive the device. Without a back end: transfers, fills and regions
  /// (PixelDevice), no lines and no text.
  virtual std::unique_ptr<DrawingDevice> make_image_device(PixelSpan pixels);
};

/// The platform in use.
Platform &platform();

/// Installs a platform, which must outlive its use; null brings the headless default back. Gives the one
/// before (null: the default).
Platform *install_platform(Platform *platform);

/// Answers without any desktop. Programs and tests may change every answer. Defaults:
///  - drive C: is $TOOL_DRIVE_C, else "Tracora10/drive_c" in the user's data folder ($XDG_DATA_HOME,
///  ~/.local/share);
///    another drive X: is $TOOL_DRIVE_X, else missing;
///  - temporary files lie in C:\temp\;
///  - the configuration folder is "Tracora10" in $XDG_CONFIG_HOME, else in ~/.config.
class HeadlessPlatform : public Platform {
 public:
  HeadlessPlatform();

  int show_message(const MessageBox &message) override;
  CRect virtual_screen() const override { return screen; }
  std::string module_path() const override { return module; }
  std::string temporary_path() const override { return temporary; }
  std::string drive_folder(char letter) const override;
  std::string configuration_folder() const override { return configuration; }

  std::function<int(const MessageBox &)> message_hook;  ///< without one every message is answered with IDOK
  CRect screen{0, 0, 1920, 1080};
  std::string module;
  std::string temporary = "C:\\temp\\";
  std::map<char, std::string> drives;  ///< by capital letter
  std::string configuration;
};

/// Installs a platform for the lifetime of the scope.
class PlatformScope {
 public:
  explicit PlatformScope(Platform &used) : before_(install_platform(&used)) {}
  ~PlatformScope() { install_platform(before_); }
  PlatformScope(const PlatformScope &) = delete;
  PlatformScope &operator=(const PlatformScope &) = delete;

 private:
  Platform *before_;
};

}  // namespace framework
