#include "provider/core/instance.h"

#include <utility>

#include "platform/text.h"

namespace wifi {

using platform::Bstr;
using platform::ComPtr;
using platform::Variant;

HRESULT SpawnClassInstance(const ProviderState& state, const OLECHAR* className,
                           ComPtr<IWbemClassObject>& instance, IWbemContext* context) {
  if (!state.services) return WBEM_S_NO_ERROR;
  const Bstr name(className);
  if (!name) return E_OUTOFMEMORY;
  ComPtr<IWbemClassObject> definition;
  const HRESULT result =
      state.services->GetObject(name.get(), 0, context, definition.put(), nullptr);
  if (FAILED(result)) return result;
  if (!definition) return WBEM_E_FAILED;
  return definition->SpawnInstance(0, instance.put());
}

HRESULT PutDirectly(IWbemClassObject* instance, const OLECHAR* name, Variant value) {
  if (instance == nullptr || name == nullptr) return E_FAIL;
  return instance->Put(name, 0, value.in_place(), 0);
}

HRESULT PutPropertyValue(IWbemClassObject* instance, const OLECHAR* name, Variant value) {
  try {
    return PutDirectly(instance, name, std::move(value));
  } catch (...) {
    return E_FAIL;
  }
}

const VARIANT& GetPathKeyValue(const ParsedPath& path, const OLECHAR* keyName) {
  static const Variant none;
  for (const PathKey& key : path.keys) {
    const bool matches =
        keyName == nullptr ? !key.name : key.name && *key.name == platform::ViewOf(keyName);
    if (matches) return key.value.get();
  }
  return none.get();
}

std::string PathKeyText(const ParsedPath& path, const OLECHAR* keyName) {
  return platform::AnsiText(Variant::CopyOf(GetPathKeyValue(path, keyName)).text());
}

AdapterEntry* FindAdapterByPath(ProviderState& state, const ParsedPath& path,
                                const OLECHAR* keyName) {
  return FindAdapterEntry(state.adapters, PathKeyText(path, keyName));
}

}  // namespace wifi
