#pragma once
// Drawing through raw handles. Every handle is checked: a bad one makes the call fail and nothing else.

#include "tool/framework/gdi/records.h"

HPEN CreatePen(int style, int width, COLORREF color);
HBRUSH CreateSolidBrush(COLORREF color);
HGDIOBJ GetStockObject(int index);
/// LOGPEN, LOGBRUSH, LOGFONTA or BITMAP; the bytes written, 0 when the handle is bad or `size` too small.
/// Without a record: the bytes needed.
int GetObject(HGDIOBJ object, int size, void *record);
/// False for a bad handle, a stock object and what is no drawing object.
BOOL DeleteObject(HGDIOBJ object);

HDC CreateCompatibleDC(HDC like);
BOOL DeleteDC(HDC context);
/// The object selected before; null when nothing was selected. A region becomes the clip; the result is then
/// the kind of region (SIMPLEREGION ...).
HGDIOBJ SelectObject(HDC context, HGDIOBJ object);
BOOL Rectangle(HDC context, int left, int top, int right, int bottom);
