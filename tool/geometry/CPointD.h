#pragma once
// Points of two doubles in image pixels: x to the right, y downward. (0, 0) is the empty point.

#include "tool/framework/types.h"

/// Plain record form, copied by value.
struct tagDPOINT {
  double x;
  double y;
};

/// The same two members with arithmetic. Comparisons are exact, without tolerance; a division by zero follows
/// ordinary double arithmetic.
class CPointD {
 public:
  double x = 0.0;
  double y = 0.0;

  constexpr CPointD() = default;
  constexpr CPointD(const CPointD &) = default;
  constexpr CPointD(const CPoint &p) : x(p.x), y(p.y) {}
  constexpr CPointD(const double &px, const double &py) : x(px), y(py) {}
  constexpr CPointD &operator=(const CPointD &) = default;
  constexpr CPointD &operator=(const CPoint &p) { return SetPoint(p.x, p.y); }

  constexpr CPointD &SetPoint(const double &px, const double &py) {
    const double new_y = py;  // py may be this->x
    x = px;
    y = new_y;
    return *this;
  }
  constexpr CPointD &SetPointEmpty() { return SetPoint(0.0, 0.0); }
  constexpr CPointD &FromDPOINT(tagDPOINT p) { return SetPoint(p.x, p.y); }
  constexpr tagDPOINT ToDPOINT() const { return {x, y}; }

  constexpr CPointD &operator+=(const CPointD &p) { return SetPoint(x + p.x, y + p.y); }
  constexpr CPointD &operator+=(const CPoint &p) { return *this += CPointD(p); }
  constexpr CPointD &operator-=(const CPointD &p) { return SetPoint(x - p.x, y - p.y); }
  constexpr CPointD &operator-=(const CPoint &p) { return *this -= CPointD(p); }
  constexpr CPointD &operator*=(const double &k) { return SetPoint(x * k, y * k); }
  constexpr CPointD &operator/=(const double &k) { return SetPoint(x / k, y / k); }
  constexpr CPointD operator+(const CPointD &p) const { return CPointD(*this) += p; }
  constexpr CPointD operator+(const CPoint &p) const { return CPointD(*this) += p; }
  constexpr CPointD operator-(const CPointD &p) const { return CPointD(*this) -= p; }
  constexpr CPointD operator-(const CPoint &p) const { return CPointD(*this) -= p; }
  constexpr CPointD operator*(const double &k) const { return CPointD(*this) *= k; }
  constexpr CPointD operator/(const double &k) const { return CPointD(*this) /= k; }

  constexpr int operator==(const CPointD &p) const { return x == p.x && y == p.y; }
  constexpr int operator==(const CPoint &p) const { return *this == CPointD(p); }
  constexpr int operator!=(const CPointD &p) const { return !(*this == p); }
  constexpr int operator!=(const CPoint &p) const { return !(*this == p); }
  constexpr int IsPointNull() const { return x == 0.0 && y == 0.0; }
};

static_assert(sizeof(CPointD) == sizeof(tagDPOINT));
