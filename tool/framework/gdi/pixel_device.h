#pragma once
// A device over pixels in memory. It does what needs no shapes: pixels, transfers, flood fills, regions,
// reading back. Lines, curves and text come from a back end that derives from it
// (Platform::make_image_device); without one they paint nothing.

#include "tool/framework/gdi/drawing_device.h"

namespace framework {

/// Applies a raster operation (R2_...) of a pen colour to one pixel.
std::uint32_t apply_rop2(int rop, std::uint32_t pen, std::uint32_t pixel);

class PixelDevice : public DrawingDevice {
 public:
  /// The pixels must outlive the device.
  explicit PixelDevice(PixelSpan pixels, double pixels_per_mm = 96 / 25.4);

  DeviceCapabilities capabilities() const override;
  void polyline(std::span<const POINT>, const Paint &) override {}
  void polygon(std::span<const POINT>, FillRule, const Paint &) override {}
  void rectangle(const RECT &, const Paint &) override {}
  void rounded_rectangle(const RECT &, SIZE, const Paint &) override {}
  void ellipse(const RECT &, const Paint &) override {}
  void arc(const RECT &, POINT, POINT, const Paint &) override {}
  void fill_region(const Region &region, const Paint &paint) override;
  void text(const TextRun &, const Paint &) override {}
  SIZE text_extent(std::string_view text, const LOGFONTA &font) const override;
  TEXTMETRICA text_metrics(const LOGFONTA &font) const override;
  void flood_fill(POINT seed, COLORREF color, UINT kind, const Paint &paint) override;
  std::optional<COLORREF> pixel(POINT point) const override;
  void set_pixel(POINT point, COLORREF color, const Paint &paint) override;
  void put_pixels(const RECT &target, PixelView source, const RECT &part, DWORD operation, int stretch_mode,
                  const Paint &paint) override;
  bool read_pixels(const RECT &from, PixelSpan target) const override;

 protected:
  PixelSpan pixels() const { return pixels_; }

 private:
  PixelSpan pixels_;
  double pixels_per_mm_;
};

}  // namespace framework
