// Lines, shapes and fills of a context.

#include <algorithm>
#include <utility>

#include "tool/framework/gdi/context_calls.h"
#include "tool/framework/gdi/device_pen.h"

using framework::DeviceBrush;
using framework::DeviceContext;
using framework::DrawingDevice;
using framework::Paint;
using framework::Region;

namespace {

RECT device_box(const DeviceContext &dc, int left, int top, int right, int bottom) {
  return dc.state().mapping.box_to_device({left, top, right, bottom});
}

std::optional<DeviceBrush> brush_of(const DeviceContext &dc, const CBrush *brush) {
  const auto data =
      framework::HandleTable::instance().get<framework::BrushData>(brush ? brush->m_hObject : nullptr);
  if (!data) return std::nullopt;
  return framework::device_brush(*data, dc.gap_color());
}

/// A region of logical units in device pixels.
Region device_region(const DeviceContext &dc, const Region &region) {
  const framework::Mapping &mapping = dc.state().mapping;
  switch (region.kind()) {
    case Region::Kind::empty:
      return region;
    case Region::Kind::rectangle:
      return Region::rectangle(mapping.box_to_device(region.bounds()));
    case Region::Kind::ellipse:
      return Region::ellipse(mapping.box_to_device(region.bounds()));
    case Region::Kind::polygon: {
      std::vector<POINT> points(region.points().begin(), region.points().end());
      for (POINT &point : points) point = mapping.to_device(point);
      return Region::polygon(points, region.rule());
    }
    case Region::Kind::rows:
      break;
  }
  Region whole;
  for (const RECT &rect : region.rectangles())
    whole = Region::combined(whole, Region::rectangle(mapping.box_to_device(rect)), RGN_OR);
  return whole;
}

void fill_box(DeviceContext &dc, const RECT &box, Paint paint) {
  if (box.left >= box.right || box.top >= box.bottom) return;
  paint.rop = R2_COPYPEN;
  dc.device()->fill_region(Region::rectangle(box), paint);
}

/// The frame of a box, `width` and `height` thick, without painting any pixel twice.
std::array<RECT, 4> frame_of(const RECT &box, int width, int height) {
  const LONG x1 = std::min(box.left + width, box.right), x2 = std::max(box.right - width, x1);
  const LONG y1 = std::min(box.top + height, box.bottom), y2 = std::max(box.bottom - height, y1);
  return {{{box.left, box.top, box.right, y1},
           {box.left, y2, box.right, box.bottom},
           {box.left, y1, x1, y2},
           {x2, y1, box.right, y2}}};
}

}  // namespace

// Lines
// ------------------------------------------------------------------------------------------------------------
CPoint CDC::MoveTo(int x, int y) {
  return change_both([&](DeviceContext &dc) { return dc.move_to({x, y}); });
}

BOOL CDC::LineTo(int x, int y) {
  DeviceContext &dc = context();
  const POINT line[] = {dc.move_to({x, y}), {x, y}};
  if (DrawingDevice *device = dc.device()) device->polyline(dc.map(line), dc.paint());
  if (DeviceContext &questions = attributes(); &questions != &dc) questions.move_to({x, y});
  return TRUE;
}

CPoint CDC::GetCurrentPosition() const {
  return attributes().state().position;
}

BOOL CDC::Polyline(const POINT *points, int count) {
  if (!points || count < 1) return FALSE;
  DeviceContext &dc = context();
  if (DrawingDevice *device = dc.device())
    device->polyline(dc.map({points, static_cast<std::size_t>(count)}), dc.paint());
  return TRUE;
}

BOOL CDC::Polygon(const POINT *points, int count) {
  if (!points || count < 2) return FALSE;
  DeviceContext &dc = context();
  const auto rule =
      dc.state().poly_fill_mode == WINDING ? framework::FillRule::winding : framework::FillRule::alternate;
  if (DrawingDevice *device = dc.device())
    device->polygon(dc.map({points, static_cast<std::size_t>(count)}), rule, dc.paint());
  return TRUE;
}

// Boxes
// ------------------------------------------------------------------------------------------------------------
BOOL CDC::Rectangle(int left, int top, int right, int bottom) {
  DeviceContext &dc = context();
  DrawingDevice *device = dc.device();
  if (!device) return TRUE;
  RECT box = device_box(dc, left, top, right, bottom);
  if (!dc.paint().pen.visible) {  // the place of the outline stays free
    --box.right;
    --box.bottom;
  }
  if (box.left < box.right && box.top < box.bottom) device->rectangle(box, dc.paint());
  return TRUE;
}

