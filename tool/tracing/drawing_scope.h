#pragma once
// One primitive's objects and modes on a context: what it selects or sets is as before when the scope ends.
// The text colour is the one exception, see color_text.

#include "tool/framework/gdi/CDC.h"
#include "tool/tracing/line_style.h"

namespace tracing {

class DrawingScope {
 public:
  /// Transparent background from here on: the film shows through the gaps of dashes and between letters.
  explicit DrawingScope(CDC &dc, int background_mode = TRANSPARENT);
  ~DrawingScope();
  DrawingScope(const DrawingScope &) = delete;
  DrawingScope &operator=(const DrawingScope &) = delete;

  // Each at most once in a scope. A pen or font that cannot be made leaves the selected one.
  DrawingScope &pen(const PenSpec &wanted);
  DrawingScope &solid_brush(COLORREF color);
  DrawingScope &hollow_brush();
  DrawingScope &font(const LOGFONTA &font);
  /// R2_XORPEN: what is drawn twice is gone.
  DrawingScope &exclusive_or(bool wanted = true);
  /// Stays set after the scope unless `restored`.
  DrawingScope &text_color(COLORREF color, bool restored);

  CDC &dc() const { return dc_; }

 private:
  CDC &dc_;
  CPen pen_;
  CBrush brush_;
  CFont font_;
  CPen *old_pen_ = nullptr;
  CBrush *old_brush_ = nullptr;
  CFont *old_font_ = nullptr;
  int old_background_mode_;
  int old_raster_operation_ = 0;  // 0: untouched
  COLORREF old_text_color_ = CLR_INVALID;
};

}  // namespace tracing
