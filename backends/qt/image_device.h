#pragma once
// Paints on 32-bit pixels in memory, exactly the pixels that gdi/drawing_device.h states. Shapes become rows
// of pixels (raster/), which take any raster operation; text is painted by Qt.

#include <memory>

#include "tool/framework/gdi/pixel_device.h"

namespace qt_backend {

class ImageDevice : public framework::PixelDevice {
 public:
  /// The pixels must outlive the device.
  explicit ImageDevice(framework::PixelSpan pixels, double pixels_per_mm = 96 / 25.4);
  ~ImageDevice() override;

  void polyline(std::span<const POINT> points, const framework::Paint &paint) override;
  void polygon(std::span<const POINT> points, framework::FillRule rule,
               const framework::Paint &paint) override;
  void rectangle(const RECT &box, const framework::Paint &paint) override;
  void rounded_rectangle(const RECT &box, SIZE corner, const framework::Paint &paint) override;
  void ellipse(const RECT &box, const framework::Paint &paint) override;
  void arc(const RECT &box, POINT start, POINT end, const framework::Paint &paint) override;
  /// Antialiased, unless the font's quality or a raster operation forbids it.
  void text(const framework::TextRun &run, const framework::Paint &paint) override;
  SIZE text_extent(std::string_view text, const LOGFONTA &font) const override;
  TEXTMETRICA text_metrics(const LOGFONTA &font) const override;

 private:
  struct Shapes;
  struct Text;
  std::unique_ptr<Shapes> shapes_;
  std::unique_ptr<Text> text_;
};

}  // namespace qt_backend
