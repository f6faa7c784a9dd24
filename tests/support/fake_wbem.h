#pragma once
// Fakes of the management service: class definitions that accept every property, instances that
// record their puts, sinks that record their calls.

#include <map>
#include <string>
#include <vector>

#include "platform/com_ptr.h"
#include "platform/text.h"
#include "platform/unserved_services.h"
#include "platform/variant.h"
#include "tests/support/journal.h"

namespace testing_support {

/// Reference counting for fakes with one interface; counts the living objects.
template <class Interface>
class FakeUnknown : public Interface {
 public:
  FakeUnknown() { ++live; }
  FakeUnknown(const FakeUnknown&) = delete;
  FakeUnknown& operator=(const FakeUnknown&) = delete;
  virtual ~FakeUnknown() { --live; }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  ULONG references() const { return references_; }
  static inline thread_local int live = 0;  ///< of this thread

 private:
  ULONG references_ = 1;
};

#define UNUSED_OPERATION(operation, parameters)             \
  HRESULT STDMETHODCALLTYPE operation parameters override { \
    return E_NOTIMPL;                                       \
  }
/// A class object that implements no operation.
class UnusedClassObject : public FakeUnknown<IWbemClassObject> {
 public:
  UNUSED_OPERATION(GetQualifierSet, (IWbemQualifierSet**))
  UNUSED_OPERATION(Delete, (LPCWSTR))
  UNUSED_OPERATION(GetNames, (LPCWSTR, LONG, VARIANT*, SAFEARRAY**))
  UNUSED_OPERATION(BeginEnumeration, (LONG))
  UNUSED_OPERATION(Next, (LONG, BSTR*, VARIANT*, CIMTYPE*, LONG*))
  UNUSED_OPERATION(EndEnumeration, ())
  UNUSED_OPERATION(GetPropertyQualifierSet, (LPCWSTR, IWbemQualifierSet**))
  UNUSED_OPERATION(Clone, (IWbemClassObject**))
  UNUSED_OPERATION(GetObjectText, (LONG, BSTR*))
  UNUSED_OPERATION(SpawnDerivedClass, (LONG, IWbemClassObject**))
  UNUSED_OPERATION(CompareTo, (LONG, IWbemClassObject*))
  UNUSED_OPERATION(GetPropertyOrigin, (LPCWSTR, BSTR*))
  UNUSED_OPERATION(InheritsFrom, (LPCWSTR))
  UNUSED_OPERATION(PutMethod, (LPCWSTR, LONG, IWbemClassObject*, IWbemClassObject*))
  UNUSED_OPERATION(DeleteMethod, (LPCWSTR))
  UNUSED_OPERATION(BeginMethodEnumeration, (LONG))
  UNUSED_OPERATION(NextMethod, (LONG, BSTR*, IWbemClassObject**, IWbemClassObject**))
  UNUSED_OPERATION(EndMethodEnumeration, ())
  UNUSED_OPERATION(GetMethodQualifierSet, (LPCWSTR, IWbemQualifierSet**))
  UNUSED_OPERATION(GetMethodOrigin, (LPCWSTR, BSTR*))
  UNUSED_OPERATION(Get, (LPCWSTR, LONG, VARIANT*, CIMTYPE*, LONG*))
  UNUSED_OPERATION(Put, (LPCWSTR, LONG, VARIANT*, CIMTYPE))
  UNUSED_OPERATION(SpawnInstance, (LONG, IWbemClassObject**))
  UNUSED_OPERATION(GetMethod, (LPCWSTR, LONG, IWbemClassObject**, IWbemClassObject**))
};

#undef UNUSED_OPERATION

/// A namespace that implements no operation.
using UnusedServices = platform::UnservedServices<FakeUnknown<IWbemServices>, E_NOTIMPL>;

/// The results of puts and spawns of a test's instances, shared by all of them.
struct InstanceScript {
  Journal& journal;
  std::map<std::string, HRESULT> putResults = {};  ///< by property; success otherwise
  std::string putThrows = {};                      ///< the property whose put throws
  HRESULT getResult = S_OK;                        ///< for a Get that finds its value
  HRESULT spawnResult = S_OK;
  HRESULT indicateResult = S_OK;
  std::map<int, HRESULT> indicateResults = {};  ///< by call number, from 1
};

/// A value in the notation of the tests: TYPE:VALUE, such as "text:Poor", "number:5", "flag:true".
std::string Shown(const VARIANT& value);

/// An instance, a class definition or a method signature.
class FakeObject final : public UnusedClassObject {
 public:
  explicit FakeObject(InstanceScript& script) : script_(script) {}

