#pragma once
// All memory for texts and arrays comes from here. observe.h counts the blocks and makes
// allocations fail.

#include <cstddef>

namespace native {

/// A block; null if out of memory or if a test made this allocation fail.
void* AllocateBlock(std::size_t size);
void FreeBlock(void* block);

}  // namespace native
