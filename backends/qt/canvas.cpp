#include "backends/qt/canvas.h"

#include <algorithm>
#include <cmath>

#include "backends/qt/conversions.h"

namespace qt_backend {

using framework::DeviceBrush;
using framework::DevicePen;
using framework::LineCap;
using framework::LineJoin;
using framework::Paint;
using framework::Region;
using framework::TextRun;

namespace {

Qt::PenCapStyle cap_style(LineCap cap) {
  return cap == LineCap::square ? Qt::SquareCap : cap == LineCap::flat ? Qt::FlatCap : Qt::RoundCap;
}

Qt::PenJoinStyle join_style(LineJoin join) {
  return join == LineJoin::bevel ? Qt::BevelJoin : join == LineJoin::miter ? Qt::SvgMiterJoin : Qt::RoundJoin;
}

QPen qt_pen(const DevicePen &pen) {
  QPen result(QBrush(to_qt(pen.color)), std::max(pen.width, 1));
  result.setCapStyle(pen.width > 1 ? cap_style(pen.cap) : Qt::FlatCap);
  result.setJoinStyle(pen.width > 1 ? join_style(pen.join) : Qt::MiterJoin);
  if (pen.width > 1) result.setMiterLimit(10);
  return result;
}

/// Qt counts dashes in widths of the pen.
QList<qreal> dash_pattern(const DevicePen &pen) {
  QList<qreal> pattern;
  const int count = std::clamp(pen.dash_count, 0, static_cast<int>(pen.dashes.size()));
  for (int i = 0; i < (count % 2 == 0 ? count : 2 * count); ++i) {
    pattern.append(std::max(pen.dashes[static_cast<std::size_t>(i % count)], 0) /
                   qreal(std::max(pen.width, 1)));
  }
  return std::ranges::any_of(pattern, [](qreal length) { return length > 0; }) ? pattern : QList<qreal>();
}

QPainterPath outline_of(const QPainterPath &path, const QPen &pen) {
  QPainterPathStroker stroker(pen);
  stroker.setCurveThreshold(0.05);
  return stroker.createStroke(path).simplified();
}

}  // namespace

QPainterPath path_of(const Region &region) {
  QPainterPath path;
  const RECT &box = region.bounds();
  switch (region.kind()) {
    case Region::Kind::empty:
      break;
    case Region::Kind::rectangle:
      path.addRect(box.left, box.top, box.right - box.left, box.bottom - box.top);
      break;
    case Region::Kind::ellipse:
      path.addEllipse(QRectF(box.left, box.top, box.right - box.left, box.bottom - box.top));
      break;
    case Region::Kind::polygon: {
      QPolygonF polygon;
      for (const POINT &point : region.points()) polygon.append(QPointF(point.x, point.y));
      path.addPolygon(polygon);
      path.closeSubpath();
      path.setFillRule(region.rule() == framework::FillRule::winding ? Qt::WindingFill : Qt::OddEvenFill);
      break;
    }
    case Region::Kind::rows:
      path.setFillRule(Qt::WindingFill);
      for (const RECT &part : region.rectangles()) {
        path.addRect(part.left, part.top, part.right - part.left, part.bottom - part.top);
      }
      path = path.simplified();
  }
  return path;
}

// Clip
// -------------------------------------------------------------------------------------------------------------------

void PaintDevice::Canvas::set_painter_clip(const Region *clip) {
  if (!clip && !painter_clipped_) return;
  painter.resetTransform();
  painter_clipped_ = clip != nullptr;
  if (clip) {
    painter.setClipPath(clip_path_);
  } else {
    painter.setClipping(false);
  }
}

PaintDevice::Canvas::Share PaintDevice::Canvas::share(const QRectF &box, const Region *clip) {
  if (!painter.isActive()) return Share::none;
  if (clip) {
    if (!(clip_ == *clip) || clip_path_.isEmpty()) {
      clip_ = *clip;
      clip_path_ = path_of(*clip);
      if (clipping_ == Clipping::by_painter) set_painter_clip(clip);
    } else if (clipping_ == Clipping::by_painter && !painter_clipped_) {
      set_painter_clip(clip);
    }
    if (!clip_path_.intersects(box)) return Share::none;
    return clip_path_.contains(box) ? Share::all : Share::part;
  }
  if (clipping_ == Clipping::by_painter) set_painter_clip(nullptr);
  return Share::all;
}

// Shapes
// -------------------------------------------------------------------------------------------------------------------

void PaintDevice::Canvas::fill_solid(const QPainterPath &path, COLORREF color, Share part) {
  painter.fillPath(cuts(part) ? path.intersected(clip_path_) : path, to_qt(color));
}

void PaintDevice::Canvas::fill_hatched(const QPainterPath &path, const DeviceBrush &brush, Share part) {
  if (brush.gap_color) fill_solid(path, *brush.gap_color, part);
  const QPainterPath shape = cuts(part) ? path.intersected(clip_path_) : path;
  // No more lines than the sheet has room for.
  const QRectF sheet(0, 0, painter.device()->width(), painter.device()->height());
  const QRectF box = shape.boundingRect() & sheet;
  const double d = hatch_distance;
  const double half = d / 16;  // of a line
  const auto lines = [&](double from, double to, auto quad) {
    QPainterPath stripes;
    const auto first = static_cast<qint64>(std::floor(from / d));
    const auto last = static_cast<qint64>(std::floor(to / d));
    for (qint64 i = first; i <= last; ++i) stripes.addPolygon(quad(static_cast<double>(i) * d));
    painter.fillPath(stripes.intersected(shape), to_qt(brush.color));
  };
  const int hatch = brush.hatch;
  if (hatch == HS_HORIZONTAL || hatch == HS_CROSS) {
    lines(box.top(), box.bottom(),
          [&](double y) { return QPolygonF(QRectF(box.left() - 1, y, box.width() + 2, 2 * half)); });
  }
  if (hatch == HS_VERTICAL || hatch == HS_CROSS) {
    lines(box.left(), box.right(),
          [&](double x) { return QPolygonF(QRectF(x, box.top() - 1, 2 * half, box.height() + 2)); });
  }
  const auto slanted = [&](double x_top, double x_bottom) {
    const double w = half * std::sqrt(2.0);
    return QPolygonF({{x_top - w, box.top()},
                      {x_top + w, box.top()},
                      {x_bottom + w, box.bottom()},
                      {x_bottom - w, box.bottom()},
                      {x_top - w, box.top()}});
  };
  if (hatch == HS_FDIAGONAL || hatch == HS_DIAGCROSS) {
    lines(box.left() - box.bottom(), box.right() - box.top(),
          [&](double c) { return slanted(c + box.top(), c + box.bottom()); });
  }
  if (hatch == HS_BDIAGONAL || hatch == HS_DIAGCROSS) {
    lines(box.left() + box.top(), box.right() + box.bottom(),
          [&](double c) { return slanted(c - box.top(), c - box.bottom()); });
  }
}

void PaintDevice::Canvas::fill(const QPainterPath &path, const DeviceBrush &brush, const Region *clip) {
  if (brush.kind == DeviceBrush::Kind::none) return;
  const Share part = share(path.boundingRect(), clip);
  if (part == Share::none) return;
  if (brush.kind == DeviceBrush::Kind::solid) {
    fill_solid(path, brush.color, part);
  } else {
    fill_hatched(path, brush, part);
  }
}

void PaintDevice::Canvas::stroke(const QPainterPath &path, const DevicePen &pen, const Region *clip) {
  QPen qpen = qt_pen(pen);
  const double reach = pen.width * (pen.join == LineJoin::miter ? 5.0 : 1.0);
  const Share part = share(path.boundingRect().adjusted(-reach, -reach, reach, reach), clip);
  if (part == Share::none) return;
  const auto put = [&] {
    if (cuts(part)) {
      painter.fillPath(outline_of(path, qpen).intersected(clip_path_), qpen.brush());
    } else {
      painter.strokePath(path, qpen);
    }
  };
  const QList<qreal> dashes = dash_pattern(pen);
  if (!dashes.isEmpty() && pen.gap_color) {
    qpen.setColor(to_qt(*pen.gap_color));
    put();
    qpen.setColor(to_qt(pen.color));
  }
  if (!dashes.isEmpty()) qpen.setDashPattern(dashes);
  put();
}

void PaintDevice::Canvas::figure(const QPainterPath &path, const Paint &paint) {
  fill(path, paint.brush, paint.clip);
  if (paint.pen.visible) stroke(path, paint.pen, paint.clip);
}

// Text and pictures
// -------------------------------------------------------------------------------------------------------------------

void PaintDevice::Canvas::text(const TextRun &run, const Region *clip) {
  if (!painter.isActive()) return;
  const Font &font = fonts.find(*run.font);
  const QString text = to_qt(run.text);
  QTransform transform = QTransform::fromTranslate(run.top_left.x, run.top_left.y);
  if (run.font->lfEscapement != 0) transform.rotate(-run.font->lfEscapement / 10.0);
  if (font.stretch != 1) transform.scale(font.stretch, 1);
  const double height = font.metrics.tmHeight;
  const double width = QFontMetricsF(font.smooth).horizontalAdvance(text);
  const Share part = share(transform.mapRect(QRectF(0, 0, width, height)), clip);
  if (part == Share::none) return;
  const QPointF baseline(0, font.metrics.tmAscent);
  if (cuts(part)) {
    QPainterPath letters;
    letters.setFillRule(Qt::WindingFill);
    letters.addText(baseline, font.smooth, text);
    painter.fillPath(transform.map(letters).intersected(clip_path_), to_qt(run.color));
    return;
  }
  painter.setTransform(transform);
  painter.setFont(font.smooth);
  painter.setPen(to_qt(run.color));
  painter.drawText(baseline, text);
  painter.resetTransform();
}

void PaintDevice::Canvas::image(const QRectF &target, const QImage &image, const Region *clip) {
  const Share part = share(target, clip);
  if (part == Share::none) return;
  if (!cuts(part)) {
    painter.drawImage(target, image);
    return;
  }
  // Pixels whose middle lies outside the clip become transparent; a small picture gets the device's pixels
  // first.
  QImage cut = image.convertToFormat(QImage::Format_ARGB32);
  const QSize size = target.size().toSize();
  if (cut.width() < size.width() && cut.height() < size.height()) cut = cut.scaled(size);
  for (int y = 0; y < cut.height(); ++y) {
    auto *row = reinterpret_cast<QRgb *>(cut.scanLine(y));
    const double target_y = target.top() + (y + 0.5) * target.height() / cut.height();
    for (int x = 0; x < cut.width(); ++x) {
      const double target_x = target.left() + (x + 0.5) * target.width() / cut.width();
      const POINT pixel{static_cast<LONG>(std::floor(target_x)), static_cast<LONG>(std::floor(target_y))};
      if (!clip->contains(pixel)) row[x] = 0;
    }
  }
  painter.drawImage(target, cut);
}

}  // namespace qt_backend
