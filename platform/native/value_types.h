#pragma once
// What every operation on values must know of a type.

#include "platform/native/automation.h"

namespace native {

/// Bytes of an array element of this type; 0 for a type that arrays cannot hold.
std::size_t ElementSize(VARTYPE type);

/// Whether a VARIANT can be of this type.
inline bool IsKnownType(VARTYPE type) {
  return type == VT_EMPTY || type == VT_NULL ||
         ElementSize(static_cast<VARTYPE>(type & ~VT_ARRAY)) != 0;
}

/// Copies an element that owns what it points to (a text, a reference) or is plain data.
/// A missing text becomes an empty one. E_OUTOFMEMORY leaves the destination untouched.
HRESULT CopyElement(VARTYPE type, std::size_t size, void* destination, const void* source);
void DestroyElement(VARTYPE type, void* element);

}  // namespace native
