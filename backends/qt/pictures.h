#pragma once
// Pictures from and to files.

#include <string>
#include <string_view>

#include "tool/framework/gdi/pixels.h"

namespace qt_backend {

struct LoadedPicture {
  framework::Picture picture;  ///< empty when it could not be read
  std::string error;           ///< why, UTF-8; empty when it could
};

/// Reads a PNG, JPEG or BMP file, told apart by content; turned upright where the camera says how. `path`:
/// native, UTF-8. Transparent parts lie on white.
LoadedPicture load_picture(const std::string &path);

/// Writes PNG, JPEG (quality 95) or BMP by the ending of the name; the file appears complete or not at all.
/// `dots_per_inch`: noted in the file. False: `error` says why.
bool save_picture(framework::PixelView picture, const std::string &path, std::string &error,
                  double dots_per_inch = 96);

}  // namespace qt_backend
