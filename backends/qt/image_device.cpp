#include "backends/qt/image_device.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

#include "backends/qt/conversions.h"
#include "backends/qt/fonts.h"
#include "backends/qt/qt_platform.h"
#include "backends/qt/raster/figure_painter.h"

namespace qt_backend {

using framework::FillRule;
using framework::Paint;
using framework::PixelSpan;
using framework::TextRun;

struct ImageDevice::Shapes {
  explicit Shapes(PixelSpan pixels) : painter(pixels) {}

  raster::FigurePainter painter;
};

// Text
// -------------------------------------------------------------------------------------------------------------------

namespace {

/// Where a text goes: from its own coordinates, baseline at y = ascent, to the device's.
QTransform placement(const TextRun &run, const Font &font) {
  QTransform transform = QTransform::fromTranslate(run.top_left.x, run.top_left.y);
  if (run.font->lfEscapement != 0) transform.rotate(-run.font->lfEscapement / 10.0);
  if (font.stretch != 1) transform.scale(font.stretch, 1);
  return transform;
}

bool turned(const TextRun &run, const Font &font) {
  return run.font->lfEscapement != 0 || font.stretch != 1;
}

/// Qt keeps the edges of upright letters as sharp as asked for, those of turned ones it smoothes.
bool left_to_qt(const TextRun &run, const Font &font, const Paint &paint) {
  return paint.rop == R2_COPYPEN && (run.font->lfQuality != NONANTIALIASED_QUALITY || !turned(run, font));
}

}  // namespace

/// Qt's painter stays open; font, colour and clip are set when they change.
struct ImageDevice::Text {
  explicit Text(PixelSpan pixels_) : pixels(pixels_), image(image_on(pixels_)) {}

  void paint(const TextRun &run, const Font &font, const raster::Spans *clip, const RECT &limits);
  raster::Spans pixels_of(const TextRun &run, const Font &font, const RECT &limits);
  void open();
  void use_clip(const raster::Spans *clip, const RECT &limits);

  PixelSpan pixels;
  QImage image;
  mutable Fonts fonts;
  QPainter painter;
  std::optional<COLORREF> color;
  std::size_t font_number = 0;
  QImage mask;

