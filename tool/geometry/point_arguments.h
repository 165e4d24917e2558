#pragma once
// The ways in which a point crosses the exported boundary: whole pixels by value, doubles by pointer to
// either of the two double points. They meet here by value; a null pointer counts as the empty point.

#include <concepts>
#include <type_traits>

#include "tool/geometry/CPointD.h"

namespace geometry {

template <class T>
concept RealPoint = std::same_as<T, tagDPOINT> || std::same_as<T, CPointD>;

template <class T>
concept RealPointPointer = std::is_pointer_v<T> && RealPoint<std::remove_cv_t<std::remove_pointer_t<T>>>;

template <class T>
concept PointArgument = RealPointPointer<T> || std::convertible_to<T, CPoint>;

constexpr CPointD value(const CPoint &p) {
  return p;
}

template <RealPoint Point>
constexpr CPointD value(const Point *p) {
  return p ? CPointD(p->x, p->y) : CPointD();
}

template <RealPoint Point>
constexpr void store(const CPointD &p, Point *out) {
  if (!out) return;
  out->x = p.x;
  out->y = p.y;
}

}  // namespace geometry
