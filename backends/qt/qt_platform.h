#pragma once
// The desktop as Qt offers it.

#include <memory>
#include <string>
#include <vector>

#include "tool/framework/gdi/drawing_device.h"
#include "tool/framework/platform.h"

namespace qt_backend {

/// Fonts and pictures need a QGuiApplication. A program that has none yet gets one without windows, which
/// needs no display; one that shows windows makes its own first. Call it from the main thread.
void ensure_gui_application();

/// Fonts that the substitution table wants and the system lacks, UTF-8; empty when all are there.
std::vector<std::string> missing_fonts();

/// A platform whose devices paint; for everything else it answers as the headless one does.
class QtPlatform : public framework::HeadlessPlatform {
 public:
  QtPlatform() { ensure_gui_application(); }
  std::unique_ptr<framework::DrawingDevice> make_image_device(framework::PixelSpan pixels) override;
};

}  // namespace qt_backend
