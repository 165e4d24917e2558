#pragma once
// A small hash index from names to numbers that keeps the first number of a name. It borrows the names.

#include <cstdint>
#include <cstring>
#include <memory_resource>
#include <optional>
#include <string_view>
#include <vector>

namespace analysis {

class NameIndex {
 public:
  explicit NameIndex(std::size_t expected,
                     std::pmr::memory_resource *memory = std::pmr::get_default_resource())
      : slots_(memory) {
    std::size_t capacity = 16;
    while (capacity < 2 * expected) capacity *= 2;
    slots_.resize(capacity);
  }

  /// The number that the name has from now on: the one it had, else this one. At most `expected` names fit.
  std::uint32_t insert(std::string_view name, std::uint32_t number) {
    Slot &slot = slots_[locate(name)];
    if (slot.number != empty) return slot.number;
    slot.name = name;
    slot.number = number;
    return number;
  }

  std::optional<std::uint32_t> find(std::string_view name) const {
    const Slot &slot = slots_[locate(name)];
    if (slot.number == empty) return std::nullopt;
    return slot.number;
  }

 private:
  static constexpr std::uint32_t empty = 0xffffffff;
  struct Slot {
    std::string_view name;
    std::uint32_t number = empty;
  };

  static std::size_t hash(std::string_view name) {
    std::uint64_t head = 0;
    std::uint64_t tail = 0;
    const auto take_ends = [&](std::size_t bytes) {
      std::memcpy(&head, name.data(), bytes);
      std::memcpy(&tail, name.data() + name.size() - bytes, bytes);
    };
    if (name.size() >= 8) {
      take_ends(8);
    } else if (name.size() >= 4) {
      take_ends(4);
    } else if (name.size() >= 2) {
      take_ends(2);
    } else if (!name.empty()) {
      take_ends(1);
    }
    const std::uint64_t mixed = (head ^ (tail * 0x9E3779B97F4A7C15u) ^ name.size()) * 0xD6E8FEB86659FD93u;
    return static_cast<std::size_t>(mixed ^ (mixed >> 32));
  }

  std::size_t locate(std::string_view name) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash(name) & mask;
    while (slots_[at].number != empty && slots_[at].name != name) at = (at + 1) & mask;
    return at;
  }

  std::pmr::vector<Slot> slots_;
};

}  // namespace analysis
