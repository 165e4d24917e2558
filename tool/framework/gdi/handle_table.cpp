#include "tool/framework/gdi/handle_table.h"

#include <mutex>
#include <utility>

#include "tool/framework/gdi/cell_metrics.h"
#include "tool/framework/gdi/device_context.h"
#include "tool/framework/gdi/gdi_objects.h"

namespace framework {
namespace {

// A handle is generation << 24 | slot + 1; the generation starts at 1, so that small numbers are never
// handles.
constexpr unsigned slot_bits = 24;
constexpr std::uintptr_t slot_mask = (std::uintptr_t{1} << slot_bits) - 1;

struct Slot {
  HandleEntry entry;
  std::uintptr_t generation = 1;
  bool stock = false;
  CGdiObject *owner = nullptr;
  std::unique_ptr<CGdiObject> wrapper;
};

std::unique_ptr<CGdiObject> make_wrapper(const HandleEntry &entry) {
  if (std::holds_alternative<PenData>(entry)) return std::make_unique<CPen>();
  if (std::holds_alternative<BrushData>(entry)) return std::make_unique<CBrush>();
  if (std::holds_alternative<FontData>(entry)) return std::make_unique<CFont>();
  if (std::holds_alternative<std::shared_ptr<BitmapData>>(entry)) return std::make_unique<CBitmap>();
  if (std::holds_alternative<std::shared_ptr<Region>>(entry)) return std::make_unique<CRgn>();
  return nullptr;
}

FontData stock_font() {
  FontData font{};
  font.lfHeight = default_cell_height;
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = SHIFTJIS_CHARSET;
  font.lfPitchAndFamily = FIXED_PITCH;
  return font;
}

}  // namespace

struct HandleTable::Slots {
  mutable std::mutex mutex;
  std::vector<Slot> slots;
  std::vector<std::uint32_t> free;
  std::array<void *, default_bitmap + 1> stock{};

  Slot *at(const void *handle) {
    const auto value = reinterpret_cast<std::uintptr_t>(handle);
    const std::uintptr_t index = (value & slot_mask) - 1;
    if (index >= slots.size()) return nullptr;
    Slot &slot = slots[index];
    return slot.generation == value >> slot_bits && slot.entry.index() != 0 ? &slot : nullptr;
  }
};

HandleTable &HandleTable::instance() {
  // Never destroyed: objects of static storage still delete their handles when the program ends.
  static auto *const table = new HandleTable;
  return *table;
}

HandleTable::HandleTable() : slots_(std::make_unique<Slots>()) {
  const auto keep = [this](int index, HandleEntry entry) {
    void *handle = insert(std::move(entry));
    slots_->at(handle)->stock = true;
    slots_->stock[static_cast<std::size_t>(index)] = handle;
  };
  constexpr COLORREF grays[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};
  for (int i = WHITE_BRUSH; i <= BLACK_BRUSH; ++i) keep(i, BrushData{BS_SOLID, grays[i], 0});
  keep(NULL_BRUSH, BrushData{BS_NULL, 0, 0});
  keep(WHITE_PEN, PenData{.color = 0xFFFFFF});
  keep(BLACK_PEN, PenData{});
  keep(NULL_PEN, PenData{.style = PS_NULL});
  for (const int font : {10, 11, 12, SYSTEM_FONT, 14, 16, DEFAULT_GUI_FONT}) keep(font, stock_font());
  keep(default_bitmap, std::make_shared<BitmapData>(BitmapData{Picture(1, 1, 0), 1}));
}

void *HandleTable::insert(HandleEntry entry) {
  const std::lock_guard lock(slots_->mutex);
  if (slots_->free.empty()) {
    if (slots_->slots.size() >= slot_mask) return nullptr;
    slots_->free.push_back(static_cast<std::uint32_t>(slots_->slots.size()));
    slots_->slots.emplace_back();
    slots_->free.reserve(slots_->slots.size());  // so that erasing never allocates
  }
  const std::uint32_t index = slots_->free.back();
  slots_->free.pop_back();
  Slot &slot = slots_->slots[index];
  slot.entry = std::move(entry);
  return reinterpret_cast<void *>(slot.generation << slot_bits | (index + 1));
}

HandleEntry HandleTable::find(const void *handle) const {
  const std::lock_guard lock(slots_->mutex);
  const Slot *slot = slots_->at(handle);
  return slot ? slot->entry : HandleEntry();
}

std::size_t HandleTable::kind(const void *handle) const {
  const std::lock_guard lock(slots_->mutex);
  const Slot *slot = slots_->at(handle);
  return slot ? slot->entry.index() : 0;
}

bool HandleTable::erase(const void *handle) {
  // Destroyed after the lock is gone: the last holder of a context gives back handles of its own.
  HandleEntry entry;
  std::unique_ptr<CGdiObject> wrapper;
  const std::lock_guard lock(slots_->mutex);
  Slot *slot = slots_->at(handle);
  if (!slot || slot->stock) return false;
  entry = std::exchange(slot->entry, {});
  wrapper = std::exchange(slot->wrapper, {});
  if (wrapper) wrapper->m_hObject = nullptr;
  slot->owner = nullptr;
  ++slot->generation;
  if (slot->generation > ~std::uintptr_t{0} >> slot_bits) slot->generation = 1;
  slots_->free.push_back(static_cast<std::uint32_t>(slot - slots_->slots.data()));
  return true;
}

std::size_t HandleTable::size() const {
  const std::lock_guard lock(slots_->mutex);
  return slots_->slots.size() - slots_->free.size();
}

void *HandleTable::stock(int index) const {
  return index >= 0 && index <= default_bitmap ? slots_->stock[static_cast<std::size_t>(index)] : nullptr;
}

void HandleTable::set_owner(const void *handle, CGdiObject *owner) {
  const std::lock_guard lock(slots_->mutex);
  if (Slot *slot = slots_->at(handle); slot && !slot->stock) slot->owner = owner;
}

CGdiObject *HandleTable::owner(const void *handle) const {
  const std::lock_guard lock(slots_->mutex);
  const Slot *slot = slots_->at(handle);
  return slot ? slot->owner : nullptr;
}

CGdiObject *HandleTable::object(void *handle) {
  const std::lock_guard lock(slots_->mutex);
  Slot *slot = slots_->at(handle);
  if (!slot) return nullptr;
  if (slot->owner) return slot->owner;
  if (!slot->wrapper) {
    slot->wrapper = make_wrapper(slot->entry);
    if (slot->wrapper) slot->wrapper->m_hObject = handle;
  }
  return slot->wrapper.get();
}

}  // namespace framework
