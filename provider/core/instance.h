#pragma once
// Making instances, writing their properties and reading keys: what every class routine uses.

#include <string>

#include "platform/variant.h"
#include "provider/core/object_path.h"
#include "provider/core/provider_state.h"

namespace wifi {

/// The key of every class but WiFi_NetworkAdapter: the adapter's device id.
inline constexpr const OLECHAR* kSettingId = OLESTR("SettingID");

/// Spawns an empty instance of a class of the namespace. Without a namespace (before Initialize)
/// answers 0 and leaves `instance` untouched; otherwise the first failing code of the service.
HRESULT SpawnClassInstance(const ProviderState& state, const OLECHAR* className,
                           platform::ComPtr<IWbemClassObject>& instance, IWbemContext* context);

// The calls out of the provider. Each runs behind the fence: what the service's objects raise is a
// C++ exception that ends the request, unless said otherwise.

/// The definition of a class of the namespace; a success without one is WBEM_E_FAILED.
HRESULT GetClassDefinition(const ProviderState& state, const OLECHAR* className,
                           IWbemContext* context, platform::ComPtr<IWbemClassObject>& definition);
HRESULT SpawnInstance(IWbemClassObject& definition, platform::ComPtr<IWbemClassObject>& instance);
/// Reads one property.
HRESULT GetPropertyValue(IWbemClassObject& instance, const OLECHAR* name, platform::Variant& value);

/// Writes one property with the class's own type. E_FAIL without an instance or a name, and when
/// the instance throws; otherwise the instance's answer.
HRESULT PutPropertyValue(IWbemClassObject* instance, const OLECHAR* name, VARIANT* value);
inline HRESULT PutPropertyValue(IWbemClassObject* instance, const OLECHAR* name,
                                platform::Variant value) {
  return PutPropertyValue(instance, name, value.in_place());
}

/// The same, but what the instance throws goes on to the caller. The value stays the caller's.
HRESULT PutOrRethrow(IWbemClassObject* instance, const OLECHAR* name, const VARIANT& value);

/// The value of the first key with exactly this name; a key without a name matches only a missing
/// name. It belongs to the path; VT_EMPTY without a match.
const VARIANT& GetPathKeyValue(const ParsedPath& path, const OLECHAR* keyName);

/// The text of a value that holds one, none otherwise.
inline const OLECHAR* TextOf(const VARIANT& value) {
  return value.vt == VT_BSTR ? value.bstrVal : nullptr;
}

/// The ANSI text of a key; empty if the key is missing or holds no text.
std::string PathKeyText(const ParsedPath& path, const OLECHAR* keyName);

/// The adapter that a path's key names, none if there is no such adapter.
AdapterEntry* FindAdapterByPath(const ProviderState& state, const ParsedPath& path,
                                const OLECHAR* keyName);

/// Hands one instance to the sink and answers with what it says; `otherwise` without an instance.
inline HRESULT Indicate(const Delivery& delivery, IWbemClassObject* instance, HRESULT otherwise) {
  if (instance == nullptr) return otherwise;
  return platform::CallFenced([&] { return delivery.sink->Indicate(1, &instance); });
}

/// Spawns an instance of the class, has `fill` (IWbemClassObject* to HRESULT) fill it, and
/// indicates it. Answers with the first failing step's code, otherwise with the sink's. `instance`
/// goes on holding it.
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

/// Calls `visit` (AdapterEntry& to HRESULT) for every adapter in key order, until one answers
/// anything but 0, a success code included; answers with the last result, 0 without adapters.
template <class Visit>
HRESULT VisitAdapters(const ProviderState& state, Visit&& visit) {
  if (!state.adapters) return WBEM_S_NO_ERROR;
  for (auto& [key, entry] : *state.adapters) {
    if (const HRESULT result = visit(entry); result != 0) return result;
  }
  return WBEM_S_NO_ERROR;
}

}  // namespace wifi
