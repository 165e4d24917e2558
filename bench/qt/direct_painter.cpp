#include "bench/qt/direct_painter.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QPolygon>
#include <stdexcept>
#include <variant>
#include <vector>

#include "backends/qt/conversions.h"
#include "backends/qt/fonts.h"
#include "backends/qt/qt_platform.h"

namespace bench {
namespace {

using framework::RecordingDevice;
using qt_backend::to_qt;

struct Line {
  QPen pen;
  QPolygon points;
};
struct Disc {
  QPen pen;
  QBrush brush;
  QRect box;
};
struct Label {
  QPen pen;
  QFont font;
  QPointF baseline;
  QString text;
};
using Primitive = std::variant<Line, Disc, Label>;

QPen to_pen(const framework::DevicePen &pen) {
  using framework::LineCap;
  using framework::LineJoin;
  QPen result(to_qt(pen.color), pen.width);
  result.setCapStyle(pen.cap == LineCap::round    ? Qt::RoundCap
                     : pen.cap == LineCap::square ? Qt::SquareCap
                                                  : Qt::FlatCap);
  result.setJoinStyle(pen.join == LineJoin::round   ? Qt::RoundJoin
                      : pen.join == LineJoin::bevel ? Qt::BevelJoin
                                                    : Qt::MiterJoin);
  if (pen.dash_count > 0) {
    QList<qreal> pattern;
    for (int i = 0; i < pen.dash_count; ++i)
      pattern << double{1} * pen.dashes[static_cast<std::size_t>(i)] / pen.width;
    result.setDashPattern(pattern);
  }
  return result;
}

Primitive to_primitive(const RecordingDevice::Call &call, qt_backend::Fonts &fonts) {
  const POINT first = call.points.front();
  switch (call.kind) {
    case RecordingDevice::Kind::polyline: {
      Line line{to_pen(call.paint->pen), {}};
      for (const POINT &p : call.points) line.points << QPoint(p.x, p.y);
      return line;
    }
    case RecordingDevice::Kind::ellipse: {
      const POINT last = call.points[1];
      return Disc{to_pen(call.paint->pen), QBrush(to_qt(call.paint->brush.color)),
                  QRect(QPoint(first.x, first.y), QPoint(last.x - 2, last.y - 2))};
    }
    case RecordingDevice::Kind::text: {
      const qt_backend::Font &font = fonts.find(*call.font);
      return Label{QPen(to_qt(call.color)), font.smooth, QPointF(first.x, first.y + font.metrics.tmAscent),
                   to_qt(call.text)};
    }
    default:
      throw std::invalid_argument("a primitive that the yardstick does not paint");
  }
}

}  // namespace

struct DirectPainter::Painting {
  explicit Painting(framework::PixelSpan pixels) : image(qt_backend::image_on(pixels)), painter(&image) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
  }
  void paint(const Line &line) {
    painter.setPen(line.pen);
    painter.drawPolyline(line.points);
  }
  void paint(const Disc &disc) {
    painter.setPen(disc.pen);
    painter.setBrush(disc.brush);
    painter.drawEllipse(disc.box);
  }
  void paint(const Label &label) {
    painter.setPen(label.pen);
    painter.setFont(label.font);
    painter.drawText(label.baseline, label.text);
  }

  QImage image;
  QPainter painter;
  std::vector<Primitive> primitives;
};

DirectPainter::DirectPainter(const RecordingDevice &calls, framework::PixelSpan pixels) {
  qt_backend::ensure_gui_application();
  painting_ = std::make_unique<Painting>(pixels);
  qt_backend::Fonts fonts;
  for (std::size_t i = 0; i < calls.size(); ++i)
    painting_->primitives.push_back(to_primitive(calls[i], fonts));
}

DirectPainter::~DirectPainter() = default;

void DirectPainter::paint() {
  for (const Primitive &primitive : painting_->primitives)
    std::visit([this](const auto &one) { painting_->paint(one); }, primitive);
}

}  // namespace bench
