#pragma once
// Paths that the system knows, as code page 932 text in buffers of the caller.

#include "tool/framework/types.h"

/// The program's own file. Cut to `size` - 1 bytes; the length written.
DWORD GetModuleFileNameA(void *module, char *buffer, DWORD size);

/// The user's folder for temporary files, with a trailing delimiter. The length; 0 when there is none. A
/// buffer that is too small stays as it is, and the result is the size needed, terminator included.
DWORD GetTempPathA(DWORD size, char *buffer);

/// The current folder, without a trailing delimiter; results as for GetTempPathA.
DWORD GetCurrentDirectoryA(DWORD size, char *buffer);
/// FALSE when the folder cannot be entered; the reason is then the last error.
BOOL SetCurrentDirectoryA(const char *path);
