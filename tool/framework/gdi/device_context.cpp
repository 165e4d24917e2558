#include "tool/framework/gdi/device_context.h"

#include "tool/framework/gdi/CDC.h"
#include "tool/framework/gdi/cell_metrics.h"
#include "tool/framework/gdi/device_pen.h"
#include "tool/framework/platform.h"

namespace framework {
namespace {

/// Where there is no device: a screen of 96 pixels per inch that can do nothing.
DeviceCapabilities headless_screen() {
  DeviceCapabilities screen;
  screen.width = 1920;
  screen.height = 1080;
  return screen;
}

}  // namespace

DeviceContext::DeviceContext(DrawingDevice *device) : device_(device), measures_(headless_screen()) {
  const HandleTable &table = HandleTable::instance();
  for (const int index : {BLACK_PEN, WHITE_BRUSH, SYSTEM_FONT}) select(table.stock(index));
}

DeviceContext::~DeviceContext() = default;

std::shared_ptr<DeviceContext> DeviceContext::memory(const DeviceCapabilities &like) {
  auto context = std::make_shared<DeviceContext>();
  context->measures_ = like;
  context->measures_.printer = false;
  context->memory_ = true;
  context->select(HandleTable::instance().stock(default_bitmap));
  return context;
}

void DeviceContext::close() {
  open_.store(false, std::memory_order_relaxed);
  device_ = nullptr;
  bitmap_device_.reset();
  owner = nullptr;
  wrapper.reset();
}

DeviceCapabilities DeviceContext::capabilities() const {
  return device_ && !memory_ ? device_->capabilities() : measures_;
}

PixelSpan DeviceContext::bitmap_pixels() const {
  return device_ && bitmap_ ? bitmap_->picture.span() : PixelSpan();
}

HGDIOBJ DeviceContext::select(HGDIOBJ object) {
  HandleEntry entry = HandleTable::instance().find(object);
  const auto replace = [&](HGDIOBJ &selected, auto &data, const auto &value) {
    data = value;
    resolved_ = false;
    return std::exchange(selected, object);
  };
  if (const auto *pen = std::get_if<PenData>(&entry)) return replace(state_.pen, state_.pen_data, *pen);
  if (const auto *brush = std::get_if<BrushData>(&entry))
    return replace(state_.brush, state_.brush_data, *brush);
  if (const auto *font = std::get_if<FontData>(&entry)) return replace(state_.font, state_.font_data, *font);
  if (auto *bitmap = std::get_if<std::shared_ptr<BitmapData>>(&entry); bitmap && memory_)
    return select_bitmap(object, std::move(*bitmap));
  return nullptr;
}

HGDIOBJ DeviceContext::select_bitmap(HGDIOBJ handle, std::shared_ptr<BitmapData> bitmap) {
  if (handle != state_.bitmap) {
    device_ = nullptr;
    bitmap_device_.reset();
    bitmap_ = std::move(bitmap);
    if (handle != HandleTable::instance().stock(default_bitmap))
      bitmap_device_ = platform().make_image_device(bitmap_->picture.span());
    device_ = bitmap_device_.get();
  }
  return std::exchange(state_.bitmap, handle);
}

void DeviceContext::set_clip(std::shared_ptr<const Region> clip) {
  change().clip = std::move(clip);
}

int DeviceContext::save() {
  saved_.push_back(state_);
  return static_cast<int>(saved_.size());
}

bool DeviceContext::restore(int saved) {
  const int count = static_cast<int>(saved_.size());
  const int level = saved < 0 ? count + 1 + saved : saved;
  if (level < 1 || level > count) return false;
  const HGDIOBJ bitmap = state_.bitmap;
  change() = saved_[static_cast<std::size_t>(level - 1)];
  saved_.resize(static_cast<std::size_t>(level - 1));
  if (const HGDIOBJ before = std::exchange(state_.bitmap, bitmap); before != bitmap) select(before);
  return true;
}

std::optional<COLORREF> DeviceContext::gap_color() const {
  return state_.background_mode == OPAQUE ? std::optional(state_.background_color) : std::nullopt;
}

void DeviceContext::resolve() {
  const std::optional<COLORREF> gap = gap_color();
  paint_.pen = device_pen(state_.pen_data, state_.mapping, gap);
  paint_.brush = device_brush(state_.brush_data, gap);
  paint_.rop = state_.rop;
  paint_.clip = state_.clip.get();
  device_font_ = state_.font_data;
  const int height = state_.mapping.height_to_device(device_font_.lfHeight);
  device_font_.lfHeight = device_font_.lfHeight < 0 ? -height : height;
  device_font_.lfWidth = state_.mapping.width_to_device(device_font_.lfWidth);
  resolved_ = true;
}

Paint DeviceContext::paint_with(const DeviceBrush &brush) {
  Paint result;
  result.pen.visible = false;
  result.brush = brush;
  result.rop = state_.rop;
  result.clip = state_.clip.get();
  return result;
}

Paint DeviceContext::paint_with(COLORREF color) {
  return paint_with(solid_brush(color));
}

std::span<const POINT> DeviceContext::map(std::span<const POINT> logical) {
  mapped_.resize(logical.size());
  state_.mapping.to_device(logical, mapped_);
  return mapped_;
}

SIZE DeviceContext::text_extent(std::string_view text) {
  return device_ ? device_->text_extent(text, device_font()) : cell_text_extent(text, device_font());
}

TEXTMETRICA DeviceContext::text_metrics() {
  return device_ ? device_->text_metrics(device_font()) : cell_text_metrics(device_font());
}

std::shared_ptr<DeviceContext> find_context(HDC handle) {
  return handle ? HandleTable::instance().get<std::shared_ptr<DeviceContext>>(handle).value_or(nullptr)
                : nullptr;
}

bool delete_context(HDC handle) {
  const std::shared_ptr<DeviceContext> context = find_context(handle);
  if (!context || !HandleTable::instance().erase(handle)) return false;
  context->close();
  return true;
}

}  // namespace framework
