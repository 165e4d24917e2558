#pragma once
// Paper: a PDF file with true millimetres, its fonts embedded. A printer to a context (IsPrinting).

#include "backends/qt/paint_device.h"

namespace qt_backend {

/// A sheet of paper. Pixels per millimetre are dots_per_inch / 25.4 exactly, so that 100 mm in MM_LOMETRIC
/// are 100 mm on paper, printed without scaling.
struct PageSetup {
  double width_mm = 210;
  double height_mm = 297;
  int dots_per_inch = 1200;
};

class PdfDevice : public PaintDevice {
 public:
  /// `path`: native, UTF-8. The file is written at end_document; what stood there before stays until then.
  explicit PdfDevice(std::string path, const PageSetup &page = {});
  ~PdfDevice() override;

  /// `name` (code page 932) becomes the title. False when the file cannot be made: see error().
  bool begin_document(std::string_view name) override;
  bool begin_page() override;
  bool end_page() override;
  bool end_document() override;

 private:
  struct Document;
  std::string path_;
  PageSetup page_;
  std::unique_ptr<Document> document_;
};

}  // namespace qt_backend
