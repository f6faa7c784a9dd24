#pragma once

#include <cstddef>
#include <string>

#include "host/service/cim_object.h"
#include "host/service/com_object.h"

namespace host {

/// An object as the provider sees it. Class definitions can be read, used to spawn instances and
/// queried for methods; instances can be read and written. Operations on qualifiers and on the
/// schema itself return WBEM_E_NOT_SUPPORTED.
class ClassObject final : public ComObject<IWbemClassObject, IID_IWbemClassObject> {
 public:
  /// `pool` owns the objects that are spawned from this one.
  ClassObject(ObjectPool& pool, CimObject object);

  const CimObject& object() const { return object_; }
  /// The host's object behind an interface, null for an object that the host did not create. Adds
  /// no reference.
  static ClassObject* From(IWbemClassObject* object);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  HRESULT STDMETHODCALLTYPE GetQualifierSet(IWbemQualifierSet** set) override;
  HRESULT STDMETHODCALLTYPE Get(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE* type,
                                LONG* flavor) override;
  HRESULT STDMETHODCALLTYPE Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) override;
  HRESULT STDMETHODCALLTYPE Delete(LPCWSTR name) override;
  HRESULT STDMETHODCALLTYPE GetNames(LPCWSTR qualifier, LONG flags, VARIANT* qualifierValue,
                                     SAFEARRAY** names) override;
  HRESULT STDMETHODCALLTYPE BeginEnumeration(LONG flags) override;
  HRESULT STDMETHODCALLTYPE Next(LONG flags, BSTR* name, VARIANT* value, CIMTYPE* type,
                                 LONG* flavor) override;
  HRESULT STDMETHODCALLTYPE EndEnumeration() override;
  HRESULT STDMETHODCALLTYPE GetPropertyQualifierSet(LPCWSTR name, IWbemQualifierSet** set) override;
  HRESULT STDMETHODCALLTYPE Clone(IWbemClassObject** copy) override;
  HRESULT STDMETHODCALLTYPE GetObjectText(LONG flags, BSTR* text) override;
  HRESULT STDMETHODCALLTYPE SpawnDerivedClass(LONG flags, IWbemClassObject** derived) override;
  HRESULT STDMETHODCALLTYPE SpawnInstance(LONG flags, IWbemClassObject** instance) override;
  HRESULT STDMETHODCALLTYPE CompareTo(LONG flags, IWbemClassObject* other) override;
  HRESULT STDMETHODCALLTYPE GetPropertyOrigin(LPCWSTR name, BSTR* className) override;
  HRESULT STDMETHODCALLTYPE InheritsFrom(LPCWSTR ancestor) override;
  HRESULT STDMETHODCALLTYPE GetMethod(LPCWSTR name, LONG flags, IWbemClassObject** in,
                                      IWbemClassObject** out) override;
  HRESULT STDMETHODCALLTYPE PutMethod(LPCWSTR name, LONG flags, IWbemClassObject* in,
                                      IWbemClassObject* out) override;
  HRESULT STDMETHODCALLTYPE DeleteMethod(LPCWSTR name) override;
  HRESULT STDMETHODCALLTYPE BeginMethodEnumeration(LONG flags) override;
  HRESULT STDMETHODCALLTYPE NextMethod(LONG flags, BSTR* name, IWbemClassObject** in,
                                       IWbemClassObject** out) override;
  HRESULT STDMETHODCALLTYPE EndMethodEnumeration() override;
  HRESULT STDMETHODCALLTYPE GetMethodQualifierSet(LPCWSTR name, IWbemQualifierSet** set) override;
  HRESULT STDMETHODCALLTYPE GetMethodOrigin(LPCWSTR name, BSTR* className) override;

 private:
  HRESULT TryPut(const std::string& name, VARIANT* value, CIMTYPE type);
  /// The names that an enumeration with these flags visits; false for unknown flags.
  bool NamesFor(LONG flags, std::vector<std::string>* names) const;
  /// The signature's class definition, null if the method has no such signature.
  platform::ComPtr<ClassObject> Definition(const ClassInfo* signature) const;

  ObjectPool& pool_;
  CimObject object_;
  std::vector<std::string> enumerated_;
  std::size_t next_ = 0;
  bool enumerating_ = false;
};

}  // namespace host