BOOL CDC::RoundRect(int left, int top, int right, int bottom, int corner_width, int corner_height) {
  DeviceContext &dc = context();
  const SIZE corner{dc.state().mapping.width_to_device(corner_width),
                    dc.state().mapping.height_to_device(corner_height)};
  if (DrawingDevice *device = dc.device())
    device->rounded_rectangle(device_box(dc, left, top, right, bottom), corner, dc.paint());
  return TRUE;
}

BOOL CDC::Ellipse(int left, int top, int right, int bottom) {
  DeviceContext &dc = context();
  if (DrawingDevice *device = dc.device())
    device->ellipse(device_box(dc, left, top, right, bottom), dc.paint());
  return TRUE;
}

BOOL CDC::Arc(int left, int top, int right, int bottom, int start_x, int start_y, int end_x, int end_y) {
  DeviceContext &dc = context();
  const framework::Mapping &mapping = dc.state().mapping;
  if (DrawingDevice *device = dc.device())
    device->arc(device_box(dc, left, top, right, bottom), mapping.to_device({start_x, start_y}),
                mapping.to_device({end_x, end_y}), dc.paint());
  return TRUE;
}

// Fills
// ------------------------------------------------------------------------------------------------------------
BOOL CDC::FillRgn(CRgn *region, CBrush *brush) {
  DeviceContext &dc = context();
  const std::optional<DeviceBrush> filling = brush_of(dc, brush);
  const auto area =
      framework::HandleTable::instance().get<std::shared_ptr<Region>>(region ? region->m_hObject : nullptr);
  if (!filling || !area) return FALSE;
  if (DrawingDevice *device = dc.device())
    device->fill_region(device_region(dc, **area), dc.paint_with(*filling));
  return TRUE;
}

void CDC::FillRect(const RECT *rect, CBrush *brush) {
  DeviceContext &dc = context();
  const std::optional<DeviceBrush> filling = brush_of(dc, brush);
  if (rect && filling && dc.device())
    fill_box(dc, dc.state().mapping.box_to_device(*rect), dc.paint_with(*filling));
}

void CDC::FillSolidRect(const RECT *rect, COLORREF color) {
  if (!rect) return;
  SetBkColor(color);
  DeviceContext &dc = context();
  if (dc.device()) fill_box(dc, dc.state().mapping.box_to_device(*rect), dc.paint_with(color));
}

void CDC::FillSolidRect(int x, int y, int width, int height, COLORREF color) {
  const RECT rect = framework::sized_rect(x, y, width, height);
  FillSolidRect(&rect, color);
}

void CDC::FrameRect(const RECT *rect, CBrush *brush) {
  DeviceContext &dc = context();
  const std::optional<DeviceBrush> filling = brush_of(dc, brush);
  if (!rect || !filling || !dc.device()) return;
  const framework::Mapping &mapping = dc.state().mapping;
  const RECT box = mapping.box_to_device(*rect);
  if (box.left >= box.right || box.top >= box.bottom) return;
  const int width = std::max(mapping.width_to_device(1), 1),
            height = std::max(mapping.height_to_device(1), 1);
  for (const RECT &side : frame_of(box, width, height)) fill_box(dc, side, dc.paint_with(*filling));
}

void CDC::Draw3dRect(const RECT *rect, COLORREF top_left, COLORREF bottom_right) {
  if (!rect) return;
  const RECT &r = *rect;
  if (r.left >= r.right || r.top >= r.bottom) return;  // so that no edge below leaves 32 bits
  for (const RECT &edge :
       {RECT{r.left, r.top, r.right - 1, r.top + 1}, {r.left, r.top, r.left + 1, r.bottom - 1}})
    FillSolidRect(&edge, top_left);
  for (const RECT &edge :
       {RECT{r.right - 1, r.top, r.right, r.bottom}, {r.left, r.bottom - 1, r.right, r.bottom}})
    FillSolidRect(&edge, bottom_right);
}

void CDC::DrawFocusRect(const RECT *rect) {
  DeviceContext &dc = context();
  if (!rect || !dc.device()) return;
  Paint paint = dc.paint_with(framework::device_brush({BS_NULL, 0, 0}, std::nullopt));
  paint.rop = R2_NOT;
  paint.pen.visible = true;
  paint.pen.dash_count = 2;
  paint.pen.dashes = {1, 1};
  dc.device()->rectangle(dc.state().mapping.box_to_device(*rect), paint);
}
