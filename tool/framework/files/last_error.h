#pragma once
// The calling thread's last error, a system error number (errno).

#include <string>

#include "tool/framework/types.h"

DWORD GetLastError();
void SetLastError(DWORD error);

namespace framework {

/// The system's text for an error number, code page 932.
std::string error_text(DWORD error);

}  // namespace framework