 private:
  bool clipped_ = false;
};

void ImageDevice::Text::open() {
  if (painter.isActive()) return;
  painter.begin(&image);
  painter.setRenderHint(QPainter::TextAntialiasing);
}

void ImageDevice::Text::use_clip(const raster::Spans *clip, const RECT &limits) {
  const bool whole = !clip && limits.left == 0 && limits.top == 0 && limits.right == pixels.width &&
                     limits.bottom == pixels.height;
  if (whole && !clipped_) return;
  painter.resetTransform();
  clipped_ = !whole;
  if (whole) {
    painter.setClipping(false);
  } else if (!clip) {
    painter.setClipRect(limits.left, limits.top, limits.right - limits.left, limits.bottom - limits.top);
  } else {
    std::vector<QRect> rows;
    rows.reserve(clip->size());
    for (const raster::Span &span : *clip) rows.emplace_back(span.left, span.y, span.right - span.left, 1);
    QRegion region;
    region.setRects(rows.data(), static_cast<int>(rows.size()));
    painter.setClipRegion(region);
  }
}

void ImageDevice::Text::paint(const TextRun &run, const Font &font, const raster::Spans *clip,
                              const RECT &limits) {
  open();
  use_clip(clip, limits);
  if (font_number != font.number) {
    painter.setFont(run.font->lfQuality == NONANTIALIASED_QUALITY ? font.aliased : font.smooth);
    font_number = font.number;
  }
  if (color != run.color) painter.setPen(to_qt(run.color));
  color = run.color;
  if (!turned(run, font)) {
    if (!painter.transform().isIdentity()) painter.resetTransform();
    painter.drawText(QPointF(run.top_left.x, run.top_left.y + font.metrics.tmAscent), to_qt(run.text));
  } else {
    painter.setTransform(placement(run, font));
    painter.drawText(QPointF(0, font.metrics.tmAscent), to_qt(run.text));
  }
}

raster::Spans ImageDevice::Text::pixels_of(const TextRun &run, const Font &font, const RECT &limits) {
  // Slanted and fallback glyphs may leave their cells; twice the cell is room enough.
  const QString text = to_qt(run.text);
  const QTransform transform = placement(run, font);
  const double height = font.metrics.tmHeight;
  const double width = QFontMetricsF(font.aliased).horizontalAdvance(text);
  const QRect seen(limits.left, limits.top, limits.right - limits.left, limits.bottom - limits.top);
  const QRect box = transform.mapRect(QRectF(-height, -height / 2, width + 2 * height, 2 * height))
                        .toAlignedRect()
                        .intersected(seen);
  raster::Spans result;
  if (box.isEmpty()) return result;
  if (mask.width() < box.width() || mask.height() < box.height()) {
    mask = QImage(std::max(mask.width(), box.width()), std::max(mask.height(), box.height()),
                  QImage::Format_RGB32);
  }
  QPainter ink(&mask);
  ink.fillRect(0, 0, box.width(), box.height(), Qt::black);
  ink.setClipRect(0, 0, box.width(), box.height());
  ink.setRenderHint(QPainter::TextAntialiasing, false);
  ink.setTransform(transform * QTransform::fromTranslate(-box.left(), -box.top()));
  ink.setFont(font.aliased);
  ink.setPen(Qt::white);
  ink.drawText(QPointF(0, font.metrics.tmAscent), text);
  ink.end();
  for (int y = 0; y < box.height(); ++y) {
    const auto *row = reinterpret_cast<const QRgb *>(mask.constScanLine(y));
    for (int x = 0; x < box.width(); ++x) {
      // Rotated glyphs may come antialiased all the same.
      if (qGreen(row[x]) >= 128) raster::add_pixel(result, box.left() + x, box.top() + y);
    }
  }
  return result;
}

// Device
// -------------------------------------------------------------------------------------------------------------------

ImageDevice::ImageDevice(PixelSpan pixels, double pixels_per_mm)
    : PixelDevice(pixels, pixels_per_mm),
      shapes_(std::make_unique<Shapes>(pixels)),
      text_(std::make_unique<Text>(pixels)) {}

ImageDevice::~ImageDevice() = default;

void ImageDevice::polyline(std::span<const POINT> points, const Paint &paint) {
  shapes_->painter.polyline(points, paint);
}
void ImageDevice::polygon(std::span<const POINT> points, FillRule rule, const Paint &paint) {
  shapes_->painter.polygon(points, rule, paint);
}
void ImageDevice::rectangle(const RECT &box, const Paint &paint) {
  shapes_->painter.rectangle(box, paint);
}
void ImageDevice::rounded_rectangle(const RECT &box, SIZE corner, const Paint &paint) {
  shapes_->painter.rounded_rectangle(box, corner, paint);
}
void ImageDevice::ellipse(const RECT &box, const Paint &paint) {
  shapes_->painter.ellipse(box, paint);
}
void ImageDevice::arc(const RECT &box, POINT start, POINT end, const Paint &paint) {
  shapes_->painter.arc(box, start, end, paint);
}

void ImageDevice::text(const TextRun &run, const Paint &paint) {
  if (run.text.empty() || !run.font || paint.rop == R2_NOP) return;
  const Font &font = text_->fonts.find(*run.font);
  const RECT &limits = shapes_->painter.use_clip(paint.clip);
  if (limits.left >= limits.right || limits.top >= limits.bottom) return;
  if (left_to_qt(run, font, paint)) {
    text_->paint(run, font, shapes_->painter.clip_spans(), limits);
  } else {
    shapes_->painter.spans(text_->pixels_of(run, font, limits), run.color, paint);
  }
}

SIZE ImageDevice::text_extent(std::string_view text, const LOGFONTA &font) const {
  return text_->fonts.extent(text, font);
}

TEXTMETRICA ImageDevice::text_metrics(const LOGFONTA &font) const {
  return text_->fonts.find(font).metrics;
}

}  // namespace qt_backend
