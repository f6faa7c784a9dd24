#pragma once

#include <atomic>

#include "platform/unserved_services.h"
#include "provider/core/provider_state.h"
#include "provider/server/module_lock.h"

namespace wifi {

/// The object that the management service loads and calls. It serves six operations of
/// IWbemServices. The others return WBEM_E_NOT_SUPPORTED, touch no argument and call no sink.
///
/// A new object has one reference, which its creator owns. The service calls it on its apartment
/// thread, so requests take no lock.
class InstanceProvider final
    : public IWbemProviderInit,
      public platform::UnservedServices<IWbemServices, WBEM_E_NOT_SUPPORTED> {
 public:
  explicit InstanceProvider(adapterapi::AdapterApi& api) : state_(api, memory_) {}
  InstanceProvider(const InstanceProvider&) = delete;
  InstanceProvider& operator=(const InstanceProvider&) = delete;
  virtual ~InstanceProvider();

  /// Whether objects of this class have the interface.
  static bool Has(REFIID iid);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;

  /// Stores the namespace and finds the adapters, again at every call. Always returns
  /// WBEM_S_NO_ERROR; `initSink` gets the result.
  HRESULT STDMETHODCALLTYPE Initialize(LPWSTR user, LONG flags, LPWSTR namespaceName, LPWSTR locale,
                                       IWbemServices* services, IWbemContext* context,
                                       IWbemProviderInitSink* initSink) override;

  HRESULT STDMETHODCALLTYPE GetObjectAsync(const BSTR path, LONG flags, IWbemContext* context,
                                           IWbemObjectSink* sink) override;
  HRESULT STDMETHODCALLTYPE PutInstanceAsync(IWbemClassObject* instance, LONG flags,
                                             IWbemContext* context, IWbemObjectSink* sink) override;
  HRESULT STDMETHODCALLTYPE DeleteInstanceAsync(const BSTR path, LONG flags, IWbemContext* context,
                                                IWbemObjectSink* sink) override;
  HRESULT STDMETHODCALLTYPE CreateInstanceEnumAsync(const BSTR className, LONG flags,
                                                    IWbemContext* context,
                                                    IWbemObjectSink* sink) override;
  HRESULT STDMETHODCALLTYPE ExecQueryAsync(const BSTR language, const BSTR query, LONG flags,
                                           IWbemContext* context, IWbemObjectSink* sink) override;
  HRESULT STDMETHODCALLTYPE ExecMethodAsync(const BSTR path, const BSTR method, LONG flags,
                                            IWbemContext* context, IWbemClassObject* inParameters,
                                            IWbemObjectSink* sink) override;

 private:
  template <class Steps>
  HRESULT Serve(IWbemObjectSink* sink, Steps&& steps);

  std::atomic<ULONG> references_ = 1;
  ModuleLock lock_;
  ProviderState state_;
  ProviderMemory memory_;
};

}  // namespace wifi
