#pragma once
// What the functions for VARIANT and SAFEARRAY need to know about a type.

#include "platform/native/automation.h"

namespace native {

/// The size in bytes of an array element of this type; 0 if an array cannot hold the type.
std::size_t ElementSize(VARTYPE type);

/// Whether a VARIANT can have this type.
inline bool IsKnownType(VARTYPE type) {
  return type == VT_EMPTY || type == VT_NULL ||
         ElementSize(static_cast<VARTYPE>(type & ~VT_ARRAY)) != 0;
}

/// Copies an element: a text is duplicated, an object gets a reference, other data is copied. A
/// null text becomes an empty one. On E_OUTOFMEMORY the destination is unchanged.
HRESULT CopyElement(VARTYPE type, std::size_t size, void* destination, const void* source);
void DestroyElement(VARTYPE type, void* element);

}  // namespace native
