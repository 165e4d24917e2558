#include "backends/qt/qt_platform.h"

#include <QGuiApplication>
#include <array>

#include "backends/qt/fonts.h"
#include "backends/qt/image_device.h"

namespace qt_backend {

void ensure_gui_application() {
  if (QCoreApplication::instance()) return;
  static std::array<char, 5> name{'t', 'o', 'o', 'l', '\0'};
  static std::array<char, 10> option{'-', 'p', 'l', 'a', 't', 'f', 'o', 'r', 'm', '\0'};
  static std::array<char, 10> value{'o', 'f', 'f', 's', 'c', 'r', 'e', 'e', 'n', '\0'};
  static std::array<char *, 4> arguments{name.data(), option.data(), value.data(), nullptr};
  static int count = 3;
  // While it starts Qt remarks on folders that a machine without a desktop lacks; nobody needs to read that.
  const QtMessageHandler before =
      qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type == QtCriticalMsg || type == QtFatalMsg) fprintf(stderr, "%s\n", qPrintable(text));
      });
  // Never deleted: fonts may be in use until the very end.
  static auto *application = new QGuiApplication(count, arguments.data());
  static_cast<void>(application);
  qInstallMessageHandler(before);
}

std::vector<std::string> missing_fonts() {
  return missing_families();
}

std::unique_ptr<framework::DrawingDevice> QtPlatform::make_image_device(framework::PixelSpan pixels) {
  return std::make_unique<ImageDevice>(pixels);
}

}  // namespace qt_backend
