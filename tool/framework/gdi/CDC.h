#pragma once
// A device context: the state of drawing (selected objects, modes, origins, clip, current position) and the
// operations that draw. Several CDC objects may share one context through its handle; the state belongs to
// the handle. Coordinates are logical units of the map mode; in MM_TEXT these are device pixels.
//
// A context without a device accepts every call and paints nothing. Which pixels each primitive paints is
// said in gdi/drawing_device.h.

#include <memory>

#include "tool/framework/gdi/constants.h"
#include "tool/framework/gdi/gdi_objects.h"
#include "tool/framework/gdi/records.h"
#include "tool/framework/text/CString.h"

namespace framework {
class DeviceContext;
class DrawingDevice;
}  // namespace framework

class CDC {
 public:
  CDC() = default;
  /// Draws on a device, which must outlive the context.
  explicit CDC(framework::DrawingDevice &device);
  virtual ~CDC();
  CDC(const CDC &) = delete;
  CDC &operator=(const CDC &) = delete;

  HDC m_hDC = nullptr;        ///< where drawing goes
  HDC m_hAttribDC = nullptr;  ///< where questions go; nearly always the same

  // Contexts and handles
  // -------------------------------------------------------------------------------------------------------
  /// A memory context; nothing can be drawn before a bitmap is selected.
  BOOL CreateCompatibleDC(const CDC *like);
  BOOL Attach(HDC handle);
  HDC Detach();
  BOOL DeleteDC();
  HDC GetSafeHdc() const { return m_hDC; }
  void SetAttribDC(HDC context) { m_hAttribDC = context; }
  void SetOutputDC(HDC context) { m_hDC = context; }
  static CDC *FromHandle(HDC handle);
  /// True on a printer (paper) device.
  BOOL IsPrinting() const;
  int GetDeviceCaps(int index) const;
  int SaveDC();
  BOOL RestoreDC(int saved);

  // Selected objects: each gives the one before
  // ----------------------------------------------------------------------------------
  CPen *SelectObject(CPen *pen);
  CBrush *SelectObject(CBrush *brush);
  CFont *SelectObject(CFont *font);
  CBitmap *SelectObject(CBitmap *bitmap);  ///< null where the context is no memory context
  int SelectObject(CRgn *clip);            ///< the same as SelectClipRgn
  CGdiObject *SelectStockObject(int index);
  CPen *GetCurrentPen() const;
  CBrush *GetCurrentBrush() const;
  CFont *GetCurrentFont() const;
  CBitmap *GetCurrentBitmap() const;

  // Modes: each setter gives the value before, 0 for a bad one
  // ---------------------------------------------------------------------------------
  int SetBkMode(int mode);
  int GetBkMode() const;
  COLORREF SetBkColor(COLORREF color);
  COLORREF GetBkColor() const;
  COLORREF SetTextColor(COLORREF color);
  COLORREF GetTextColor() const;
  int SetROP2(int operation);
  int GetROP2() const;
  int SetPolyFillMode(int mode);
  int GetPolyFillMode() const;
  int SetStretchBltMode(int mode);
  UINT SetTextAlign(UINT alignment);
  UINT GetTextAlign() const;

  // Map mode and origins
  // -------------------------------------------------------------------------------------------------------
  int SetMapMode(int mode);
  int GetMapMode() const;
  CPoint SetWindowOrg(int x, int y);
  CPoint GetWindowOrg() const;
  CPoint SetViewportOrg(int x, int y);
  CPoint GetViewportOrg() const;
  CPoint OffsetViewportOrg(int dx, int dy);
  CSize SetWindowExt(int width, int height);
  CSize SetViewportExt(int width, int height);
  void LPtoDP(POINT *points, int count = 1) const;
  void LPtoDP(RECT *rect) const;
  void DPtoLP(POINT *points, int count = 1) const;
  void DPtoLP(RECT *rect) const;

  // Clip
  // ------------------------------------------------------------------------------------------------------------------
  /// Device pixels, as regions are; null: the whole device.
  int SelectClipRgn(CRgn *region);
  int IntersectClipRect(int left, int top, int right, int bottom);
  int GetClipBox(RECT *box) const;

