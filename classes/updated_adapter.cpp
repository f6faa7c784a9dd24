#include "classes/updated_adapter.h"

#include "platform/text.h"

namespace wifi {

HRESULT IsUpdateOf(IWbemClassObject* instance, const OLECHAR* keyName, const AdapterEntry& entry) {
  platform::Variant key;
  const HRESULT result = instance->Get(keyName, 0, key.put(), nullptr, nullptr);
  if (FAILED(result) || key.text() == nullptr) return WBEM_E_INVALID_OBJECT;
  // As the adapter map compares: the ANSI texts, letter case counting.
  return platform::AnsiText(key.text()) == platform::AnsiText(entry.deviceId.c_str()) ? S_OK
                                                                                      : S_FALSE;
}

}  // namespace wifi
