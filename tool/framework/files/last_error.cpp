#include "tool/framework/files/last_error.h"

#include <system_error>

#include "tool/framework/text/cp932.h"

namespace {

thread_local DWORD last_error = 0;

}  // namespace

DWORD GetLastError() {
  return last_error;
}

void SetLastError(DWORD error) {
  last_error = error;
}

namespace framework {

std::string error_text(DWORD error) {
  return cp932_for_display(std::generic_category().message(static_cast<int>(error)));
}

}  // namespace framework
