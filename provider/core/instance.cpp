#include "provider/core/instance.h"

#include "platform/text.h"

namespace wifi {

using platform::Bstr;
using platform::ComPtr;
using platform::Variant;

namespace {
const VARIANT kNone = {};
}

HRESULT SpawnClassInstance(const ProviderState& state, const OLECHAR* className,
                           ComPtr<IWbemClassObject>& instance, IWbemContext* context) {
  if (!state.services) return WBEM_S_NO_ERROR;
  ComPtr<IWbemClassObject> definition;
  const HRESULT result = GetClassDefinition(state, className, context, definition);
  return FAILED(result) ? result : SpawnInstance(*definition.get(), instance);
}

HRESULT GetClassDefinition(const ProviderState& state, const OLECHAR* className,
                           IWbemContext* context, ComPtr<IWbemClassObject>& definition) {
  const Bstr name(className);
  if (!name) return E_OUTOFMEMORY;
  IWbemClassObject** place = definition.put();
  const HRESULT result = platform::CallFenced(
      [&] { return state.services->GetObject(name.get(), 0, context, place, nullptr); });
  return FAILED(result) || definition ? result : WBEM_E_FAILED;
}

HRESULT SpawnInstance(IWbemClassObject& definition, ComPtr<IWbemClassObject>& instance) {
  IWbemClassObject** place = instance.put();
  return platform::CallFenced([&] { return definition.SpawnInstance(0, place); });
}

HRESULT GetPropertyValue(IWbemClassObject& instance, const OLECHAR* name, Variant& value) {
  VARIANT* place = value.put();
  return platform::CallFenced([&] { return instance.Get(name, 0, place, nullptr, nullptr); });
}

HRESULT PutOrRethrow(IWbemClassObject* instance, const OLECHAR* name, const VARIANT& value) {
  if (instance == nullptr || name == nullptr) return E_FAIL;
  return platform::CallFenced(
      [&] { return instance->Put(name, 0, const_cast<VARIANT*>(&value), 0); });
}

HRESULT PutPropertyValue(IWbemClassObject* instance, const OLECHAR* name, VARIANT* value) {
  if (instance == nullptr || name == nullptr) return E_FAIL;
  HRESULT result = E_FAIL;
  platform::Survives([&] { result = instance->Put(name, 0, value, 0); });
  return result;
}

const VARIANT& GetPathKeyValue(const ParsedPath& path, const OLECHAR* keyName) {
  for (const PathKey& key : path.keys) {
    const bool matches =
        keyName == nullptr ? !key.name : key.name && *key.name == platform::ViewOf(keyName);
    if (matches) return key.value.get();
  }
  return kNone;
}

std::string PathKeyText(const ParsedPath& path, const OLECHAR* keyName) {
  return platform::AnsiText(TextOf(GetPathKeyValue(path, keyName)));
}

AdapterEntry* FindAdapterByPath(const ProviderState& state, const ParsedPath& path,
                                const OLECHAR* keyName) {
  return FindAdapterEntry(state.adapters.get(), PathKeyText(path, keyName));
}

}  // namespace wifi
