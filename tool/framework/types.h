#pragma once
// Plain types of the host framework. 32-bit interface types stay 32-bit on every platform; item data, message
// parameters and handles are pointer-sized.

#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using BOOL = int;
using COLORREF = std::uint32_t;  ///< 0x00BBGGRR
using DWORD_PTR = std::uintptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using LPCSTR = const char *;
using LPSTR = char *;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif
#ifndef MAX_PATH
#define MAX_PATH 260
#endif

/// Integer point, image pixels or device units: x to the right, y downward.
struct tagPOINT {
  LONG x;
  LONG y;
};
using POINT = tagPOINT;

struct tagSIZE {
  LONG cx;
  LONG cy;
};
using SIZE = tagSIZE;

/// Half-open rectangle: left and top belong to it, right and bottom do not.
struct tagRECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};
using RECT = tagRECT;

static_assert(sizeof(POINT) == 8 && sizeof(RECT) == 16);

class CSize : public tagSIZE {
 public:
  constexpr CSize() : tagSIZE{0, 0} {}
  constexpr CSize(int width, int height) : tagSIZE{width, height} {}
  constexpr CSize(const SIZE &size) : tagSIZE{size} {}
  friend constexpr bool operator==(const CSize &a, const CSize &b) { return a.cx == b.cx && a.cy == b.cy; }
};

class CPoint : public tagPOINT {
 public:
  constexpr CPoint() : tagPOINT{0, 0} {}
  constexpr CPoint(int x_, int y_) : tagPOINT{x_, y_} {}
  constexpr CPoint(const POINT &point) : tagPOINT{point} {}
  void Offset(int dx, int dy) {
    x += dx;
    y += dy;
  }
  friend constexpr bool operator==(const CPoint &a, const CPoint &b) { return a.x == b.x && a.y == b.y; }
};

class CRect : public tagRECT {
 public:
  constexpr CRect() : tagRECT{0, 0, 0, 0} {}
  constexpr CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
  constexpr CRect(const RECT &rect) : tagRECT{rect} {}
  constexpr int Width() const { return right - left; }
  constexpr int Height() const { return bottom - top; }
  constexpr BOOL IsRectEmpty() const { return right <= left || bottom <= top; }
  friend constexpr bool operator==(const CRect &a, const CRect &b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
  }
};
