#include "tool/framework/gdi/recording_device.h"

#include <cstring>

#include "tool/framework/gdi/cell_metrics.h"

namespace framework {
namespace {

DeviceCapabilities screen_with_everything() {
  DeviceCapabilities screen;
  screen.raster_operations = screen.flood_fill = screen.read_pixels = true;
  screen.width = 1920;
  screen.height = 1080;
  return screen;
}

bool same_look(const Paint &a, const Paint &b) {
  return a.rop == b.rop && a.brush == b.brush && a.pen == b.pen;
}

bool same_font(const LOGFONTA &a, const LOGFONTA &b) {
  return std::memcmp(&a, &b, sizeof a) == 0;  // a record without padding
}

/// The place of a value in a pool; the same as before when the last one is equal.
template <typename Value, typename Same>
std::int32_t place_in(std::vector<Value> &pool, const Value &value, Same same) {
  if (pool.empty() || !same(pool.back(), value)) pool.push_back(value);
  return static_cast<std::int32_t>(pool.size()) - 1;
}

std::uint32_t size_of(std::size_t size) {
  return static_cast<std::uint32_t>(size);
}

}  // namespace

RecordingDevice::RecordingDevice() : capabilities_(screen_with_everything()) {}

RecordingDevice::RecordingDevice(DrawingDevice &next) : capabilities_(next.capabilities()), next_(&next) {}

RecordingDevice::Call RecordingDevice::operator[](std::size_t index) const {
  const Entry &entry = entries_[index];
  const auto at = [](const auto &pool, std::int32_t place) {
    return place < 0 ? nullptr : &pool[static_cast<std::size_t>(place)];
  };
  return {entry.kind,
          std::span(points_).subspan(entry.first_point, entry.point_count),
          at(paints_, entry.paint),
          at(clips_, entry.clip),
          std::string_view(texts_).substr(entry.first_byte, entry.byte_count),
          at(fonts_, entry.font),
          entry.color,
          entry.operation,
          entry.ignored};
}

void RecordingDevice::clear() {
  entries_.clear();
  points_.clear();
  paints_.clear();
  clips_.clear();
  fonts_.clear();
  texts_.clear();
}

DeviceCapabilities RecordingDevice::capabilities() const {
  return next_ ? next_->capabilities() : capabilities_;
}

RecordingDevice::Entry &RecordingDevice::add(Kind kind, std::span<const POINT> points, const Paint *paint) {
  Entry entry{kind, false, size_of(points_.size()), size_of(points.size()), 0, 0, -1, -1, -1, 0, 0};
  points_.insert(points_.end(), points.begin(), points.end());
  if (paint) {
    if (paint->clip) entry.clip = place_in(clips_, *paint->clip, std::equal_to<>());
    entry.paint = place_in(paints_, *paint, same_look);
    paints_.back().clip = nullptr;
    entry.ignored = paint->rop != R2_COPYPEN && !capabilities().raster_operations;
  }
  return entries_.emplace_back(entry);
}

void RecordingDevice::keep_text(Entry &entry, std::string_view text) {
  entry.first_byte = size_of(texts_.size());
  entry.byte_count = size_of(text.size());
  texts_ += text;
}

// Shapes
// ------------------------------------------------------------------------------------------------------------
void RecordingDevice::polyline(std::span<const POINT> points, const Paint &paint) {
  add(Kind::polyline, points, &paint);
  if (next_) next_->polyline(points, paint);
}

void RecordingDevice::polygon(std::span<const POINT> points, FillRule rule, const Paint &paint) {
  add(Kind::polygon, points, &paint).operation = rule == FillRule::winding ? WINDING : ALTERNATE;
  if (next_) next_->polygon(points, rule, paint);
}

void RecordingDevice::rectangle(const RECT &box, const Paint &paint) {
  add(Kind::rectangle, std::array<POINT, 2>{{{box.left, box.top}, {box.right, box.bottom}}}, &paint);
  if (next_) next_->rectangle(box, paint);
}

void RecordingDevice::rounded_rectangle(const RECT &box, SIZE corner, const Paint &paint) {
  add(Kind::rounded_rectangle,
      std::array<POINT, 3>{{{box.left, box.top}, {box.right, box.bottom}, {corner.cx, corner.cy}}}, &paint);
  if (next_) next_->rounded_rectangle(box, corner, paint);
}

void RecordingDevice::ellipse(const RECT &box, const Paint &paint) {
  add(Kind::ellipse, std::array<POINT, 2>{{{box.left, box.top}, {box.right, box.bottom}}}, &paint);
  if (next_) next_->ellipse(box, paint);
}

void RecordingDevice::arc(const RECT &box, POINT start, POINT end, const Paint &paint) {
  add(Kind::arc, std::array<POINT, 4>{{{box.left, box.top}, {box.right, box.bottom}, start, end}}, &paint);
  if (next_) next_->arc(box, start, end, paint);
}

void RecordingDevice::fill_region(const Region &region, const Paint &paint) {
  if (region.kind() == Region::Kind::polygon) {
    add(Kind::fill_region, region.points(), &paint);
  } else if (region.kind() == Region::Kind::rows) {
    std::vector<POINT> corners;
    for (const RECT &rect : region.rectangles()) {
      corners.push_back({rect.left, rect.top});
      corners.push_back({rect.right, rect.bottom});
    }
    add(Kind::fill_region, corners, &paint);
  } else {
    const RECT &box = region.bounds();
    add(Kind::fill_region, std::array<POINT, 2>{{{box.left, box.top}, {box.right, box.bottom}}}, &paint);
  }
  entries_.back().operation = static_cast<DWORD>(region.kind());
  if (next_) next_->fill_region(region, paint);
}

// Text
// ------------------------------------------------------------------------------------------------------------
void RecordingDevice::text(const TextRun &run, const Paint &paint) {
  Entry &entry = add(Kind::text, {&run.top_left, 1}, &paint);
  keep_text(entry, run.text);
  entry.font = place_in(fonts_, *run.font, same_font);
  entry.color = run.color;
  if (next_) next_->text(run, paint);
}

SIZE RecordingDevice::text_extent(std::string_view text, const LOGFONTA &font) const {
  return next_ ? next_->text_extent(text, font) : cell_text_extent(text, font);
}

TEXTMETRICA RecordingDevice::text_metrics(const LOGFONTA &font) const {
  return next_ ? next_->text_metrics(font) : cell_text_metrics(font);
}

// Pixels
// ------------------------------------------------------------------------------------------------------------
void RecordingDevice::flood_fill(POINT seed, COLORREF color, UINT kind, const Paint &paint) {
  Entry &entry = add(Kind::flood_fill, {&seed, 1}, &paint);
  entry.color = color;
  entry.operation = kind;
  entry.ignored = entry.ignored || !capabilities().flood_fill;
  if (next_) next_->flood_fill(seed, color, kind, paint);
}

std::optional<COLORREF> RecordingDevice::pixel(POINT point) const {
  return next_ ? next_->pixel(point) : std::nullopt;
}

void RecordingDevice::set_pixel(POINT point, COLORREF color, const Paint &paint) {
  add(Kind::set_pixel, {&point, 1}, &paint).color = color;
  if (next_) next_->set_pixel(point, color, paint);
}

void RecordingDevice::put_pixels(const RECT &target, PixelView source, const RECT &part, DWORD operation,
                                 int stretch_mode, const Paint &paint) {
  const std::array<POINT, 4> corners{{{target.left, target.top},
                                      {target.right, target.bottom},
                                      {part.left, part.top},
                                      {part.right, part.bottom}}};
  Entry &entry = add(Kind::put_pixels, corners, &paint);
  entry.operation = operation;
  entry.ignored = operation != SRCCOPY && !capabilities().raster_operations;
  if (next_) next_->put_pixels(target, source, part, operation, stretch_mode, paint);
}

bool RecordingDevice::read_pixels(const RECT &from, PixelSpan target) const {
  return next_ && next_->read_pixels(from, target);
}

// Documents
// ------------------------------------------------------------------------------------------------------------
bool RecordingDevice::begin_document(std::string_view name) {
  keep_text(add(Kind::begin_document, {}, nullptr), name);
  return !next_ || next_->begin_document(name);
}

bool RecordingDevice::begin_page() {
  add(Kind::begin_page, {}, nullptr);
  return !next_ || next_->begin_page();
}

bool RecordingDevice::end_page() {
  add(Kind::end_page, {}, nullptr);
  return !next_ || next_->end_page();
}

bool RecordingDevice::end_document() {
  add(Kind::end_document, {}, nullptr);
  return !next_ || next_->end_document();
}

}  // namespace framework
