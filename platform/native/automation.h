#pragma once
// OLE automation values: BSTR, VARIANT and SAFEARRAY with the types that the product uses.
//
// Narrower than Windows: a VARIANT holds VT_EMPTY, VT_NULL, VT_I2, VT_I4, VT_R8, VT_BSTR, VT_ERROR,
// VT_BOOL, VT_UNKNOWN, VT_UI1, VT_UI2, VT_UI4 or an array of one of these. VariantChangeType
// converts between the scalar types (a text in decimal, &H or &O form to a number or boolean).
// Arrays have one dimension.

#include "platform/native/com.h"

using BSTR = OLECHAR*;
using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;
using SCODE = LONG;

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

enum VARENUM : VARTYPE {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R8 = 5,
  VT_BSTR = 8,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_UNKNOWN = 13,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_ARRAY = 0x2000,
};

struct SAFEARRAYBOUND {
  ULONG cElements;
  LONG lLbound;
};

struct SAFEARRAY {
  USHORT cDims;
  USHORT fFeatures;
  ULONG cbElements;
  ULONG cLocks;
  void* pvData;
  SAFEARRAYBOUND rgsabound[1];
};

struct VARIANT {
  VARTYPE vt;
  WORD wReserved1;
  WORD wReserved2;
  WORD wReserved3;
  union {
    LONG lVal;
    BYTE bVal;
    SHORT iVal;
    double dblVal;
    VARIANT_BOOL boolVal;
    SCODE scode;
    BSTR bstrVal;
    IUnknown* punkVal;
    SAFEARRAY* parray;
    USHORT uiVal;
    ULONG ulVal;
    ULONGLONG bits[2];
  };
};
static_assert(sizeof(VARIANT) == 24);
using VARIANTARG = VARIANT;

extern "C" {
BSTR SysAllocString(const OLECHAR* text);
BSTR SysAllocStringLen(const OLECHAR* text, UINT length);
void SysFreeString(BSTR text);
UINT SysStringLen(BSTR text);

void VariantInit(VARIANT* value);
HRESULT VariantClear(VARIANT* value);
HRESULT VariantCopy(VARIANT* destination, const VARIANT* source);
HRESULT VariantChangeType(VARIANT* destination, const VARIANT* source, USHORT flags, VARTYPE type);

SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
HRESULT SafeArrayDestroy(SAFEARRAY* array);
HRESULT SafeArrayDestroyData(SAFEARRAY* array);
HRESULT SafeArrayCopy(SAFEARRAY* source, SAFEARRAY** copy);
HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type);
HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* element);
HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* element);
}
