#include "provider/server/class_factory.h"

#include <atomic>
#include <new>

#include "platform/com_ptr.h"
#include "provider/server/instance_provider.h"
#include "provider/server/module_lock.h"

namespace wifi {

const CLSID kInstanceProviderClass = {
    0x3B14BAD6, 0xC364, 0x4576, {0x82, 0x71, 0x39, 0xB5, 0x85, 0x0A, 0xBD, 0xA8}};

namespace {

class InstanceProviderFactory final : public IClassFactory {
 public:
  explicit InstanceProviderFactory(adapterapi::AdapterApi& api) : api_(api) {}
  virtual ~InstanceProviderFactory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory)) {
      return E_NOINTERFACE;
    }
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    try {
      // Plain new: its members may need memory too.
      const auto provider = platform::ComPtr<InstanceProvider>::Adopt(new InstanceProvider(api_));
      return provider->QueryInterface(iid, object);
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    }
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    lock ? ModuleLock::Add() : ModuleLock::Remove();
    return S_OK;
  }

 private:
  adapterapi::AdapterApi& api_;
  std::atomic<ULONG> references_ = 1;
  ModuleLock lock_;
};

}  // namespace

HRESULT GetClassFactory(adapterapi::AdapterApi& api, REFCLSID classId, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!IsEqualCLSID(classId, kInstanceProviderClass)) return CLASS_E_CLASSNOTAVAILABLE;
  const auto factory = platform::ComPtr<InstanceProviderFactory>::Adopt(
      new (std::nothrow) InstanceProviderFactory(api));
  return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
}

}  // namespace wifi
