#pragma once
// Records and handles of the drawing interface. Handles are opaque: they name an entry of one checked table
// (gdi/handle_table.h), and a stale or foreign one names nothing.

#include "tool/framework/types.h"

using HANDLE = void *;
using HGDIOBJ = void *;
using HDC = struct HDCTag *;
using HPEN = struct HPENTag *;
using HBRUSH = struct HBRUSHTag *;
using HFONT = struct HFONTTag *;
using HBITMAP = struct HBITMAPTag *;
using HRGN = struct HRGNTag *;
using HGLOBAL = struct HGLOBALTag *;

inline constexpr int LF_FACESIZE = 32;

struct LOGPEN {
  UINT lopnStyle;   ///< PS_...
  POINT lopnWidth;  ///< x: logical units
  COLORREF lopnColor;
};

struct LOGBRUSH {
  UINT lbStyle;  ///< BS_...
  COLORREF lbColor;
  std::uintptr_t lbHatch;  ///< HS_... of a hatched brush
};

/// A font as asked for. Height: positive is the height of a character cell, negative that of a character
/// without internal leading, 0 the default. Escapement in tenths of a degree, counter-clockwise.
struct LOGFONTA {
  LONG lfHeight;
  LONG lfWidth;
  LONG lfEscapement;
  LONG lfOrientation;
  LONG lfWeight;
  BYTE lfItalic;
  BYTE lfUnderline;
  BYTE lfStrikeOut;
  BYTE lfCharSet;
  BYTE lfOutPrecision;
  BYTE lfClipPrecision;
  BYTE lfQuality;
  BYTE lfPitchAndFamily;
  char lfFaceName[LF_FACESIZE];  ///< code page 932, zero-terminated
};
using LOGFONT = LOGFONTA;
static_assert(sizeof(LOGFONTA) == 60);

struct TEXTMETRICA {
  LONG tmHeight;  ///< ascent + descent
  LONG tmAscent;
  LONG tmDescent;
  LONG tmInternalLeading;
  LONG tmExternalLeading;
  LONG tmAveCharWidth;
  LONG tmMaxCharWidth;
  LONG tmWeight;
  BYTE tmItalic;
  BYTE tmUnderlined;
  BYTE tmStruckOut;
  BYTE tmPitchAndFamily;
  BYTE tmCharSet;
};
using TEXTMETRIC = TEXTMETRICA;

struct BITMAP {
  LONG bmType;
  LONG bmWidth;
  LONG bmHeight;
  LONG bmWidthBytes;
  WORD bmPlanes;
  WORD bmBitsPixel;
  void *bmBits;
};

struct RGBQUAD {
  BYTE rgbBlue;
  BYTE rgbGreen;
  BYTE rgbRed;
  BYTE rgbReserved;
};

struct BITMAPINFOHEADER {
  DWORD biSize;
  LONG biWidth;
  LONG biHeight;  ///< positive: the rows run bottom-up
  WORD biPlanes;
  WORD biBitCount;
  DWORD biCompression;
  DWORD biSizeImage;
  LONG biXPelsPerMeter;
  LONG biYPelsPerMeter;
  DWORD biClrUsed;
  DWORD biClrImportant;
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

struct BITMAPINFO {
  BITMAPINFOHEADER bmiHeader;
  RGBQUAD bmiColors[1];
};

struct DOCINFOA {
  int cbSize;
  const char *lpszDocName;
  const char *lpszOutput;
};
using DOCINFO = DOCINFOA;
