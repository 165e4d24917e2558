#pragma once
// Movable memory through checked handles.

#include <cstddef>

#include "tool/framework/gdi/constants.h"
#include "tool/framework/gdi/records.h"

/// Null when there is no room. Blocks start zeroed whether GMEM_ZEROINIT is given or not.
HGLOBAL GlobalAlloc(UINT flags, std::size_t bytes);
/// The same place until the block is resized or freed; null for a bad handle and for a block of no bytes.
void *GlobalLock(HGLOBAL handle);
/// True while the block is still locked by someone else.
BOOL GlobalUnlock(HGLOBAL handle);
/// Null when it was freed, else the handle.
HGLOBAL GlobalFree(HGLOBAL handle);
std::size_t GlobalSize(HGLOBAL handle);
/// Null, and the block as it was, for a bad handle, a locked block and when there is no room.
HGLOBAL GlobalReAlloc(HGLOBAL handle, std::size_t bytes, UINT flags);
