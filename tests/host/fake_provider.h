#pragma once
// A provider whose every step is chosen by a test.

#include <functional>
#include <utility>

#include "host/service/unsupported_services.h"
#include "platform/bstr.h"

namespace host {

/// The data of one request.
struct Request {
  IWbemServices* services;  ///< the host's namespace
  IWbemContext* context;
  IWbemObjectSink* sink;
  platform::Bstr text;                 ///< class, path or query
  IWbemClassObject* object = nullptr;  ///< the submitted instance, or the in-parameters
};

class FakeServices final : public UnsupportedServices {
 public:
  using Steps = std::function<HRESULT(Request&)>;

  FakeServices() : UnsupportedServices("the fake provider") {}

  HRESULT STDMETHODCALLTYPE CreateInstanceEnumAsync(const BSTR name, LONG, IWbemContext* context,
                                                    IWbemObjectSink* sink) override {
    return Do(name, context, nullptr, sink);
  }
  HRESULT STDMETHODCALLTYPE GetObjectAsync(const BSTR path, LONG, IWbemContext* context,
                                           IWbemObjectSink* sink) override {
    return Do(path, context, nullptr, sink);
  }
  HRESULT STDMETHODCALLTYPE ExecQueryAsync(const BSTR, const BSTR query, LONG,
                                           IWbemContext* context, IWbemObjectSink* sink) override {
    return Do(query, context, nullptr, sink);
  }
  HRESULT STDMETHODCALLTYPE DeleteInstanceAsync(const BSTR path, LONG, IWbemContext* context,
                                                IWbemObjectSink* sink) override {
    return Do(path, context, nullptr, sink);
  }
  HRESULT STDMETHODCALLTYPE PutInstanceAsync(IWbemClassObject* object, LONG, IWbemContext* context,
                                             IWbemObjectSink* sink) override {
    if (onPut) {
      Request request{services.get(), context, sink, platform::Bstr(), object};
      return onPut(request);
    }
    return Do(nullptr, context, object, sink);
  }
  HRESULT STDMETHODCALLTYPE ExecMethodAsync(const BSTR path, const BSTR, LONG,
                                            IWbemContext* context, IWbemClassObject* in,
                                            IWbemObjectSink* sink) override {
    return Do(path, context, in, sink);
  }

  Steps steps;  ///< for every request
  Steps onPut;  ///< for puts, if set
  platform::ComPtr<IWbemServices> services;

 private:
  HRESULT Do(BSTR text, IWbemContext* context, IWbemClassObject* object, IWbemObjectSink* sink) {
    Request request{services.get(), context, sink, platform::Bstr(text), object};
    return steps(request);
  }
};

/// Factory and IWbemProviderInit for a FakeServices. Reports `initStatus` once.
class FakeProvider final : public ComObject<IWbemProviderInit, IID_IWbemProviderInit> {
 public:
  FakeProvider() : ComObject("the fake provider"), factory_(*this) {}

  IClassFactory* factory() { return &factory_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    return IsEqualIID(iid, IID_IWbemServices) ? services.QueryInterface(iid, object)
                                              : ComObject::QueryInterface(iid, object);
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = ComObject::Release();
    if (left == 1 && releasesNamespace)
      services.services.reset();  // only the test's reference is left
    return left;
  }
  HRESULT STDMETHODCALLTYPE Initialize(LPWSTR, LONG, LPWSTR, LPWSTR, IWbemServices* given,
                                       IWbemContext*, IWbemProviderInitSink* sink) override {
    services.services = platform::ComPtr<IWbemServices>(given);
    if (onInitialize) onInitialize(given);
    for (int index = 0; index < initStatusCount; ++index) sink->SetStatus(initStatus, 0);
    return S_OK;
  }

  FakeServices services;
  HRESULT initStatus = WBEM_S_INITIALIZED;
  int initStatusCount = 1;
  bool releasesNamespace = true;
  std::function<void(IWbemServices*)> onInitialize;

 private:
  class Factory final : public ComObject<IClassFactory, IID_IClassFactory> {
   public:
    explicit Factory(FakeProvider& provider) : ComObject("the fake factory"), provider_(provider) {}
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override {
      return provider_.QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

   private:
    FakeProvider& provider_;
  };

  Factory factory_;
};

}  // namespace host
