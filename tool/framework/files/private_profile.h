#pragma once
// Settings in ini files that the caller names (code page 932 paths). Every call reads the file afresh;
// writing replaces it in a single step and keeps all other lines. Names are compared with letter case
// ignored.

#include "tool/framework/types.h"

/// The value of a key (`fallback` without trailing blanks when missing) cut to `size` - 1 bytes; the length
/// written. A null key lists the section's keys and a null section lists the sections, each name ended by a
/// zero character and the list by one more; a list that does not fit is cut, and the length is then `size`
/// - 2.
DWORD GetPrivateProfileStringA(const char *section, const char *key, const char *fallback, char *buffer,
                               DWORD size, const char *path);

/// The whole number a value starts with; `fallback` when the key is missing or its value empty.
UINT GetPrivateProfileIntA(const char *section, const char *key, int fallback, const char *path);

/// Sets a value; a null value removes the key, a null key the section. FALSE when the file cannot be written,
/// with the reason as the last error.
BOOL WritePrivateProfileStringA(const char *section, const char *key, const char *value, const char *path);
