#include "backends/qt/pictures.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <cmath>

#include "backends/qt/conversions.h"
#include "backends/qt/output_file.h"
#include "backends/qt/qt_platform.h"

namespace qt_backend {

using framework::Picture;

namespace {

constexpr int jpeg_quality = 95;

bool readable_format(const QByteArray &format) {
  return format == "png" || format == "jpeg" || format == "jpg" || format == "bmp";
}

bool too_large(const QSize &size) {
  return size.width() > Picture::max_side || size.height() > Picture::max_side ||
         qint64{size.width()} * size.height() > Picture::max_pixels;
}

std::string size_text(const QSize &size) {
  return std::to_string(size.width()) + " x " + std::to_string(size.height());
}

LoadedPicture failed(const std::string &path, const std::string &reason) {
  return {Picture(), "cannot read " + path + ": " + reason};
}

QByteArray format_of(const std::string &path) {
  const QByteArray ending = QFileInfo(utf8_to_qt(path)).suffix().toLower().toLatin1();
  if (ending == "jpg" || ending == "jpeg") return "jpeg";
  return ending == "png" || ending == "bmp" ? ending : QByteArray();
}

}  // namespace

LoadedPicture load_picture(const std::string &path) {
  ensure_gui_application();
  QFile file(utf8_to_qt(path));
  if (QFileInfo(file).isDir()) return failed(path, "it is a folder");
  if (!file.open(QIODevice::ReadOnly)) return failed(path, file.errorString().toStdString());
  QImageReader reader(&file);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (!readable_format(reader.format())) return failed(path, "it is no PNG, JPEG or BMP picture");
  if (const QSize size = reader.size(); size.isValid() && too_large(size)) {
    return failed(path, "a picture of " + size_text(size) + " pixels is too large");
  }
  QImageReader::setAllocationLimit(0);  // Qt's own limit is below that of Picture
  const QImage image = reader.read();
  if (image.isNull()) return failed(path, reader.errorString().toStdString());
  LoadedPicture result{Picture(image.width(), image.height()), {}};
  if (result.picture.empty())
    return failed(path, "a picture of " + size_text(image.size()) + " pixels is too large");
  QImage target = image_on(result.picture.span());
  QPainter painter(&target);
  painter.drawImage(0, 0, image);
  return result;
}

bool save_picture(framework::PixelView picture, const std::string &path, std::string &error,
                  double dots_per_inch) {
  ensure_gui_application();
  const auto fail = [&](const std::string &reason) {
    error = reason;
    return false;
  };
  if (picture.width <= 0 || picture.height <= 0)
    return fail("cannot write " + path + ": the picture is empty");
  const QByteArray format = format_of(path);
  if (format.isEmpty()) return fail("cannot write " + path + ": a picture's name ends in .png, .jpg or .bmp");
  OutputFile file(path);
  if (!file.open()) return fail(file.reason());
  QImage image = image_on(picture);
  const int dots_per_meter = static_cast<int>(std::lround(dots_per_inch / 0.0254));
  image.setDotsPerMeterX(dots_per_meter);
  image.setDotsPerMeterY(dots_per_meter);
  QImageWriter writer(&file.content(), format);
  if (format == "jpeg") writer.setQuality(jpeg_quality);
  if (!writer.write(image)) return fail("cannot write " + path + ": " + writer.errorString().toStdString());
  return file.commit() || fail(file.reason());
}

}  // namespace qt_backend
