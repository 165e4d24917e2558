#pragma once
// Our types and Qt's. Private to the back end.

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <string_view>

#include "tool/framework/gdi/pixels.h"
#include "tool/framework/text/cp932.h"
#include "tool/framework/types.h"

namespace qt_backend {

inline QColor to_qt(COLORREF color) {
  return QColor::fromRgb(framework::to_pixel(color));
}

/// Text of code page 932.
inline QString to_qt(std::string_view cp932_text) {
  if (framework::is_ascii(cp932_text)) {
    return QString::fromLatin1(cp932_text.data(), static_cast<qsizetype>(cp932_text.size()));
  }
  return QString::fromStdString(framework::utf8_for_display(cp932_text));
}
inline QString utf8_to_qt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// A view of pixels, which must outlive it. The highest byte of a pixel carries nothing.
inline QImage image_on(framework::PixelSpan pixels) {
  return QImage(reinterpret_cast<uchar *>(pixels.pixels), pixels.width, pixels.height,
                static_cast<qsizetype>(pixels.stride) * 4, QImage::Format_RGB32);
}
inline QImage image_on(framework::PixelView pixels) {
  return QImage(reinterpret_cast<const uchar *>(pixels.pixels), pixels.width, pixels.height,
                static_cast<qsizetype>(pixels.stride) * 4, QImage::Format_RGB32);
}

}  // namespace qt_backend
