#pragma once
// Pens, brushes, fonts, bitmaps and regions. An object owns its handle and deletes what it names at the end;
// a context keeps a copy of what was selected, so that deleting a selected object does no harm.

#include <memory>

#include "tool/framework/gdi/constants.h"
#include "tool/framework/gdi/records.h"
#include "tool/framework/gdi/region.h"
#include "tool/framework/text/CString.h"

class CDC;

class CGdiObject {
 public:
  CGdiObject() = default;
  virtual ~CGdiObject() { DeleteObject(); }
  CGdiObject(const CGdiObject &) = delete;
  CGdiObject &operator=(const CGdiObject &) = delete;

  HGDIOBJ m_hObject = nullptr;

  HGDIOBJ GetSafeHandle() const { return m_hObject; }
  /// Takes over a handle; false for a null one or when this object holds one already.
  BOOL Attach(HGDIOBJ object);
  HGDIOBJ Detach();
  BOOL DeleteObject();
  BOOL CreateStockObject(int index);
  /// LOGPEN, LOGBRUSH, LOGFONTA or BITMAP; the bytes written, 0 when the handle is bad or `size` too small.
  int GetObject(int size, void *record) const;
  /// The object that owns the handle, else a wrapper that lives as long as the handle; null for a bad handle.
  static CGdiObject *FromHandle(HGDIOBJ object);
};

class CPen : public CGdiObject {
 public:
  CPen() = default;
  CPen(int style, int width, COLORREF color) { CreatePen(style, width, color); }
  CPen(int style, int width, const LOGBRUSH *brush, int count = 0, const DWORD *dashes = nullptr) {
    CreatePen(style, width, brush, count, dashes);
  }
  /// A standard pen. Width 0 or 1: cosmetic, one pixel wide. Wider pens are always solid, with round ends.
  BOOL CreatePen(int style, int width, COLORREF color);
  /// Geometric (PS_GEOMETRIC): any width in logical units, dashes in logical units (PS_USERSTYLE, up to 16)
  /// or the system's in multiples of the width. Otherwise cosmetic.
  BOOL CreatePen(int style, int width, const LOGBRUSH *brush, int count = 0, const DWORD *dashes = nullptr);
  BOOL CreatePenIndirect(const LOGPEN *pen);
  operator HPEN() const { return static_cast<HPEN>(m_hObject); }
  static CPen *FromHandle(HPEN pen);
};

class CBrush : public CGdiObject {
 public:
  CBrush() = default;
  explicit CBrush(COLORREF color) { CreateSolidBrush(color); }
  CBrush(int hatch, COLORREF color) { CreateHatchBrush(hatch, color); }
  BOOL CreateSolidBrush(COLORREF color);
  BOOL CreateHatchBrush(int hatch, COLORREF color);
  BOOL CreateBrushIndirect(const LOGBRUSH *brush);
  operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
  static CBrush *FromHandle(HBRUSH brush);
};

class CFont : public CGdiObject {
 public:
  BOOL CreateFontIndirect(const LOGFONTA *font);
  BOOL CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic,
                  BYTE underline, BYTE strike_out, BYTE charset, BYTE out_precision, BYTE clip_precision,
                  BYTE quality, BYTE pitch_and_family, const char *face);
  /// Height in tenths of a point at 96 dots per inch, or at those of `context`.
  BOOL CreatePointFont(int tenths, const char *face, CDC *context = nullptr);
  int GetLogFont(LOGFONTA *font) const;
  operator HFONT() const { return static_cast<HFONT>(m_hObject); }
  static CFont *FromHandle(HFONT font);
};

class CBitmap : public CGdiObject {
 public:
  /// Black at first. Sizes beyond framework::Picture's limits fail.
  BOOL CreateCompatibleBitmap(CDC *context, int width, int height);
  /// `bits`: rows from the top, padded to 16 bits; 1, 8 (grey), 24 or 32 bits a pixel; null: black.
  BOOL CreateBitmap(int width, int height, UINT planes, UINT bits_per_pixel, const void *bits);
  int GetBitmap(BITMAP *bitmap) const;
  CSize GetBitmapSize() const;
  operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
  static CBitmap *FromHandle(HBITMAP bitmap);
};

class CRgn : public CGdiObject {
 public:
  BOOL CreateRectRgn(int left, int top, int right, int bottom);
  BOOL CreateEllipticRgn(int left, int top, int right, int bottom);
  /// Mode: ALTERNATE or WINDING.
  BOOL CreatePolygonRgn(const POINT *points, int count, int mode);
  int CombineRgn(const CRgn *a, const CRgn *b, int operation);
  int OffsetRgn(int dx, int dy);
  BOOL PtInRegion(int x, int y) const;
  int GetRgnBox(RECT *box) const;
  operator HRGN() const { return static_cast<HRGN>(m_hObject); }
  static CRgn *FromHandle(HRGN region);
};
