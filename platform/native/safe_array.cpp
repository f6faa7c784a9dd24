#include <cstring>

#include "platform/native/allocation.h"
#include "platform/native/value_types.h"

namespace native {

std::size_t ElementSize(VARTYPE type) {
  switch (type) {
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_ERROR:
      return 4;
    case VT_R8:
      return 8;
    case VT_BSTR:
    case VT_UNKNOWN:
      return sizeof(void*);
    default:
      return 0;
  }
}

template <class Pointer>
Pointer Load(const void* element) {
  Pointer pointer;
  std::memcpy(&pointer, element, sizeof(void*));
  return pointer;
}

HRESULT CopyElement(VARTYPE type, std::size_t size, void* destination, const void* source) {
  if (type == VT_BSTR) {
    const BSTR given = Load<BSTR>(source);
    const BSTR text = SysAllocStringLen(given, SysStringLen(given));
    if (text == nullptr) return E_OUTOFMEMORY;
    std::memcpy(destination, &text, sizeof text);
    return S_OK;
  }
  std::memcpy(destination, source, size);
  if (type == VT_UNKNOWN) {
    if (IUnknown* object = Load<IUnknown*>(source)) object->AddRef();
  }
  return S_OK;
}

void DestroyElement(VARTYPE type, void* element) {
  if (type == VT_BSTR) {
    SysFreeString(Load<BSTR>(element));
  } else if (type == VT_UNKNOWN) {
    if (IUnknown* object = Load<IUnknown*>(element)) object->Release();
  }
}

}  // namespace native

namespace {

constexpr USHORT kHasType = 0x80;
constexpr USHORT kHasInterfaceId = 0x40;
constexpr USHORT kHoldsTexts = 0x100;
constexpr USHORT kHoldsObjects = 0x200;

// The caller gets a pointer to `array`. The element type is in front of it.
struct Block {
  VARTYPE type;
  SAFEARRAY array;
};

Block* BlockOf(SAFEARRAY* array) {
  return reinterpret_cast<Block*>(reinterpret_cast<char*>(array) - offsetof(Block, array));
}

VARTYPE TypeOf(SAFEARRAY* array) {
  return BlockOf(array)->type;
}

// The address of an element; nullptr if the index is out of bounds.
char* ElementAt(SAFEARRAY* array, LONG index) {
  const SAFEARRAYBOUND& bound = array->rgsabound[0];
  const LONGLONG offset = LONGLONG{index} - bound.lLbound;
  if (array->pvData == nullptr || offset < 0 || offset >= bound.cElements) return nullptr;
  return static_cast<char*>(array->pvData) + static_cast<std::size_t>(offset) * array->cbElements;
}

}  // namespace

SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds) {
  const std::size_t size = native::ElementSize(type);
  if (size == 0 || dimensions != 1 || bounds == nullptr) return nullptr;
  auto* block = static_cast<Block*>(native::AllocateBlock(sizeof(Block)));
  if (block == nullptr) return nullptr;
  *block = {};
  block->type = type;
  SAFEARRAY& array = block->array;
  array.cDims = 1;
  array.fFeatures = type == VT_BSTR      ? kHasType | kHoldsTexts
                    : type == VT_UNKNOWN ? kHasInterfaceId | kHoldsObjects
                                         : kHasType;
  array.cbElements = static_cast<ULONG>(size);
  array.rgsabound[0] = *bounds;
  array.pvData = native::AllocateBlock(size * bounds->cElements);
  if (array.pvData == nullptr) {
    native::FreeBlock(block);
    return nullptr;
  }
  std::memset(array.pvData, 0, size * bounds->cElements);
  return &array;
}

HRESULT SafeArrayDestroyData(SAFEARRAY* array) {
  if (array == nullptr) return E_INVALIDARG;
  if (array->cLocks != 0) return DISP_E_ARRAYISLOCKED;
  if (array->pvData == nullptr) return S_OK;
  char* element = static_cast<char*>(array->pvData);
  for (ULONG i = 0; i < array->rgsabound[0].cElements; ++i, element += array->cbElements) {
    native::DestroyElement(TypeOf(array), element);
  }
  native::FreeBlock(array->pvData);
  array->pvData = nullptr;
  return S_OK;
}

HRESULT SafeArrayDestroy(SAFEARRAY* array) {
  if (array == nullptr) return S_OK;
  const HRESULT result = SafeArrayDestroyData(array);
  if (SUCCEEDED(result)) native::FreeBlock(BlockOf(array));
  return result;
}

HRESULT SafeArrayCopy(SAFEARRAY* source, SAFEARRAY** copy) {
  if (copy == nullptr) return E_INVALIDARG;
  *copy = nullptr;
  if (source == nullptr) return S_OK;
  if (source->pvData == nullptr) return E_INVALIDARG;
  SAFEARRAY* array = SafeArrayCreate(TypeOf(source), 1, source->rgsabound);
  if (array == nullptr) return E_OUTOFMEMORY;
  for (ULONG i = 0; i < source->rgsabound[0].cElements; ++i) {
    const std::size_t offset = std::size_t{i} * source->cbElements;
    const HRESULT result = native::CopyElement(TypeOf(source), source->cbElements,
                                               static_cast<char*>(array->pvData) + offset,
                                               static_cast<const char*>(source->pvData) + offset);
    if (FAILED(result)) {
      SafeArrayDestroy(array);
      return result;
    }
  }
  *copy = array;
  return S_OK;
}

HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type) {
  if (array == nullptr || type == nullptr) return E_INVALIDARG;
  *type = TypeOf(array);
  return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
  if (array == nullptr || bound == nullptr) return E_INVALIDARG;
  if (dimension != 1) return DISP_E_BADINDEX;
  *bound = array->rgsabound[0].lLbound;
  return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound) {
  if (array == nullptr || bound == nullptr) return E_INVALIDARG;
  if (dimension != 1) return DISP_E_BADINDEX;
  const SAFEARRAYBOUND& range = array->rgsabound[0];
  *bound = static_cast<LONG>(LONGLONG{range.lLbound} + range.cElements - 1);
  return S_OK;
}

HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* element) {
  if (array == nullptr || indices == nullptr) return E_INVALIDARG;
  char* place = ElementAt(array, *indices);
  if (place == nullptr) return DISP_E_BADINDEX;
  // For texts and objects the caller passes the pointer itself, not its address.
  const VARTYPE type = TypeOf(array);
  const bool owns = type == VT_BSTR || type == VT_UNKNOWN;
  if (!owns && element == nullptr) return E_INVALIDARG;
  char fresh[sizeof(double)];
  const HRESULT result =
      native::CopyElement(type, array->cbElements, fresh, owns ? &element : element);
  if (FAILED(result)) return result;
  native::DestroyElement(type, place);
  std::memcpy(place, fresh, array->cbElements);
  return S_OK;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* element) {
  if (array == nullptr || indices == nullptr || element == nullptr) return E_INVALIDARG;
  const char* place = ElementAt(array, *indices);
  if (place == nullptr) return DISP_E_BADINDEX;
  return native::CopyElement(TypeOf(array), array->cbElements, element, place);
}
