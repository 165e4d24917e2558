#include "apps/drawing/film_picture.h"

#include "apps/common/tracing_file.h"
#include "backends/qt/pictures.h"
#include "backends/qt/qt_platform.h"

namespace app {

framework::Picture load_film(const std::string &path) {
  qt_backend::ensure_gui_application();
  qt_backend::LoadedPicture loaded = qt_backend::load_picture(path);
  if (loaded.picture.empty()) throw InputError(loaded.error, "", "a PNG, JPEG or BMP picture");
  return std::move(loaded.picture);
}

}  // namespace app
