#pragma once
// Qt's painter on a document, with our pens, brushes and clips. Private to the back end.

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include "backends/qt/fonts.h"
#include "backends/qt/paint_device.h"

namespace qt_backend {

/// Qt's SVG generator takes no notice of a clip, so for SVG shapes are cut before they are painted: what lies
/// inside is painted as it is, what crosses the clip as its outline cut along it.
enum class Clipping { by_painter, by_geometry };

class PaintDevice::Canvas {
 public:
  explicit Canvas(Clipping clipping) : clipping_(clipping) {}
  virtual ~Canvas() = default;
  Canvas(const Canvas &) = delete;
  Canvas &operator=(const Canvas &) = delete;

  QPainter painter;
  Fonts fonts;
  double hatch_distance = 8;  ///< device pixels

  /// Inside in the brush, then outline in the pen. Nothing unless the painter is active.
  void figure(const QPainterPath &path, const framework::Paint &paint);
  void fill(const QPainterPath &path, const framework::DeviceBrush &brush, const framework::Region *clip);
  void stroke(const QPainterPath &path, const framework::DevicePen &pen, const framework::Region *clip);
  void text(const framework::TextRun &run, const framework::Region *clip);
  void image(const QRectF &target, const QImage &image, const framework::Region *clip);

 private:
  enum class Share { none, part, all };
  /// How much of a box the clip leaves, and the clip made ready for the painter if that does the cutting.
  Share share(const QRectF &box, const framework::Region *clip);
  bool cuts(Share part) const { return part == Share::part && clipping_ == Clipping::by_geometry; }
  void set_painter_clip(const framework::Region *clip);
  void fill_solid(const QPainterPath &path, COLORREF color, Share part);
  void fill_hatched(const QPainterPath &path, const framework::DeviceBrush &brush, Share part);

  Clipping clipping_;
  bool painter_clipped_ = false;
  framework::Region clip_;  // as `clip_path_` has it
  QPainterPath clip_path_;
};

QPainterPath path_of(const framework::Region &region);

}  // namespace qt_backend
