#pragma once
// COM identities, the two base interfaces, and the impersonation of the calling client.

#include <cstring>

#include "platform/native/types.h"

struct GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline bool operator==(const GUID& left, const GUID& right) {
  return std::memcmp(&left, &right, sizeof(GUID)) == 0;
}
inline bool IsEqualGUID(REFGUID left, REFGUID right) {
  return left == right;
}
inline bool IsEqualIID(REFIID left, REFIID right) {
  return left == right;
}
inline bool IsEqualCLSID(REFCLSID left, REFCLSID right) {
  return left == right;
}

inline constexpr IID IID_IUnknown = {
    0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
inline constexpr IID IID_IClassFactory = {
    0x00000001, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// No virtual destructors: a vtable holds exactly the operations of its interface.
struct IUnknown {
  virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) = 0;
  virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
  virtual ULONG STDMETHODCALLTYPE Release() = 0;

 protected:
  ~IUnknown() = default;
};

struct IClassFactory : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) = 0;
  virtual HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) = 0;

 protected:
  ~IClassFactory() = default;
};

// There is no client to impersonate. Both calls succeed; they only count, per thread, for
// platform/native/observe.h.
extern "C" HRESULT WINAPI CoImpersonateClient();
extern "C" HRESULT WINAPI CoRevertToSelf();
