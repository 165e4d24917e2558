// A program of another project: a line on a picture, through a device context.
#include <backends/qt/qt_platform.h>
#include <tool/framework/gdi/CDC.h>

#include <cstdio>

int main() {
  qt_backend::QtPlatform platform;
  const framework::PlatformScope scope(platform);
  framework::Picture picture(40, 20);
  const auto device = framework::platform().make_image_device(picture.span());
  CDC dc(*device);
  CPen pen(PS_SOLID, 1, RGB(255, 0, 0));
  dc.SelectObject(&pen);
  dc.MoveTo(5, 10);
  dc.LineTo(30, 10);
  const bool right = picture.color(5, 10) == RGB(255, 0, 0) && picture.color(30, 10) == RGB(255, 255, 255);
  return std::puts(right ? "a red line" : "no line where one was drawn"), !right;
}
