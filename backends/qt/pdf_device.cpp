#include "backends/qt/pdf_device.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <cmath>

#include "backends/qt/canvas.h"
#include "backends/qt/conversions.h"
#include "backends/qt/output_file.h"
#include "backends/qt/qt_platform.h"

namespace qt_backend {

namespace {

constexpr double mm_per_inch = 25.4;

framework::DeviceCapabilities paper(const PageSetup &page) {
  framework::DeviceCapabilities able;
  able.printer = true;
  able.pixels_per_mm_x = able.pixels_per_mm_y = page.dots_per_inch / mm_per_inch;
  able.width = static_cast<int>(std::lround(page.width_mm * able.pixels_per_mm_x));
  able.height = static_cast<int>(std::lround(page.height_mm * able.pixels_per_mm_y));
  return able;
}

bool usable(const PageSetup &page) {
  const auto side = [](double mm) { return mm >= 10 && mm <= 5000; };
  return side(page.width_mm) && side(page.height_mm) && page.dots_per_inch >= 72 &&
         page.dots_per_inch <= 4800;
}

}  // namespace

struct PdfDevice::Document {
  explicit Document(const std::string &path) : file(path) {}

  OutputFile file;
  std::unique_ptr<QPdfWriter> writer;
};

PdfDevice::PdfDevice(std::string path, const PageSetup &page)
    : PaintDevice(std::make_unique<Canvas>(Clipping::by_painter), paper(usable(page) ? page : PageSetup())),
      path_(std::move(path)),
      page_(page) {
  canvas().hatch_distance = 8 * capabilities().pixels_per_mm_x / (96 / mm_per_inch);
}

PdfDevice::~PdfDevice() {
  if (canvas().painter.isActive()) canvas().painter.end();
}

bool PdfDevice::begin_document(std::string_view name) {
  if (document_) return fail("the document has begun already");
  if (!usable(page_)) return fail("cannot print on such a page size or resolution");
  ensure_gui_application();
  auto document = std::make_unique<Document>(path_);
  if (!document->file.open()) return fail(document->file.reason());
  document->writer = std::make_unique<QPdfWriter>(&document->file.content());
  QPdfWriter &writer = *document->writer;
  writer.setTitle(to_qt(name));
  writer.setResolution(page_.dots_per_inch);
  const QPageSize size(QSizeF(page_.width_mm, page_.height_mm), QPageSize::Millimeter, QString(),
                       QPageSize::ExactMatch);
  writer.setPageLayout(QPageLayout(size, QPageLayout::Portrait, QMarginsF()));
  document_ = std::move(document);
  return true;
}

bool PdfDevice::begin_page() {
  if (!document_) return false;
  QPainter &painter = canvas().painter;
  if (painter.isActive()) return document_->writer->newPage() || fail("cannot begin another page");
  if (!painter.begin(document_->writer.get())) return fail("cannot begin a page");
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::LosslessImageRendering);  // an X-ray picture keeps its grey values
  return true;
}

bool PdfDevice::end_page() {
  return document_ != nullptr;
}

bool PdfDevice::end_document() {
  if (!document_) return false;
  // A document without a page is an empty sheet.
  if (!canvas().painter.isActive() && !begin_page()) {
    document_.reset();
    return false;
  }
  canvas().painter.end();
  const std::unique_ptr<Document> document = std::move(document_);
  document->writer.reset();
  return document->file.commit() || fail(document->file.reason());
}

}  // namespace qt_backend
