#pragma once
// Creates instances, writes their properties and reads keys. Every class uses these functions.

#include <string>

#include "platform/variant.h"
#include "provider/core/object_path.h"
#include "provider/core/provider_state.h"

namespace wifi {

/// The key of the classes other than WiFi_NetworkAdapter: the device id of the adapter.
inline constexpr const OLECHAR* kSettingId = OLESTR("SettingID");

/// Spawns an empty instance of a class of the namespace. Returns the first error of the service.
/// Before Initialize there is no namespace: returns 0 and leaves `instance` unchanged.
HRESULT SpawnClassInstance(const ProviderState& state, const OLECHAR* className,
                           platform::ComPtr<IWbemClassObject>& instance, IWbemContext* context);

// The calls from the provider to the objects of the service. Each runs inside the fence: an
// exception of any kind becomes a C++ exception, which ends the request, unless stated otherwise.

/// Reads the definition of a class of the namespace. A success without an object is WBEM_E_FAILED.
HRESULT GetClassDefinition(const ProviderState& state, const OLECHAR* className,
                           IWbemContext* context, platform::ComPtr<IWbemClassObject>& definition);
HRESULT SpawnInstance(IWbemClassObject& definition, platform::ComPtr<IWbemClassObject>& instance);
/// Reads one property.
HRESULT GetPropertyValue(IWbemClassObject& instance, const OLECHAR* name, platform::Variant& value);

/// Writes one property, with the CIM type of the class. Returns the result of the instance; E_FAIL
/// if it throws, or if `instance` or `name` is null.
HRESULT PutPropertyValue(IWbemClassObject* instance, const OLECHAR* name, VARIANT* value);
inline HRESULT PutPropertyValue(IWbemClassObject* instance, const OLECHAR* name,
                                platform::Variant value) {
  return PutPropertyValue(instance, name, value.in_place());
}

/// Like PutPropertyValue, but an exception of the instance is thrown on. The caller still owns the
/// value.
HRESULT PutOrRethrow(IWbemClassObject* instance, const OLECHAR* name, const VARIANT& value);

/// The value of the first key with exactly this name, owned by the path; VT_EMPTY if there is no
/// such key. A null `keyName` finds a key without a name.
const VARIANT& GetPathKeyValue(const ParsedPath& path, const OLECHAR* keyName);

/// The text of a VT_BSTR; null for any other type.
inline const OLECHAR* TextOf(const VARIANT& value) {
  return value.vt == VT_BSTR ? value.bstrVal : nullptr;
}

/// The ANSI text of a key; empty if the key is missing or not a text.
std::string PathKeyText(const ParsedPath& path, const OLECHAR* keyName);

/// The adapter that the key of the path names; null if there is no such adapter.
AdapterEntry* FindAdapterByPath(const ProviderState& state, const ParsedPath& path,
                                const OLECHAR* keyName);

/// Passes one instance to the sink and returns the result of the sink; returns `otherwise` if the
/// instance is null.
inline HRESULT Indicate(const Delivery& delivery, IWbemClassObject* instance, HRESULT otherwise) {
  if (instance == nullptr) return otherwise;
  return platform::CallFenced([&] { return delivery.sink->Indicate(1, &instance); });
}

/// Spawns an instance of the class, fills it with `fill` (IWbemClassObject* to HRESULT), and passes
/// it to the sink. Returns the error of the first step that fails, otherwise the result of the
/// sink. `instance` keeps the instance alive.
///
///     return DeliverInstance(
///         state, delivery, OLESTR("WiFi_SystemPolicies"),
///         [&](IWbemClassObject* instance) { return FillSystemPolicies(state, instance); });
template <class Fill>
HRESULT DeliverInstance(const ProviderState& state, const Delivery& delivery,
                        const OLECHAR* className, Fill&& fill,
                        platform::ComPtr<IWbemClassObject>& instance) {
  HRESULT result = SpawnClassInstance(state, className, instance, delivery.context);
  if (SUCCEEDED(result)) result = fill(instance.get());
  return FAILED(result) ? result : Indicate(delivery, instance.get(), result);
}
template <class Fill>
HRESULT DeliverInstance(const ProviderState& state, const Delivery& delivery,
                        const OLECHAR* className, Fill&& fill) {
  platform::ComPtr<IWbemClassObject> instance;
  return DeliverInstance(state, delivery, className, fill, instance);
}

/// Calls `visit` (AdapterEntry& to HRESULT) for every adapter in the order of the keys. Stops at
/// the first result that is not 0, even if it is a success code. Returns the last result; 0 if
/// there are no adapters.
///
///     return VisitAdapters(state, [&](AdapterEntry& entry) {
///       return DeliverAdapterInstance(state, delivery, selector, entry);
///     });
template <class Visit>
HRESULT VisitAdapters(const ProviderState& state, Visit&& visit) {
  if (!state.adapters) return WBEM_S_NO_ERROR;
  for (auto& [key, entry] : *state.adapters) {
    if (const HRESULT result = visit(entry); result != 0) return result;
  }
  return WBEM_S_NO_ERROR;
}

}  // namespace wifi
