#pragma once
// Pen and brush of a figure onto the bitmap: the brush does not paint where the pen paints, no pixel is
// painted twice, nothing leaves the clip. Its buffers are kept from figure to figure.

#include "backends/qt/raster/box_shape.h"
#include "backends/qt/raster/scan_converter.h"
#include "backends/qt/raster/stroker.h"
#include "backends/qt/raster/thin_line.h"
#include "tool/framework/gdi/drawing_device.h"

namespace raster {

class FigurePainter {
 public:
  explicit FigurePainter(framework::PixelSpan pixels) : pixels_(pixels) {}

  void polyline(std::span<const POINT> points, const framework::Paint &paint);
  void polygon(std::span<const POINT> points, framework::FillRule rule, const framework::Paint &paint);
  void rectangle(const RECT &asked, const framework::Paint &paint);
  void rounded_rectangle(const RECT &asked, SIZE corner, const framework::Paint &paint);
  void ellipse(const RECT &asked, const framework::Paint &paint);
  void arc(const RECT &asked, POINT start, POINT end, const framework::Paint &paint);
  /// Pixels that are already a set (of text, for instance) in one colour.
  void spans(const Spans &spans, COLORREF color, const framework::Paint &paint);
  /// The clip as runs; null where it is a rectangle inside `limits()` alone.
  const Spans *clip_spans() const { return complex_clip_ ? &clip_ : nullptr; }
  /// The part of the bitmap that a paint's clip leaves.
  const RECT &use_clip(const framework::Region *clip);

 private:
  bool begin(const framework::Paint &paint);
  void add_corners(std::span<const POINT> points);
  void add_polyline(std::span<const POINT> points, bool closed, const framework::Paint &paint);
  void stroke(std::span<const Point> points, bool closed, const framework::DevicePen &pen);
  void fill_inside(std::span<const Point> points, framework::FillRule rule);
  void box_figure(const BoxShape &shape, const std::vector<Point> &wide_path, const framework::Paint &paint);
  void thin_outline(const BoxShape &shape, const framework::DevicePen &pen);
  void finish(const framework::Paint &paint);
  void take_away(Spans &from, const Spans &taken);
  void paint_layer(Spans &layer, const framework::Paint &paint, const framework::DeviceBrush &brush);

  framework::PixelSpan pixels_;
  RECT limits_{};
  framework::Region last_clip_;
  Spans clip_;
  bool complex_clip_ = false;

  ScanConverter converter_;
  Stroker stroker_{converter_};
  std::vector<Point> corners_;
  Spans inside_;
  ThinPixels pen_;  // wide ones as well
  Spans scratch_;
};

}  // namespace raster
