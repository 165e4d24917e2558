#pragma once
// What a context handle names: a device, the state of drawing on it, and that state resolved into what the
// device paints with. Resolved once and kept while nothing changes.

#include <atomic>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "tool/framework/gdi/drawing_device.h"
#include "tool/framework/gdi/handle_table.h"
#include "tool/framework/gdi/mapping.h"

namespace framework {

/// Everything that SaveDC keeps.
struct DrawingState {
  HGDIOBJ pen = nullptr;
  HGDIOBJ brush = nullptr;
  HGDIOBJ font = nullptr;
  HGDIOBJ bitmap = nullptr;  ///< of a memory context
  PenData pen_data;
  BrushData brush_data{};
  FontData font_data{};
  int background_mode = OPAQUE;
  COLORREF background_color = 0xFFFFFF;
  COLORREF text_color = 0;
  int rop = R2_COPYPEN;
  int poly_fill_mode = ALTERNATE;
  int stretch_mode = BLACKONWHITE;
  UINT text_align = TA_LEFT;
  Mapping mapping;
  std::shared_ptr<const Region> clip;  ///< null: the whole device
  POINT position{0, 0};                ///< logical units
};

class DeviceContext {
 public:
  /// Draws on a device, which must outlive the context; null: on nothing, with a fixed screen's measures.
  explicit DeviceContext(DrawingDevice *device = nullptr);
  /// A memory context with the measures of `like`.
  static std::shared_ptr<DeviceContext> memory(const DeviceCapabilities &like);
  ~DeviceContext();
  DeviceContext(const DeviceContext &) = delete;
  DeviceContext &operator=(const DeviceContext &) = delete;

  /// The handle has gone: whoever still knows the context sees one without a device.
  void close();
  bool is_open() const { return open_.load(std::memory_order_relaxed); }

  DrawingDevice *device() const { return device_; }
  DeviceCapabilities capabilities() const;
  bool is_memory() const { return memory_; }
  /// The pixels of the selected bitmap; empty without one.
  PixelSpan bitmap_pixels() const;

  const DrawingState &state() const { return state_; }
  /// The state, to be changed.
  DrawingState &change() {
    resolved_ = false;
    return state_;
  }
  /// The position before.
  POINT move_to(POINT logical) { return std::exchange(state_.position, logical); }
  /// Selects a pen, brush, font or bitmap; the handle selected before, null when the handle is none of these
  /// or the context takes no bitmap.
  HGDIOBJ select(HGDIOBJ object);
  void set_clip(std::shared_ptr<const Region> clip);
  int save();
  /// Counted from 1; negative: from the last one back.
  bool restore(int saved);

  // Resolved, in device pixels
  // -------------------------------------------------------------------------------------------------
  const Paint &paint() {
    if (!resolved_) resolve();
    return paint_;
  }
  const LOGFONTA &device_font() {
    if (!resolved_) resolve();
    return device_font_;
  }
  /// Raster operation and clip of the context, no pen, and a brush of its own.
  Paint paint_with(const DeviceBrush &brush);
  Paint paint_with(COLORREF color);
  std::optional<COLORREF> gap_color() const;
  /// Valid until the next call.
  std::span<const POINT> map(std::span<const POINT> logical);
  /// Width of a text and height of its cell in pixels.
  SIZE text_extent(std::string_view text);
  TEXTMETRICA text_metrics();

  /// What CDC::FromHandle gives for a context nobody owns.
  CDC *owner = nullptr;
  std::unique_ptr<CDC> wrapper;

 private:
  void resolve();
  HGDIOBJ select_bitmap(HGDIOBJ handle, std::shared_ptr<BitmapData> bitmap);

  DrawingDevice *device_ = nullptr;
  std::atomic<bool> open_{true};
  bool memory_ = false;
  bool resolved_ = false;
  DeviceCapabilities measures_;  // without a device
  DrawingState state_;
  Paint paint_;
  LOGFONTA device_font_{};
  std::vector<POINT> mapped_;
  std::vector<DrawingState> saved_;
  std::shared_ptr<BitmapData> bitmap_;
  std::unique_ptr<DrawingDevice> bitmap_device_;
};

/// The context behind a handle; null for a bad one.
std::shared_ptr<DeviceContext> find_context(HDC handle);
/// Ends a handle of a context; false for a bad one.
bool delete_context(HDC handle);

}  // namespace framework
