#include "backends/qt/svg_device.h"

#include <QSvgGenerator>

#include "backends/qt/canvas.h"
#include "backends/qt/conversions.h"
#include "backends/qt/output_file.h"
#include "backends/qt/qt_platform.h"

namespace qt_backend {

namespace {

framework::DeviceCapabilities sheet(int width, int height, int dots_per_inch) {
  framework::DeviceCapabilities able;
  able.width = width;
  able.height = height;
  able.pixels_per_mm_x = able.pixels_per_mm_y = dots_per_inch / 25.4;
  return able;
}

}  // namespace

struct SvgDevice::Document {
  explicit Document(const std::string &path) : file(path) {}

  OutputFile file;
  QSvgGenerator generator;
  bool has_page = false;
};

SvgDevice::SvgDevice(std::string path, int width, int height, int dots_per_inch)
    : PaintDevice(std::make_unique<Canvas>(Clipping::by_geometry), sheet(width, height, dots_per_inch)),
      path_(std::move(path)),
      dots_per_inch_(dots_per_inch) {
  canvas().hatch_distance = 8 * dots_per_inch / 96.0;
}

SvgDevice::~SvgDevice() {
  if (canvas().painter.isActive()) canvas().painter.end();
}

bool SvgDevice::begin_document(std::string_view name) {
  if (document_) return fail("the document has begun already");
  const framework::DeviceCapabilities able = capabilities();
  if (able.width <= 0 || able.height <= 0 || dots_per_inch_ <= 0)
    return fail("cannot draw on a picture without size");
  ensure_gui_application();
  auto document = std::make_unique<Document>(path_);
  if (!document->file.open()) return fail(document->file.reason());
  document->generator.setOutputDevice(&document->file.content());
  document->generator.setTitle(to_qt(name));
  document->generator.setResolution(dots_per_inch_);
  document->generator.setSize(QSize(able.width, able.height));
  document->generator.setViewBox(QRect(0, 0, able.width, able.height));
  if (!canvas().painter.begin(&document->generator)) return fail("cannot begin the picture");
  document_ = std::move(document);
  return true;
}

bool SvgDevice::begin_page() {
  if (!document_ || document_->has_page) return false;
  document_->has_page = true;
  return true;
}

bool SvgDevice::end_document() {
  if (!document_) return false;
  canvas().painter.end();
  const std::unique_ptr<Document> document = std::move(document_);
  return document->file.commit() || fail(document->file.reason());
}

}  // namespace qt_backend
