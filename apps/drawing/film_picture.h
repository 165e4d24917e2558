#pragma once
// The X-ray picture that lies under a tracing.

#include <string>

#include "tool/framework/gdi/pixels.h"

namespace app {

/// Reads a PNG, JPEG or BMP. Throws InputError.
framework::Picture load_film(const std::string &path);

}  // namespace app
