#pragma once
// A small bitmap with a device on it, read back as text: one character for each colour.

#include <string>
#include <vector>

#include "backends/qt/image_device.h"

namespace support {

inline constexpr COLORREF red = 0x0000FF;    ///< of the pen: '#'
inline constexpr COLORREF green = 0x00FF00;  ///< of the brush: 'o'
inline constexpr COLORREF blue = 0xFF0000;   ///< of gaps: '+'
inline constexpr COLORREF white = 0xFFFFFF;  ///< '.'

class Bitmap {
 public:
  Bitmap(int width, int height, COLORREF color = white)
      : picture(width, height, color), device(picture.span()) {}

  std::vector<std::string> rows() const {
    std::vector<std::string> rows;
    for (int y = 0; y < picture.height(); ++y) {
      rows.emplace_back();
      for (int x = 0; x < picture.width(); ++x) rows.back() += letter(picture.color(x, y));
    }
    return rows;
  }
  std::vector<COLORREF> colors() const {
    std::vector<COLORREF> colors;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) colors.push_back(picture.color(x, y));
    }
    return colors;
  }

  framework::Picture picture;
  qt_backend::ImageDevice device;

 private:
  static char letter(COLORREF color) {
    switch (color) {
      case red:
        return '#';
      case green:
        return 'o';
      case blue:
        return '+';
      case white:
        return '.';
      default:
        return '?';
    }
  }
};

/// Red lines, no inside.
inline framework::Paint pen(int width = 1, std::vector<int> dashes = {}) {
  framework::Paint paint;
  paint.pen.color = red;
  paint.pen.width = width;
  paint.pen.dash_count = static_cast<int>(dashes.size());
  std::copy(dashes.begin(), dashes.end(), paint.pen.dashes.begin());
  paint.brush.kind = framework::DeviceBrush::Kind::none;
  return paint;
}
/// The same with a green inside.
inline framework::Paint pen_and_brush(int width = 1, std::vector<int> dashes = {}) {
  framework::Paint paint = pen(width, std::move(dashes));
  paint.brush.kind = framework::DeviceBrush::Kind::solid;
  paint.brush.color = green;
  return paint;
}

}  // namespace support
