#pragma once
// What paper and SVG have in common: shapes without pixels, painted by Qt. A raster operation is painted as a
// copy; flood fills do nothing and no pixel can be read. Lines run through the middle of their pixels.
//
// A document exists between begin_document and end_document; only then does the file appear, complete.
// Anything that fails in between, or a device that goes without end_document, leaves nothing behind.

#include <memory>
#include <string>

#include "tool/framework/gdi/drawing_device.h"

namespace qt_backend {

class PaintDevice : public framework::DrawingDevice {
 public:
  ~PaintDevice() override;

  /// Why the document could not be written, UTF-8; empty as long as nothing failed.
  const std::string &error() const { return error_; }

  framework::DeviceCapabilities capabilities() const override { return capabilities_; }
  void polyline(std::span<const POINT> points, const framework::Paint &paint) override;
  void polygon(std::span<const POINT> points, framework::FillRule rule,
               const framework::Paint &paint) override;
  void rectangle(const RECT &box, const framework::Paint &paint) override;
  void rounded_rectangle(const RECT &box, SIZE corner, const framework::Paint &paint) override;
  void ellipse(const RECT &box, const framework::Paint &paint) override;
  void arc(const RECT &box, POINT start, POINT end, const framework::Paint &paint) override;
  void fill_region(const framework::Region &region, const framework::Paint &paint) override;
  void text(const framework::TextRun &run, const framework::Paint &paint) override;
  SIZE text_extent(std::string_view text, const LOGFONTA &font) const override;
  TEXTMETRICA text_metrics(const LOGFONTA &font) const override;
  void flood_fill(POINT, COLORREF, UINT, const framework::Paint &) override {}
  std::optional<COLORREF> pixel(POINT) const override { return std::nullopt; }
  void set_pixel(POINT point, COLORREF color, const framework::Paint &paint) override;
  /// Operations of source and target are taken as a copy of the source.
  void put_pixels(const RECT &target, framework::PixelView source, const RECT &part, DWORD operation,
                  int stretch_mode, const framework::Paint &paint) override;
  bool read_pixels(const RECT &, framework::PixelSpan) const override { return false; }

 protected:
  class Canvas;
  PaintDevice(std::unique_ptr<Canvas> canvas, const framework::DeviceCapabilities &capabilities);

  Canvas &canvas() { return *canvas_; }
  bool fail(const std::string &reason);  ///< always false

 private:
  std::unique_ptr<Canvas> canvas_;
  framework::DeviceCapabilities capabilities_;
  std::string error_;
};

}  // namespace qt_backend
