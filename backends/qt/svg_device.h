#pragma once
// An SVG picture: lines, shapes and text as such. It takes no raster operations, and clips for itself.

#include "backends/qt/paint_device.h"

namespace qt_backend {

class SvgDevice : public PaintDevice {
 public:
  /// `path`: native, UTF-8. Size in device pixels, so many to the inch; the file says its size in
  /// millimetres.
  SvgDevice(std::string path, int width, int height, int dots_per_inch = 96);
  ~SvgDevice() override;

  /// `name` (code page 932) becomes the title. False when the file cannot be made: see error().
  bool begin_document(std::string_view name) override;
  /// One page only.
  bool begin_page() override;
  bool end_document() override;

 private:
  struct Document;
  std::string path_;
  int dots_per_inch_;
  std::unique_ptr<Document> document_;
};

}  // namespace qt_backend
