#include "provider/server/class_factory.h"

#include <atomic>

#include "platform/com_ptr.h"
#include "provider/server/instance_provider.h"
#include "provider/server/module_lock.h"

namespace wifi {

const CLSID kInstanceProviderClass = {
    0x3B14BAD6, 0xC364, 0x4576, {0x82, 0x71, 0x39, 0xB5, 0x85, 0x0A, 0xBD, 0xA8}};

namespace {

using platform::ComPtr;

class InstanceProviderFactory final : public IClassFactory {
 public:
  explicit InstanceProviderFactory(adapterapi::AdapterApi& api) : api_(api) {}
  virtual ~InstanceProviderFactory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    return platform::AnswerFenced([&]() -> HRESULT {
      if (object == nullptr) return E_POINTER;
      *object = nullptr;
      if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory)) {
        return E_NOINTERFACE;
      }
      *object = static_cast<IClassFactory*>(this);
      AddRef();
      return S_OK;
    });
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    return platform::AnswerFenced([&]() -> HRESULT {
      if (object == nullptr) return E_POINTER;
      *object = nullptr;
      if (outer != nullptr) return CLASS_E_NOAGGREGATION;
      // Check the IID before constructing: destroying a rejected provider would call CloseLibrary
      // while other providers still use it.
      if (!InstanceProvider::Has(iid)) return E_NOINTERFACE;
      return ComPtr<InstanceProvider>::Adopt(new InstanceProvider(api_))
          ->QueryInterface(iid, object);
    });
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    ModuleLock::LockServer(lock != FALSE);
    return S_OK;
  }

 private:
  adapterapi::AdapterApi& api_;
  std::atomic<ULONG> references_ = 1;
  ModuleLock lock_;
};

}  // namespace

HRESULT GetClassFactory(adapterapi::AdapterApi& api, REFCLSID classId, REFIID iid, void** object) {
  return platform::AnswerFenced([&]() -> HRESULT {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!IsEqualCLSID(classId, kInstanceProviderClass)) return CLASS_E_CLASSNOTAVAILABLE;
    return ComPtr<InstanceProviderFactory>::Adopt(new InstanceProviderFactory(api))
        ->QueryInterface(iid, object);
  });
}

}  // namespace wifi
