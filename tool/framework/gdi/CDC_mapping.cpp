// Map mode, origins and extents of a context.

#include <utility>

#include "tool/framework/gdi/context_calls.h"

using framework::DeviceContext;
using framework::Mapping;

int CDC::SetMapMode(int mode) {
  return change_both([mode](DeviceContext &dc) {
    Mapping &mapping = dc.change().mapping;
    const int before = mapping.mode();
    return mapping.set_mode(mode, dc.capabilities()) ? before : 0;
  });
}

int CDC::GetMapMode() const {
  return attributes().state().mapping.mode();
}

CPoint CDC::SetWindowOrg(int x, int y) {
  return change_both([&](DeviceContext &dc) {
    return std::exchange(dc.change().mapping.window_origin, {x, y});
  });
}

CPoint CDC::GetWindowOrg() const {
  return attributes().state().mapping.window_origin;
}

CPoint CDC::SetViewportOrg(int x, int y) {
  return change_both([&](DeviceContext &dc) {
    return std::exchange(dc.change().mapping.viewport_origin, {x, y});
  });
}

CPoint CDC::GetViewportOrg() const {
  return attributes().state().mapping.viewport_origin;
}

CPoint CDC::OffsetViewportOrg(int dx, int dy) {
  const auto sum = [](LONG a, int b) {
    return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
  };
  const CPoint before = GetViewportOrg();
  return SetViewportOrg(sum(before.x, dx), sum(before.y, dy));
}

CSize CDC::SetWindowExt(int width, int height) {
  return change_both([&](DeviceContext &dc) {
    const SIZE before = dc.state().mapping.window_extent();
    return dc.change().mapping.set_window_extent({width, height}, dc.capabilities()) ? before : SIZE{0, 0};
  });
}

CSize CDC::SetViewportExt(int width, int height) {
  return change_both([&](DeviceContext &dc) {
    const SIZE before = dc.state().mapping.viewport_extent();
    return dc.change().mapping.set_viewport_extent({width, height}, dc.capabilities()) ? before : SIZE{0, 0};
  });
}

void CDC::LPtoDP(POINT *points, int count) const {
  const Mapping &mapping = attributes().state().mapping;
  for (int i = 0; points && i < count; ++i) points[i] = mapping.to_device(points[i]);
}

void CDC::LPtoDP(RECT *rect) const {
  if (!rect) return;
  POINT corners[] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
  LPtoDP(corners, 2);
  *rect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void CDC::DPtoLP(POINT *points, int count) const {
  const Mapping &mapping = attributes().state().mapping;
  for (int i = 0; points && i < count; ++i) points[i] = mapping.to_logical(points[i]);
}

void CDC::DPtoLP(RECT *rect) const {
  if (!rect) return;
  POINT corners[] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
  DPtoLP(corners, 2);
  *rect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}
