#pragma once
// One checked table behind every raw handle. A handle names an entry together with its generation, so that a
// stale, foreign or made-up one is recognised and names nothing. Safe from several threads.

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "tool/framework/gdi/constants.h"
#include "tool/framework/gdi/pixels.h"
#include "tool/framework/gdi/records.h"
#include "tool/framework/gdi/region.h"

class CDC;
class CGdiObject;

namespace framework {

class DeviceContext;

/// Index of the stock bitmap, 1 x 1, that a memory context holds before one is selected.
inline constexpr int default_bitmap = 21;

/// A pen as it was created; sizes in logical units.
struct PenData {
  int style = PS_SOLID;  ///< with cap, join and type bits
  int width = 0;
  COLORREF color = 0;
  int dash_count = 0;
  std::array<DWORD, 16> dashes{};
};
using BrushData = LOGBRUSH;
using FontData = LOGFONTA;

/// A bitmap's pixels, shared by the handle and the contexts that draw on it.
struct BitmapData {
  Picture picture;
  int bits_per_pixel = 32;
};
struct MemoryBlock {
  std::vector<std::byte> bytes;
  int locks = 0;
};

using HandleEntry =
    std::variant<std::monostate, PenData, BrushData, FontData, std::shared_ptr<BitmapData>,
                 std::shared_ptr<Region>, std::shared_ptr<DeviceContext>, std::shared_ptr<MemoryBlock>>;

class HandleTable {
 public:
  static HandleTable &instance();

  void *insert(HandleEntry entry);
  /// A copy of what the handle names; empty (std::monostate) for a bad handle.
  HandleEntry find(const void *handle) const;
  /// The alternative of HandleEntry behind a handle; 0 for a bad one.
  std::size_t kind(const void *handle) const;
  bool erase(const void *handle);  ///< false for a bad handle or a stock object
  std::size_t size() const;        ///< living entries, stock objects included

  /// A stock object's handle (WHITE_BRUSH ...); null for an unknown index.
  void *stock(int index) const;

  /// The object that owns the handle (null: none any more). Stock objects have no owner.
  void set_owner(const void *handle, CGdiObject *owner);
  CGdiObject *owner(const void *handle) const;
  /// The owner, else a wrapper that lives as long as the handle; null for a bad handle and for what is no
  /// drawing object.
  CGdiObject *object(void *handle);

  template <typename T>
  std::optional<T> get(const void *handle) const {
    HandleEntry entry = find(handle);
    T *value = std::get_if<T>(&entry);
    return value ? std::optional<T>(std::move(*value)) : std::nullopt;
  }

 private:
  HandleTable();
  struct Slots;
  std::unique_ptr<Slots> slots_;
};

}  // namespace framework
