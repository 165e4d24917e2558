#pragma once
// Texts into buffers of the caller.

#include <algorithm>
#include <string_view>

namespace framework {

/// Copies as much as fits into `size` bytes including a terminator; the length written. Nothing into no
/// buffer.
inline int copy_text(std::string_view text, char *buffer, int size) {
  if (!buffer || size <= 0) return 0;
  const std::size_t length = std::min(text.size(), static_cast<std::size_t>(size) - 1);
  std::copy_n(text.data(), length, buffer);
  buffer[length] = '\0';
  return static_cast<int>(length);
}

}  // namespace framework
