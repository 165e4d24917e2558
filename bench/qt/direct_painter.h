#pragma once
// The yardstick of drawing: finished primitives painted by Qt's own painter, with nothing of ours between.
// Points, pens, fonts and texts are made ready beforehand.

#include <memory>

#include "tool/framework/gdi/pixels.h"
#include "tool/framework/gdi/recording_device.h"

namespace bench {

class DirectPainter {
 public:
  /// Throws std::invalid_argument when a call cannot be painted. The pixels must outlive the painter.
  DirectPainter(const framework::RecordingDevice &calls, framework::PixelSpan pixels);
  ~DirectPainter();
  /// Every primitive once. Lines and shapes are not antialiased; text is, as ours.
  void paint();

 private:
  struct Painting;
  std::unique_ptr<Painting> painting_;
};

}  // namespace bench
