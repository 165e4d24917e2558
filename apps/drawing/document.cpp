#include "apps/drawing/document.h"

#include <algorithm>
#include <cmath>

#include "backends/qt/image_device.h"
#include "backends/qt/pdf_device.h"
#include "backends/qt/pictures.h"
#include "backends/qt/qt_platform.h"
#include "backends/qt/svg_device.h"
#include "tool/framework/text/cp932.h"

namespace app {
namespace {

constexpr int vector_dots_per_inch = 1200;
constexpr double mm_per_inch = 25.4;

int pixels(double mm, double per_mm) {
  return static_cast<int>(std::lround(mm * per_mm));
}

/// Lines and dashes on every sheet are as wide and long as on paper.
template <typename Device>
class OnPaper : public Device {
 public:
  using Device::Device;
  framework::DeviceCapabilities capabilities() const override {
    framework::DeviceCapabilities all = Device::capabilities();
    all.printer = true;
    return all;
  }
};

/// PDF and SVG.
template <typename Device>
class VectorDocument : public Document {
 public:
  template <typename... Arguments>
  VectorDocument(const std::string &title, Arguments &&...arguments)
      : device_(std::forward<Arguments>(arguments)...),
        context_(device_),
        sheet_(context_, vector_dots_per_inch / mm_per_inch) {
    require(device_.begin_document(framework::cp932_for_display(title)) && device_.begin_page());
  }

  const Sheet &sheet() const override { return sheet_; }
  void next_page() override { require(device_.end_page() && device_.begin_page()); }
  void finish() override { require(device_.end_page() && device_.end_document() && device_.error().empty()); }

 private:
  void require(bool good) {
    if (!good) throw OutputError(device_.error());
  }

  OnPaper<Device> device_;
  CDC context_;
  Sheet sheet_;
};

/// A PNG, drawn twice as fine and averaged, which smooths its lines and letters.
class PictureDocument : public Document {
 public:
  PictureDocument(std::string path, const PaperSize &paper, double density)
      : path_(std::move(path)),
        density_(density),
        fine_(2 * pixels(paper.width, density), 2 * pixels(paper.height, density), RGB(255, 255, 255)),
        device_(fine_.span(), 2 * density),
        context_(device_),
        sheet_(context_, 2 * density) {}

  const Sheet &sheet() const override { return sheet_; }
  void next_page() override {}
  void finish() override {
    framework::Picture result(fine_.width() / 2, fine_.height() / 2);
    average(result);
    std::string error;
    if (!qt_backend::save_picture(result.view(), path_, error, density_ * mm_per_inch))
      throw OutputError(error);
  }

 private:
  void average(framework::Picture &result) const {
    const framework::PixelView from = fine_.view();
    const framework::PixelSpan to = result.span();
    for (int y = 0; y < to.height; ++y) {
      const std::uint32_t *const upper = from.row(2 * y), *const lower = from.row(2 * y + 1);
      for (int x = 0; x < to.width; ++x)
        to.row(y)[x] = mean({upper[2 * x], upper[2 * x + 1], lower[2 * x], lower[2 * x + 1]});
    }
  }
  static std::uint32_t mean(std::initializer_list<std::uint32_t> four) {
    std::uint32_t result = 0xFF000000U;
    for (const int shift : {0, 8, 16}) {
      std::uint32_t sum = 2;
      for (const std::uint32_t pixel : four) sum += pixel >> shift & 0xFF;
      result |= sum / 4 << shift;
    }
    return result;
  }

  std::string path_;
  double density_;
  framework::Picture fine_;
  OnPaper<qt_backend::ImageDevice> device_;
  CDC context_;
  Sheet sheet_;
};

}  // namespace

std::optional<FileKind> file_kind(const std::string &path) {
  const std::size_t dot = path.rfind('.');
  std::string ending = dot == std::string::npos ? "" : path.substr(dot + 1);
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  if (ending == "pdf") return FileKind::pdf;
  if (ending == "svg") return FileKind::svg;
  if (ending == "png") return FileKind::png;
  return std::nullopt;
}

std::unique_ptr<Document> Document::open(const std::string &path, FileKind kind, const PaperSize &paper,
                                         const std::string &title, double picture_density) {
  qt_backend::ensure_gui_application();
  const double per_mm = vector_dots_per_inch / mm_per_inch;
  switch (kind) {
    case FileKind::pdf:
      return std::make_unique<VectorDocument<qt_backend::PdfDevice>>(
          title, path, qt_backend::PageSetup{paper.width, paper.height, vector_dots_per_inch});
    case FileKind::svg:
      return std::make_unique<VectorDocument<qt_backend::SvgDevice>>(
          title, path, pixels(paper.width, per_mm), pixels(paper.height, per_mm), vector_dots_per_inch);
    case FileKind::png:
      break;
  }
  return std::make_unique<PictureDocument>(path, paper, picture_density);
}

}  // namespace app
