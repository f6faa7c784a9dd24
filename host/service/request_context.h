#pragma once

#include "host/service/com_object.h"

namespace host {

/// The context of one request. It has no values; only its identity is used.
class RequestContext final : public ComObject<IWbemContext, IID_IWbemContext> {
 public:
  RequestContext() : ComObject("the request's context") {}

  HRESULT STDMETHODCALLTYPE Clone(IWbemContext** copy) override {
    if (copy != nullptr) *copy = nullptr;
    return kNotSupported;
  }
  HRESULT STDMETHODCALLTYPE GetNames(LONG, SAFEARRAY** names) override {
    if (names != nullptr) *names = nullptr;
    return kNotSupported;
  }
  HRESULT STDMETHODCALLTYPE BeginEnumeration(LONG) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Next(LONG, BSTR*, VARIANT*) override { return WBEM_S_NO_MORE_DATA; }
  HRESULT STDMETHODCALLTYPE EndEnumeration() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetValue(LPCWSTR, LONG, VARIANT*) override { return kNotSupported; }
  HRESULT STDMETHODCALLTYPE GetValue(LPCWSTR, LONG, VARIANT*) override { return WBEM_E_NOT_FOUND; }
  HRESULT STDMETHODCALLTYPE DeleteValue(LPCWSTR, LONG) override { return kNotSupported; }
  HRESULT STDMETHODCALLTYPE DeleteAll() override { return kNotSupported; }

 private:
  static constexpr HRESULT kNotSupported = WBEM_E_NOT_SUPPORTED;
};

}  // namespace host