  // Lines and shapes
  // ----------------------------------------------------------------------------------------------------------
  CPoint MoveTo(int x, int y);
  CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
  BOOL LineTo(int x, int y);
  BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
  CPoint GetCurrentPosition() const;
  BOOL Polyline(const POINT *points, int count);
  BOOL Polygon(const POINT *points, int count);
  BOOL Rectangle(int left, int top, int right, int bottom);
  BOOL Rectangle(const RECT *box) { return Rectangle(box->left, box->top, box->right, box->bottom); }
  BOOL RoundRect(int left, int top, int right, int bottom, int corner_width, int corner_height);
  BOOL Ellipse(int left, int top, int right, int bottom);
  BOOL Ellipse(const RECT *box) { return Ellipse(box->left, box->top, box->right, box->bottom); }
  BOOL Arc(int left, int top, int right, int bottom, int start_x, int start_y, int end_x, int end_y);
  BOOL FillRgn(CRgn *region, CBrush *brush);  ///< the region in logical units here
  void FillRect(const RECT *rect, CBrush *brush);
  void FillSolidRect(const RECT *rect, COLORREF color);  ///< leaves the colour as background colour
  void FillSolidRect(int x, int y, int width, int height, COLORREF color);
  void FrameRect(const RECT *rect, CBrush *brush);  ///< one logical unit wide, inside
  void Draw3dRect(const RECT *rect, COLORREF top_left, COLORREF bottom_right);
  void DrawFocusRect(const RECT *rect);  ///< drawing it twice removes it
  BOOL FloodFill(int x, int y, COLORREF border) { return ExtFloodFill(x, y, border, FLOODFILLBORDER); }
  BOOL ExtFloodFill(int x, int y, COLORREF color, UINT kind);

  // Text (code page 932)
  // -------------------------------------------------------------------------------------------------------
  BOOL TextOut(int x, int y, const char *text, int count);
  BOOL TextOut(int x, int y, const CString &text);
  BOOL ExtTextOut(int x, int y, UINT options, const RECT *rect, const char *text, UINT count,
                  const int *advances = nullptr);
  BOOL ExtTextOut(int x, int y, UINT options, const RECT *rect, const CString &text,
                  const int *advances = nullptr);
  /// The text's height; DT_CALCRECT sets the rectangle instead of drawing. `count` -1: up to the zero.
  int DrawText(const char *text, int count, RECT *rect, UINT format);
  int DrawText(const CString &text, RECT *rect, UINT format);
  CSize GetTextExtent(const char *text, int count) const;
  CSize GetTextExtent(const CString &text) const;
  BOOL GetTextMetrics(TEXTMETRICA *metrics) const;

  // Pixels
  // ---------------------------------------------------------------------------------------------------------------------
  COLORREF GetPixel(int x, int y) const;  ///< CLR_INVALID outside and where pixels cannot be read
  COLORREF SetPixel(int x, int y, COLORREF color);
  BOOL SetPixelV(int x, int y, COLORREF color) { return SetPixel(x, y, color) != CLR_INVALID; }
  BOOL BitBlt(int x, int y, int width, int height, CDC *source, int source_x, int source_y, DWORD operation);
  BOOL StretchBlt(int x, int y, int width, int height, CDC *source, int source_x, int source_y,
                  int source_width, int source_height, DWORD operation);
  BOOL PatBlt(int x, int y, int width, int height, DWORD operation);

  // Documents
  // ------------------------------------------------------------------------------------------------------------------
  int StartDoc(const DOCINFOA *document);
  int StartPage();
  int EndPage();
  int EndDoc();

 private:
  // The context behind a handle, looked up again when the handle has changed or its context has gone. A null
  // or stale handle has a context of its own without a device, so that no call needs to ask.
  struct Cached {
    HDC handle = nullptr;
    std::shared_ptr<framework::DeviceContext> context;
    framework::DeviceContext &look_up(HDC wanted);
  };
  framework::DeviceContext &context() const { return output_.look_up(m_hDC); }
  framework::DeviceContext &attributes() const;
  template <typename Change>
  auto change_both(Change change);

  HDC owned_ = nullptr;  // deleted at the end
  mutable Cached output_;
  mutable Cached attributes_;
};
