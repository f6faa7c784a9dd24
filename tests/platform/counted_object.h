#pragma once

#include "platform/platform.h"

/// A COM object whose references a test can read; it starts with the test's own.
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
