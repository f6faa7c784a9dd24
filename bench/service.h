#pragma once
// A management service that does as little as possible: one class definition, instances from a pool
// that keep a copy of each value put to them, one after the other, and a sink that counts. Whatever
// a request costs beyond that is the provider's own cost.

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/com_ptr.h"
#include "platform/variant.h"
#include "tests/support/fake_wbem.h"

namespace bench {

/// A value and its property's name.
struct PutValue {
  platform::OleString name;
  platform::Variant value;
};

class Definition;

/// An instance; its last release returns it to its definition's pool, and it keeps its slots.
class Instance final : public testing_support::UnusedClassObject {
 public:
  explicit Instance(Definition& definition) : definition_(definition) {}

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE Put(LPCWSTR name, LONG, VARIANT* value, CIMTYPE) override;

  const std::vector<PutValue>& puts() const { return slots_; }

 private:
  friend class Definition;
  Definition& definition_;
  ULONG references_ = 0;
  std::vector<PutValue> slots_;  ///< one for each put, including repeated ones
  std::size_t next_ = 0;
};

class Definition final : public testing_support::UnusedClassObject {
 public:
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE SpawnInstance(LONG, IWbemClassObject** instance) override;

 private:
  friend class Instance;
  std::vector<std::unique_ptr<Instance>> all_;
  std::vector<Instance*> free_;
};

/// Counts instances; keeps the values that were put to the first one.
class CountingSink final : public testing_support::FakeUnknown<IWbemObjectSink> {
 public:
  std::size_t indicated = 0;
  HRESULT status = S_OK;
  std::vector<PutValue> first;

  HRESULT STDMETHODCALLTYPE Indicate(LONG, IWbemClassObject** instance) override;
  HRESULT STDMETHODCALLTYPE SetStatus(LONG, HRESULT result, BSTR, IWbemClassObject*) override {
    status = result;
    return S_OK;
  }
};

/// The namespace: a definition for each class, and the platform's adapters for discovery.
class Namespace final : public testing_support::UnusedServices {
 public:
  HRESULT STDMETHODCALLTYPE GetObject(const BSTR, LONG, IWbemContext*, IWbemClassObject** object,
                                      IWbemCallResult**) override {
    *object = &definition_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE CreateInstanceEnum(const BSTR className, LONG, IWbemContext*,
                                               IEnumWbemClassObject** instances) override;

  std::vector<platform::ComPtr<IWbemClassObject>> adapters;

 private:
  Definition definition_;
};

}  // namespace bench
