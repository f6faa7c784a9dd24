#pragma once
// The one source of memory for texts and arrays, counted and made to fail as observe.h says.

#include <cstddef>

namespace native {

/// A block, or none when memory is short or the failure of this allocation was asked for.
void* AllocateBlock(std::size_t size);
void FreeBlock(void* block);

}  // namespace native
