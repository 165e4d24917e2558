#pragma once
// Bytes of the store of hand-drawn traces.

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "tool/framework/types.h"
#include "tool/tracing/trace_store.h"

namespace support {

using TraceBytes = std::array<std::byte, tracing::trace_entry_size>;
using TraceStoreBytes = std::array<TraceBytes, tracing::trace_entries>;

template <typename Bytes>
void put_word(Bytes &bytes, std::size_t offset, int value) {
  const auto word = static_cast<std::int16_t>(value);
  std::memcpy(bytes.data() + offset, &word, sizeof word);
}

struct TraceRunBytes {
  int flag;
  std::vector<CPoint> points;
};

inline TraceBytes trace_entry(std::string_view name, std::string_view code,
                              const std::vector<TraceRunBytes> &runs) {
  TraceBytes bytes{};
  std::memcpy(bytes.data(), name.data(), name.size());
  std::memcpy(bytes.data() + 35, code.data(), code.size());
  std::size_t at = 44;
  const auto put = [&](int value) {
    put_word(bytes, at, value);
    at += 2;
  };
  for (const TraceRunBytes &run : runs) {
    put(run.flag);
    put(static_cast<int>(run.points.size()));
    for (const CPoint &p : run.points) {
      put(p.x);
      put(p.y);
    }
  }
  return bytes;
}

}  // namespace support
