#include "tool/framework/gdi/global_memory.h"

#include <new>
#include <stdexcept>

#include "tool/framework/gdi/handle_table.h"

using framework::HandleTable;
using framework::MemoryBlock;

namespace {

std::shared_ptr<MemoryBlock> block_of(HGLOBAL handle) {
  return HandleTable::instance().get<std::shared_ptr<MemoryBlock>>(handle).value_or(nullptr);
}

bool resize(MemoryBlock &block, std::size_t bytes) {
  try {
    block.bytes.resize(bytes);
  } catch (const std::bad_alloc &) {
    return false;
  } catch (const std::length_error &) {
    return false;
  }
  return true;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT, std::size_t bytes) {
  auto block = std::make_shared<MemoryBlock>();
  if (!resize(*block, bytes)) return nullptr;
  return static_cast<HGLOBAL>(HandleTable::instance().insert(std::move(block)));
}

void *GlobalLock(HGLOBAL handle) {
  const std::shared_ptr<MemoryBlock> block = block_of(handle);
  if (!block || block->bytes.empty()) return nullptr;
  ++block->locks;
  return block->bytes.data();
}

BOOL GlobalUnlock(HGLOBAL handle) {
  const std::shared_ptr<MemoryBlock> block = block_of(handle);
  if (!block || block->locks == 0) return FALSE;
  return --block->locks > 0;
}

HGLOBAL GlobalFree(HGLOBAL handle) {
  return block_of(handle) && HandleTable::instance().erase(handle) ? nullptr : handle;
}

std::size_t GlobalSize(HGLOBAL handle) {
  const std::shared_ptr<MemoryBlock> block = block_of(handle);
  return block ? block->bytes.size() : 0;
}

HGLOBAL GlobalReAlloc(HGLOBAL handle, std::size_t bytes, UINT) {
  const std::shared_ptr<MemoryBlock> block = block_of(handle);
  return block && block->locks == 0 && resize(*block, bytes) ? handle : nullptr;
}