  struct PutValue {
    std::string name;
    std::string value;
  };
  std::vector<PutValue> puts;
  std::map<std::string, platform::Variant> values;  ///< returned by Get
  std::string className;

  /// "Name=VALUE" of every put, in order.
  std::vector<std::string> ShownPuts() const;
  /// The last value put under a name, "" if there was no put.
  std::string Last(const std::string& name) const;

  HRESULT STDMETHODCALLTYPE Get(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE* type,
                                LONG* flavor) override;
  HRESULT STDMETHODCALLTYPE Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) override;
  HRESULT STDMETHODCALLTYPE SpawnInstance(LONG flags, IWbemClassObject** instance) override;
  HRESULT STDMETHODCALLTYPE GetMethod(LPCWSTR name, LONG flags, IWbemClassObject** in,
                                      IWbemClassObject** out) override;

 private:
  InstanceScript& script_;
};

/// Records its calls; keeps the instances alive.
class FakeSink final : public FakeUnknown<IWbemObjectSink> {
 public:
  explicit FakeSink(InstanceScript& script) : script_(script) {}

  std::vector<platform::ComPtr<FakeObject>> objects;
  std::vector<HRESULT> statuses;

  HRESULT STDMETHODCALLTYPE Indicate(LONG count, IWbemClassObject** indicated) override;
  HRESULT STDMETHODCALLTYPE SetStatus(LONG flags, HRESULT status, BSTR, IWbemClassObject*) override;

 private:
  InstanceScript& script_;
  int calls_ = 0;
};

/// A finite enumeration of objects, then WBEM_S_FALSE.
class FakeEnumeration final : public FakeUnknown<IEnumWbemClassObject> {
 public:
  explicit FakeEnumeration(std::vector<platform::ComPtr<IWbemClassObject>> objects)
      : objects_(std::move(objects)) {}
  HRESULT STDMETHODCALLTYPE Next(LONG timeout, ULONG count, IWbemClassObject** object,
                                 ULONG* returned) override;
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE NextAsync(ULONG, IWbemObjectSink*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumWbemClassObject**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Skip(LONG, ULONG) override { return E_NOTIMPL; }

 private:
  std::vector<platform::ComPtr<IWbemClassObject>> objects_;
  std::size_t next_ = 0;
};

/// The namespace that the provider receives.
class FakeNamespace final : public UnusedServices {
 public:
  explicit FakeNamespace(InstanceScript& script) : script_(script) {}

  /// The results of enumerations of platform classes, by class name; a null entry makes Next return
  /// S_OK without an object. A class that is missing fails with WBEM_E_INVALID_CLASS.
  std::map<std::string, std::vector<platform::ComPtr<IWbemClassObject>>> platformObjects;
  std::map<std::string, HRESULT> getObjectResults;  ///< by class name; success otherwise
  std::vector<IWbemContext*> contexts;              ///< of every GetObject
  std::vector<std::string> enumerations;            ///< "CLASS flags", flags in hexadecimal

  HRESULT STDMETHODCALLTYPE GetObject(const BSTR path, LONG flags, IWbemContext* context,
                                      IWbemClassObject** object, IWbemCallResult** result) override;
  HRESULT STDMETHODCALLTYPE CreateInstanceEnum(const BSTR name, LONG flags, IWbemContext* context,
                                               IEnumWbemClassObject** enumeration) override;

 private:
  InstanceScript& script_;
};

}  // namespace testing_support
