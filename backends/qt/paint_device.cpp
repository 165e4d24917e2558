#include "backends/qt/paint_device.h"

#include <algorithm>
#include <numbers>

#include "backends/qt/canvas.h"
#include "backends/qt/conversions.h"
#include "backends/qt/raster/box_path.h"
#include "tool/framework/gdi/raster_operations.h"

namespace qt_backend {

using framework::DeviceBrush;
using framework::FillRule;
using framework::Paint;
using framework::PixelView;
using framework::Region;
using framework::TextRun;

namespace {

/// The middle of a pixel.
QPointF middle_of(POINT point) {
  return {point.x + 0.5, point.y + 0.5};
}

bool empty(const RECT &box) {
  return box.left >= box.right || box.top >= box.bottom;
}

QRectF area(const RECT &box) {
  return {qreal(box.left), qreal(box.top), qreal(box.right) - box.left, qreal(box.bottom) - box.top};
}

/// The line that the pen follows; the whole box where only the brush paints.
QRectF pen_line(const RECT &box, const Paint &paint) {
  if (!paint.pen.visible) return area(box);
  const raster::RealBox line = raster::middle_line(box, paint.pen.width, paint.pen.inside_frame);
  return {line.left + 0.5, line.top + 0.5, line.right - line.left, line.bottom - line.top};
}

QPainterPath path_through(std::span<const POINT> points) {
  QPainterPath path(middle_of(points[0]));
  for (const POINT &point : points.subspan(1)) path.lineTo(middle_of(point));
  return path;
}

double degrees(double radians) {
  return radians * 180 / std::numbers::pi;
}

}  // namespace

PaintDevice::PaintDevice(std::unique_ptr<Canvas> canvas, const framework::DeviceCapabilities &capabilities)
    : canvas_(std::move(canvas)), capabilities_(capabilities) {}

PaintDevice::~PaintDevice() = default;

bool PaintDevice::fail(const std::string &reason) {
  if (error_.empty()) error_ = reason;
  return false;
}

void PaintDevice::polyline(std::span<const POINT> points, const Paint &paint) {
  if (points.size() < 2 || !paint.pen.visible || paint.rop == R2_NOP) return;
  canvas_->stroke(path_through(points), paint.pen, paint.clip);
}

void PaintDevice::polygon(std::span<const POINT> points, FillRule rule, const Paint &paint) {
  if (points.size() < 2 || paint.rop == R2_NOP) return;
  QPainterPath path = path_through(points);
  path.closeSubpath();
  path.setFillRule(rule == FillRule::winding ? Qt::WindingFill : Qt::OddEvenFill);
  canvas_->figure(path, paint);
}

void PaintDevice::rectangle(const RECT &box, const Paint &paint) {
  if (empty(box) || paint.rop == R2_NOP) return;
  QPainterPath path;
  path.addRect(pen_line(box, paint));
  canvas_->figure(path, paint);
}

void PaintDevice::rounded_rectangle(const RECT &box, SIZE corner, const Paint &paint) {
  if (empty(box) || paint.rop == R2_NOP) return;
  const QRectF line = pen_line(box, paint);
  const double smaller = area(box).width() - line.width();
  QPainterPath path;
  path.addRoundedRect(line, std::max(0.0, corner.cx - smaller) / 2, std::max(0.0, corner.cy - smaller) / 2);
  canvas_->figure(path, paint);
}

void PaintDevice::ellipse(const RECT &box, const Paint &paint) {
  if (empty(box) || paint.rop == R2_NOP) return;
  QPainterPath path;
  path.addEllipse(pen_line(box, paint));
  canvas_->figure(path, paint);
}

void PaintDevice::arc(const RECT &box, POINT start, POINT end, const Paint &paint) {
  if (empty(box) || !paint.pen.visible || paint.rop == R2_NOP) return;
  const QRectF line = pen_line(box, paint);
  const double from = raster::direction_of(box, start);
  const double turn = raster::turn_between(from, raster::direction_of(box, end));
  QPainterPath path;
  if (turn == 0) {
    path.addEllipse(line);
  } else {
    const double first = raster::ellipse_parameter(line.width(), line.height(), from);
    const double last = raster::ellipse_parameter(line.width(), line.height(), from + turn);
    path.arcMoveTo(line, degrees(first));
    path.arcTo(line, degrees(first), degrees(last - first));
  }
  canvas_->stroke(path, paint.pen, paint.clip);
}

void PaintDevice::fill_region(const Region &region, const Paint &paint) {
  if (paint.rop != R2_NOP) canvas_->fill(path_of(region), paint.brush, paint.clip);
}

void PaintDevice::text(const TextRun &run, const Paint &paint) {
  if (!run.text.empty() && run.font && paint.rop != R2_NOP) canvas_->text(run, paint.clip);
}

SIZE PaintDevice::text_extent(std::string_view text, const LOGFONTA &font) const {
  return canvas_->fonts.extent(text, font);
}

TEXTMETRICA PaintDevice::text_metrics(const LOGFONTA &font) const {
  return canvas_->fonts.find(font).metrics;
}

void PaintDevice::set_pixel(POINT point, COLORREF color, const Paint &paint) {
  QPainterPath path;
  path.addRect(point.x, point.y, 1, 1);
  canvas_->fill(path, {DeviceBrush::Kind::solid, HS_HORIZONTAL, color, std::nullopt}, paint.clip);
}

void PaintDevice::put_pixels(const RECT &target, PixelView source, const RECT &part, DWORD operation, int,
                             const Paint &paint) {
  const QRectF place = area(target).normalized();
  const framework::TernaryRop rop(operation);
  if (!rop.uses_source()) {
    DeviceBrush brush = paint.brush;
    if (operation == BLACKNESS || operation == WHITENESS) {
      brush = {DeviceBrush::Kind::solid, HS_HORIZONTAL, operation == BLACKNESS ? 0U : 0xFFFFFFU,
               std::nullopt};
    } else if (!rop.uses_pattern()) {
      return;
    }
    QPainterPath path;
    path.addRect(place);
    canvas_->fill(path, brush, paint.clip);
    return;
  }
  const QRectF taken = area(part).normalized();
  QImage image = image_on(source).copy(taken.toRect());
  if (image.isNull() || place.isEmpty()) return;
  const bool across = (target.right < target.left) != (part.right < part.left);
  const bool down = (target.bottom < target.top) != (part.bottom < part.top);
  if (across || down) image = image.mirrored(across, down);
  if (operation == NOTSRCCOPY) image.invertPixels();
  canvas_->image(place, image, paint.clip);
}

}  // namespace qt_backend
