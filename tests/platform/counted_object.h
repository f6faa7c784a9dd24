#pragma once

#include "platform/platform.h"

/// A COM object whose reference count a test can read; the test owns the first reference.
class CountedObject : public IUnknown {
 public:
  virtual ~CountedObject() = default;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }

  ULONG references = 1;
};
