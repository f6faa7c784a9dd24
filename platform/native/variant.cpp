#include "platform/native/value_types.h"

namespace {

// The data of a VARIANT starts at the first byte of its union.
void* DataOf(VARIANT* value) {
  return &value->bits;
}
const void* DataOf(const VARIANT* value) {
  return &value->bits;
}

}  // namespace

void VariantInit(VARIANT* value) {
  *value = VARIANT{};
}

HRESULT VariantClear(VARIANT* value) {
  if (value == nullptr) return E_INVALIDARG;
  if (!native::IsKnownType(value->vt)) return DISP_E_BADVARTYPE;
  if ((value->vt & VT_ARRAY) != 0) {
    const HRESULT result = SafeArrayDestroy(value->parray);
    if (FAILED(result)) return result;
  } else {
    native::DestroyElement(value->vt, DataOf(value));
  }
  VariantInit(value);
  return S_OK;
}

HRESULT VariantCopy(VARIANT* destination, const VARIANT* source) {
  if (destination == nullptr || source == nullptr) return E_INVALIDARG;
  if (!native::IsKnownType(source->vt)) return DISP_E_BADVARTYPE;
  if (destination == source) return S_OK;
  HRESULT result = VariantClear(destination);
  if (FAILED(result)) return result;
  result = (source->vt & VT_ARRAY) != 0
               ? SafeArrayCopy(source->parray, &destination->parray)
               : native::CopyElement(source->vt, native::ElementSize(source->vt),
                                     DataOf(destination), DataOf(source));
  if (SUCCEEDED(result)) destination->vt = source->vt;
  return result;
}
